#include "pages/TextElements.h"

#include "foundation/xml/ParseException.h"
#include "text/Markup.h"
#include "trees/DOMBasedBuffer.h"
#include "trees/Fragment.h"

#include <optional>

using Core::String;

namespace {

/// A parser reads line ends and tabs in a value as blanks.
String plainValue(XmlText::View value) {
    String blanks(value);
    blanks.replaceAll(L"\r\n", L" ");
    for (const wchar_t* space : {L"\r", L"\n", L"\t"})
        blanks.replaceAll(space, L" ");
    return Markup::unescaped(blanks.view());
}

int attributeNamed(const XmlText& text, int element, XmlText::View name) {
    int found = -1;
    if (!text.onTagStart(element))
        return found;
    for (int at = text.nextAttribute(element + 1); at >= 0; at = text.nextAttribute(at)) {
        const XmlText::View own = text.attributeName(at);
        if (own == name)
            return at;
        if (found < 0 && XmlScan::localName(own) == name && !own.starts_with(L"xmlns:"))
            found = at;
    }
    return found;
}

/// As a parser reads it that knows the entities of the document type; none without such a type, or
/// where the tag cannot be read.
std::optional<String> parsedValue(const XmlText& text, int element, XmlText::View name) {
    const String type(text.prolog().documentType);
    const int end = text.tagEnd(element) - (text.selfClosingAt(element) ? 1 : 0);
    if (type.empty() || end <= element)
        return std::nullopt;
    Fragment alone(nullptr);
    try {
        alone.readText(type + text.slice(element, end) + L"/>");
    } catch (const Xml::ParseException&) {
        return std::nullopt;
    }
    return DOMBasedBuffer::getAttributeValue(alone.root(), String(name), String());
}

} // namespace

std::vector<int> TextElements::childrenOf(const XmlText& text, int element, XmlText::View name) {
    std::vector<int> found;
    const int end = text.closingTag(element);
    for (int child = text.firstChild(element); child >= 0 && child < end;
         child = text.nextTag(text.behindElement(child)))
        if (name.empty() || XmlScan::localName(text.tagName(child)) == name)
            found.push_back(child);
    return found;
}

int TextElements::childOf(const XmlText& text, int element, XmlText::View name) {
    const std::vector<int> found = childrenOf(text, element, name);
    return found.empty() ? -1 : found.front();
}

String TextElements::attributeOf(const XmlText& text, int element, XmlText::View name) {
    const int attribute = attributeNamed(text, element, name);
    if (attribute < 0)
        return {};
    const String value = plainValue(text.attributeValue(attribute));
    return value.find(L'&', 0) < 0 ? value : parsedValue(text, element, name).value_or(value);
}
