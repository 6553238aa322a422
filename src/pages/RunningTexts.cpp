#include "pages/RunningTexts.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "foundation/xml/Element.h"
#include "pages/ComplexMasters.h"
#include "pages/Masters.h"
#include "pages/Regions.h"
#include "pages/TextElements.h"
#include "text/Markup.h"
#include "text/RootChildren.h"

#include <algorithm>
#include <vector>

using Core::String;
using Xml::Element;

namespace {

bool isSequence(const XmlText& text, int element) {
    return text.tagName(element) == L"fo:page-sequence" ||
           text.tagName(element) == L"qfd:page-sequence-repeat";
}

String prefixOf(const String& declaration) {
    return declaration.substringBefore(L"=").substringAfter(L":");
}

} // namespace

RunningTexts::RunningTexts(Document& document) : document_(document), masters_(&document) {
    const XmlText& text = document.text();
    const int masters = RootChildren::named(text, L"fo:layout-master-set");
    if (masters < 0)
        return;
    masters_.read(masters);
    readMasters();
    for (int child = RootChildren::first(text); child >= 0; child = RootChildren::next(text, child))
        if (isSequence(text, child))
            readSequence(child);
}

void RunningTexts::readMasters() {
    std::set<String> known; // of two masters of one name the first counts
    for (const Element* master : Masters::complexOf(*masters_.root())) {
        const String name = Masters::nameOf(*master);
        if (!name.empty() && known.insert(name).second)
            for (const String& reference : ComplexMasters::mastersOf(*master))
                users_[reference].insert(name);
    }
}

void RunningTexts::readSequence(int sequence) {
    const XmlText& text = document_.text();
    std::map<String, int>& contents =
        contents_[TextElements::attributeOf(text, sequence, L"master-reference")];
    const int end = text.closingTag(sequence);
    for (int child = text.nextElement(sequence); child >= 0 && child < end;
         child = text.nextElement(text.closingTag(child)))
        if (text.tagName(child) == L"fo:static-content")
            contents[TextElements::attributeOf(text, child, L"flow-name")] = child;
}

std::map<String, String> RunningTexts::regionsOf(const String& simpleMaster) const {
    std::map<String, String> regions;
    const Element* master =
        masters_.tree() ? Masters::findSimple(*masters_.root(), simpleMaster) : nullptr;
    if (master)
        for (const Element* region : Regions::of(*master))
            regions[region->get_name()] = Regions::flowNameOf(*region);
    return regions;
}

void RunningTexts::collect(const String& simpleMaster, std::map<String, String>& texts) const {
    if (simpleMaster.empty())
        return;
    std::set<String> masters{simpleMaster};
    if (const auto users = users_.find(simpleMaster); users != users_.end())
        masters.insert(users->second.begin(), users->second.end());
    std::map<String, int> last;
    for (const String& master : masters)
        if (const auto contents = contents_.find(master); contents != contents_.end())
            for (const auto& [flow, position] : contents->second)
                last[flow] = std::max(last[flow], position);
    for (const auto& [flow, position] : last)
        if (!flow.empty())
            texts[flow] = markupOf(position);
}

String RunningTexts::markupOf(int staticContent) const {
    const XmlText& text = document_.text();
    String markup = text.markupOf(staticContent);
    const std::set<String> ofRoot = Namespaces::of(text, text.prolog().root);
    const std::set<String> own = Namespaces::of(text, staticContent);
    std::set<String> lost;
    for (const String& declaration : Namespaces::of(text, text.elementAround(staticContent))) {
        const String prefix = prefixOf(declaration);
        // The root gets a standard one that it has not.
        const bool comesAnyway =
            ofRoot.contains(declaration) ||
            (Attributes::isStandardNamespace(prefix) && !Namespaces::declares(ofRoot, declaration));
        if (!comesAnyway && !Namespaces::declares(own, declaration) &&
            markup.find(prefix + L":", 0) >= 0)
            lost.insert(declaration);
    }
    const int behindName = 1 + static_cast<int>(text.tagName(staticContent).size());
    markup.insert(static_cast<unsigned>(behindName), Namespaces::asAttributes(lost));
    return markup;
}
