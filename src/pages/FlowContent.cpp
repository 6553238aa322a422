#include "pages/FlowContent.h"

namespace {

/// The first tag at or behind the position that opens such an element.
int firstNamed(const XmlText& text, int from, XmlText::View name) {
    int tag = text.nextTag(from);
    while (tag >= 0 && text.tagName(tag) != name)
        tag = text.nextTag(text.next(tag));
    return tag;
}

} // namespace

DetachedText::Range FlowContent::find(const Core::String& content) {
    XmlText text;
    text.assign(content);
    const int flow = firstNamed(text, text.prolog().root, L"fo:flow");
    const int block = firstNamed(text, flow, L"fo:block");
    const int end = text.closingTag(flow);
    return flow < 0 || block < 0 || end < block ? DetachedText::none
                                                : DetachedText::Range(block, end);
}
