#include "templates/Scripts.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/EntityReferenceNode.h"
#include "foundation/xml/ParseException.h"
#include "templates/EntityTexts.h"
#include "templates/MsxslMarkup.h"
#include "templates/TemplateElements.h"

using Core::String;
using Core::Vector;
using TemplateElements::valueOf;
using Xml::Element;

namespace {

constexpr const wchar_t* scriptName = L"script";
constexpr const wchar_t* msxsl = L"msxsl";
constexpr const wchar_t* msxslAddress = L"urn:schemas-microsoft-com:xslt";

/// What stands in an element as the text of a script. Entities have the texts that the document
/// type declares; one whose text is not at hand stays as it is referred to.
class ScriptText {
public:
    explicit ScriptText(const String& documentType) : documentType_(documentType) {}

    String in(const Element& element) const {
        String text;
        for (const Xml::Node* child : element.get_children())
            text += of(*child);
        return text;
    }

private:
    String of(const Xml::Node& child) const {
        if (child.is_text())
            return static_cast<const Xml::TextNode&>(child).get_content();
        if (child.is_element())
            return of(static_cast<const Element&>(child));
        const bool isEntity = dynamic_cast<const Xml::EntityReferenceNode*>(&child);
        return isEntity ? ofEntity(L"&" + child.get_name() + L";") : String();
    }

    static String of(const Element& element) {
        if (element.get_name() == L"assembly")
            return MsxslMarkup::of(
                MsxslAssembly{valueOf(element, L"name"), valueOf(element, L"href")});
        if (element.get_name() == L"using")
            return MsxslMarkup::of(MsxslUsing{valueOf(element, L"namespace")});
        return {};
    }

    String ofEntity(const String& reference) const {
        try {
            return in(*EntityTexts::replacedIn(L"<text>" + reference + L"</text>", documentType_)
                           ->getRootNode());
        } catch (const Xml::ParseException&) {
            return reference;
        }
    }

    const String& documentType_;
};

ManagedScript scriptIn(const Element& element, const String& documentType) {
    return {valueOf(element, L"namespace-prefix"), valueOf(element, L"language"),
            ScriptText(documentType).in(element)};
}

/// With what it uses apart from its text, where that is told by elements.
ManagedScript takenApart(ManagedScript script) {
    script.assemblies.clear();
    script.usings.clear();
    if (script.language == L"CSharp")
        script.parseAndRemoveMsxslNodes();
    return script;
}

void requireText(const ManagedScript& script) {
    TemplateElements::requireText({script.namespacePrefix, script.language, script.text});
    for (const MsxslAssembly& assembly : script.assemblies)
        TemplateElements::requireText({assembly.name, assembly.href});
    for (const MsxslUsing& used : script.usings)
        TemplateElements::requireText({used.nameSpace});
}

void append(Element& root, const ManagedScript& script) {
    Element& element = TemplateElements::append(root, scriptName);
    element.set_attribute(L"namespace-prefix", script.namespacePrefix);
    element.set_attribute(L"language", script.language);
    for (const MsxslAssembly& assembly : script.assemblies) {
        const bool hasName = !assembly.name.empty();
        element.add_child(L"assembly", msxsl)
            ->set_attribute(hasName ? L"name" : L"href", hasName ? assembly.name : assembly.href);
    }
    for (const MsxslUsing& used : script.usings)
        element.add_child(L"using", msxsl)->set_attribute(L"namespace", used.nameSpace);
    if (!script.text.empty())
        element.add_child_text(script.text);
    const bool usesMsxsl = !script.assemblies.empty() || !script.usings.empty();
    if (usesMsxsl && !root.get_namespace_defs().contains(msxsl))
        root.set_attribute(L"xmlns:msxsl", msxslAddress);
}

} // namespace

Vector<ManagedScript> Scripts::of(const Element& root, const String& documentType) {
    Vector<ManagedScript> scripts;
    for (const Element* element : TemplateElements::childrenOf(root, scriptName))
        scripts.push_back(scriptIn(*element, documentType));
    return scripts;
}

Element* Scripts::withPrefix(const Element& root, const String& prefix) {
    for (Element* element : TemplateElements::childrenOf(root, scriptName))
        if (valueOf(*element, L"namespace-prefix") == prefix)
            return element;
    return nullptr;
}

void Scripts::override(Element& root, const Vector<ManagedScript>& scripts) {
    Vector<ManagedScript> written;
    for (const ManagedScript& script : scripts)
        requireText(written.emplace_back(takenApart(script)));
    TemplateElements::removeAll(root, scriptName);
    for (const ManagedScript& script : written)
        append(root, script);
}
