#include "templates/GlobalXslt.h"

#include "document/Attributes.h"
#include "document/NamespaceBinding.h"
#include "foundation/Exception.h"
#include "foundation/xml/Element.h"
#include "templates/TemplateElements.h"
#include "text/Markup.h"
#include "text/XmlText.h"
#include "trees/Elements.h"
#include "trees/Fragment.h"

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

/// From prefixes to addresses: what the root declares, and what else the style sheet of a template
/// does.
std::map<String, String> inForceIn(const Element& root, const Element& ofSheet) {
    std::map<String, String> declared = root.get_namespace_defs();
    if (const Element* sheet = GlobalXslt::in(ofSheet))
        declared.merge(sheet->get_namespace_defs());
    return declared;
}

String asAttributes(const std::map<String, String>& declared) {
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

void put(Element& root, String text, const String& documentType,
         const std::map<String, String>& declared) {
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

} // namespace

Element* GlobalXslt::holderIn(const Element& root) {
    const std::vector<Element*> holders = Elements::childrenOf(root, holderName);
    return holders.empty() ? nullptr : holders.front();
}

Element* GlobalXslt::in(const Element& root) {
    for (const Element* holder : Elements::childrenOf(root, holderName))
        for (Element* sheet : Elements::childrenOf(*holder, sheetName))
            return sheet;
    return nullptr;
}

String GlobalXslt::textIn(const Element& root) {
    const Element* sheet = in(root);
    return sheet ? contentOf(*sheet) : String();
}

void GlobalXslt::override(Element& root, const String& text, const String& documentType) {
    put(root, text, documentType, inForceIn(root, root));
}

void GlobalXslt::takeOver(Element& root, const Element& from, const String& documentType) {
    put(root, textIn(from), documentType, inForceIn(root, from));
}

String GlobalXslt::declarationsOf(const Element& element) {
    return asAttributes(element.get_namespace_defs());
}
