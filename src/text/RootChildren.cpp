#include "text/RootChildren.h"

#include "text/WholeElement.h"

int RootChildren::first(const XmlText& text) {
    const int root = text.prolog().root;
    return text.openingAt(root) ? text.nextElement(root) : -1;
}

int RootChildren::next(const XmlText& text, int child) {
    const int closing = text.closingTag(child);
    if (text.next(closing) >= 0)
        return text.nextElement(closing);
    // The end of a fo:root within the child hides the child's own.
    if (text.find(XmlScan::foRootEnd, child) < 0)
        return -1;
    const int length = XmlScan::elementLength(text.view(child, text.length()));
    const int tag = length < 0 ? -1 : text.nextTag(child + length);
    return text.closingAt(tag) ? -1 : tag;
}

int RootChildren::named(const XmlText& text, XmlText::View name) {
    int child = first(text);
    while (child >= 0 && text.tagName(child) != name)
        child = next(text, child);
    return child;
}
