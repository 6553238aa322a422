#include "pages/BroughtMarkup.h"

#include "document/Attributes.h"
#include "document/NamespaceBinding.h"
#include "text/Markup.h"
#include "text/XmlText.h"

#include <algorithm>

using Core::String;

String BroughtMarkup::take(const XmlText& source, int element, const std::set<String>& inForce) {
    String markup = source.markupOf(element);
    XmlText alone;
    alone.assign(markup);
    const std::set<String> around = Namespaces::around(source, element);
    std::set<String> missing;
    for (const String& prefix : NamespaceBinding::unbound(alone, 0, alone.length())) {
        const auto declared =
            std::find_if(around.begin(), around.end(), [&](const String& declaration) {
                return declaration.startsWith(L"xmlns:" + prefix + L"=");
            });
        const bool isOurs = Attributes::isStandardNamespace(prefix);
        if (!isOurs && declared != around.end() && !inForce.contains(*declared))
            missing.insert(*declared);
    }
    const int behindName = 1 + static_cast<int>(alone.tagName(0).size());
    markup.insert(static_cast<unsigned>(behindName), Namespaces::asAttributes(missing));
    return markup;
}
