#include "pages/TextElements.h"

#include "text/Markup.h"

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
    int found = -1;
    if (!text.onTagStart(element))
        return {};
    for (int at = text.nextAttribute(element + 1); at >= 0; at = text.nextAttribute(at)) {
        const XmlText::View own = text.attributeName(at);
        if (own == name)
            return plainValue(text.attributeValue(at));
        if (found < 0 && XmlScan::localName(own) == name && !own.starts_with(L"xmlns:"))
            found = at;
    }
    return found < 0 ? String() : plainValue(text.attributeValue(found));
}
