#include "pages/PrintingOptions.h"

#include "foundation/Format.h"
#include "foundation/ObjectId.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "foundation/xml/TextNode.h"
#include "trees/Elements.h"

#include <algorithm>
#include <array>

using Core::String;
using Xml::Element;

namespace {

const String optionsName = L"printing-options";
const String codeName = L"ps-printer-code";

struct Option {
    const wchar_t* name;
    PropertyValueEx PrintingAttributes::*value;
};

/// In the order in which they are written.
constexpr std::array<Option, 5> options{{{L"input-tray", &PrintingAttributes::inputTray},
                                         {L"output-tray", &PrintingAttributes::outputTray},
                                         {L"media-color", &PrintingAttributes::mediaColor},
                                         {L"copy-count", &PrintingAttributes::copyCount},
                                         {L"duplex", &PrintingAttributes::duplex}}};

Element* firstOf(const Element& owner, const String& name) {
    const std::vector<Element*> found = Elements::childrenOf(owner, name);
    return found.empty() ? nullptr : found.front();
}

void removeAll(Element& owner, const String& name) {
    for (Element* child : Elements::childrenOf(owner, name))
        owner.remove_child(child);
}

Element& makeFirstChild(Element& owner) {
    const auto children = owner.get_children();
    return children.empty() ? *owner.add_child(optionsName, L"qf")
                            : *owner.add_node_as_prev_sibling(children.front(), optionsName, L"qf");
}

void writeOptions(Element& element, const PrintingAttributes& attributes) {
    for (const Option& option : options) {
        const String value = (attributes.*option.value).getStaticValue();
        if (value.empty())
            element.remove_attribute(option.name);
        else
            element.set_attribute(option.name, value);
    }
}

void writeId(Element& element, const PrintingAttributes& attributes) {
    const bool isAllStatic = std::all_of(options.begin(), options.end(), [&](const Option& option) {
        return (attributes.*option.value).isStatic();
    });
    if (isAllStatic)
        element.remove_attribute(L"id", L"fo");
    else
        element.set_attribute(L"id", attributes.mediaColor.getObjectID(), L"fo");
}

void writeCode(Element& element, const String& code) {
    removeAll(element, codeName);
    if (!code.empty())
        element.add_child(codeName, L"qf")->add_child_text(code);
}

} // namespace

String PrintingOptions::makeId(int number) {
    return String::formatS(number) + ObjectId::generate();
}

String PrintingOptions::makeShortId(int number) {
    return String(makeId(number).view().substr(0, 8));
}

PrintingAttributes PrintingOptions::read(const Element& owner, const String& id) {
    PrintingAttributes attributes(id);
    const Element* element = firstOf(owner, optionsName);
    if (!element)
        return attributes;
    if (const Xml::Attribute* own = element->get_attribute(L"id", L"fo"))
        attributes.setId(own->get_value());
    for (const Option& option : options)
        if (const Xml::Attribute* attribute = element->get_attribute(option.name))
            (attributes.*option.value).setStaticValue(attribute->get_value());
    const Element* code = firstOf(*element, codeName);
    if (const Xml::TextNode* text = code ? code->get_child_text() : nullptr)
        attributes.psPrinterCode = text->get_content();
    return attributes;
}

void PrintingOptions::check(const PrintingAttributes& attributes) {
    for (const Option& option : options)
        Xml::requireXmlText((attributes.*option.value).getStaticValue());
    Xml::requireXmlText(attributes.mediaColor.getObjectID());
    Xml::requireXmlText(attributes.psPrinterCode);
}

void PrintingOptions::write(Element& owner, const PrintingAttributes& attributes) {
    if (attributes.isEmpty()) {
        removeAll(owner, optionsName);
        return;
    }
    Element* element = firstOf(owner, optionsName);
    if (!element)
        element = &makeFirstChild(owner);
    writeOptions(*element, attributes);
    writeId(*element, attributes);
    writeCode(*element, attributes.psPrinterCode);
}

void PrintingOptions::setDuplex(Element& owner) {
    Element* element = firstOf(owner, optionsName);
    if (!element)
        element = &makeFirstChild(owner);
    if (Xml::Attribute* duplex = element->get_attribute(L"duplex"))
        duplex->set_value(L"true");
    else
        element->set_attribute(L"duplex", L"true", L"qf");
}

void PrintingOptions::removeDuplex(Element& owner) {
    const std::vector<Element*> found = Elements::childrenOf(owner, optionsName);
    if (found.empty())
        return;
    Element* element = found.back();
    element->remove_attribute(L"duplex", L"qf");
    if (element->get_attributes().empty() && Elements::childrenOf(*element).empty())
        owner.remove_child(element);
}
