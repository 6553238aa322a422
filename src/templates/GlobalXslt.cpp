#include "templates/GlobalXslt.h"

#include "document/Attributes.h"
#include "document/NamespaceBinding.h"
#include "foundation/Exception.h"
#include "foundation/xml/Element.h"
#include "templates/EntityTexts.h"
#include "templates/TemplateElements.h"
#include "text/Markup.h"
#include "text/XmlText.h"
#include "trees/Fragment.h"

#include <algorithm>
#include <cwctype>
#include <string_view>

using Core::String;
using Xml::Element;

namespace {

constexpr const wchar_t* holderName = L"xslt-global";
constexpr const wchar_t* sheetName = L"xslt";

/// Between the tags of the element, which is written with a `>` in its tags alone.
String contentOf(const Element& element) {
    const SmartPtr<Xml::XmlDocument> copy(new Xml::XmlDocument(L"1.0"));
    copy->createRootNodeByImport(&element, true);
    const String text = copy->writeToString(L"UTF-8");
    const int start = text.find(L'>', 0) + 1;
    const int end = text.rFind(L'<') - 1;
    return end < start ? String() : text.subString(start, end).trim();
}

using Declared = std::map<String, String>; // from prefixes to addresses

/// What the style sheet of a template declares, and what else the root does.
Declared inForceIn(const Element& root) {
    const Element* sheet = GlobalXslt::in(root);
    Declared declared = sheet ? sheet->get_namespace_defs() : Declared();
    declared.merge(root.get_namespace_defs());
    return declared;
}

bool isPartOfName(wchar_t unit) {
    return std::wstring_view(L"-._").find(unit) != std::wstring_view::npos ||
           std::iswalnum(static_cast<std::wint_t>(unit));
}

/// Whether the prefix is a word of the markup, be it in a value only; the empty one always is.
bool uses(std::wstring_view markup, std::wstring_view prefix) {
    const auto isPart = [&](std::size_t at) {
        return at < markup.size() && isPartOfName(markup[at]);
    };
    std::size_t at = 0;
    while ((at = markup.find(prefix, at)) != markup.npos) {
        if (prefix.empty() || !((at > 0 && isPart(at - 1)) || isPart(at + prefix.size())))
            return true;
        ++at;
    }
    return false;
}

/// What the text of a style sheet uses of what is in force for it.
Declared usedIn(const String& text, Declared inForce) {
    std::erase_if(inForce, [&](const auto& one) { return !uses(text.view(), one.first.view()); });
    return inForce;
}

String asAttributes(const Declared& declared) {
    String attributes;
    for (const auto& [prefix, address] : declared) {
        String escaped = address;
        Markup::escape(escaped);
        attributes += (prefix.empty() ? L" xmlns" : L" xmlns:" + prefix) + L"=\"" + escaped + L"\"";
    }
    return attributes;
}

/// That its names mean something; what the standard prefixes mean the commit declares.
void requireDeclaredPrefixes(const String& sheet) {
    XmlText text;
    text.assign(sheet);
    for (const String& prefix : NamespaceBinding::unbound(text, 0, text.length()))
        if (!Attributes::isStandardNamespace(prefix))
            throw Core::Exception(L"the style sheet uses the prefix \"" + prefix +
                                  L"\", which is not declared");
}

void put(Element& root, String text, const String& documentType, const Declared& declared) {
    TemplateElements::removeAll(root, holderName);
    if (text.trim().empty())
        return;
    Element& holder = TemplateElements::append(root, holderName);
    const String markup = L"<qfd:xslt" + asAttributes(declared) + L">" + text + L"</qfd:xslt>";
    Fragment sheet(nullptr);
    sheet.readText(documentType + markup);
    requireDeclaredPrefixes(markup);
    holder.import_node(sheet.root(), true);
}

/// What the style sheet holds, with the texts of its entities.
String textIn(const GlobalXslt::Place& place) {
    const String text = GlobalXslt::textIn(place.root);
    return place.documentType.empty()
               ? text
               : contentOf(*EntityTexts::replacedIn(L"<qfd:xslt>" + text + L"</qfd:xslt>",
                                                    place.documentType)
                                ->getRootNode());
}

} // namespace

Element* GlobalXslt::holderIn(const Element& root) {
    const std::vector<Element*> holders = TemplateElements::childrenOf(root, holderName);
    return holders.empty() ? nullptr : holders.front();
}

Element* GlobalXslt::in(const Element& root) {
    for (const Element* holder : TemplateElements::childrenOf(root, holderName))
        for (Element* sheet : TemplateElements::childrenOf(*holder, sheetName))
            return sheet;
    return nullptr;
}

String GlobalXslt::textIn(const Element& root) {
    const Element* sheet = in(root);
    return sheet ? contentOf(*sheet) : String();
}

void GlobalXslt::override(Element& root, const String& text, const String& documentType) {
    put(root, text, documentType, inForceIn(root));
}

void GlobalXslt::takeOver(const Place& to, const Place& from) {
    const String text = ::textIn(from);
    const Declared used = usedIn(text, inForceIn(from.root));
    const Declared present = inForceIn(to.root);
    if (text == ::textIn(to) &&
        std::includes(present.begin(), present.end(), used.begin(), used.end()))
        return;
    Declared declared = used;
    declared.merge(to.root.get_namespace_defs());
    put(to.root, text, to.documentType, declared);
}

String GlobalXslt::declarationsOf(const Element& element) {
    return asAttributes(element.get_namespace_defs());
}
