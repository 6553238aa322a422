#include "text/RootChildren.h"

int RootChildren::first(const XmlText& text) {
    const int root = text.prolog().root;
    return text.openingAt(root) ? text.nextElement(root) : -1;
}

int RootChildren::next(const XmlText& text, int child) {
    return text.nextElement(text.closingTag(child));
}

int RootChildren::named(const XmlText& text, XmlText::View name) {
    int child = first(text);
    while (child >= 0 && text.tagName(child) != name)
        child = next(text, child);
    return child;
}
