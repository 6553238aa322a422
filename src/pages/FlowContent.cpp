#include "pages/FlowContent.h"

#include "pages/TextElements.h"

namespace {

/// The first tag from the position on and before the end that opens such an element.
int firstNamed(const XmlText& text, int from, int end, XmlText::View name) {
    int tag = text.nextTag(from);
    while (tag >= 0 && tag < end && text.tagName(tag) != name)
        tag = text.nextTag(text.next(tag));
    return tag < end ? tag : -1;
}

/// The first child of the flow that is or holds a block; -1 without one.
int firstWithBlock(const XmlText& text, int flow) {
    for (const int child : TextElements::childrenOf(text, flow))
        if (firstNamed(text, child, text.closingTag(child) + 1, L"fo:block") >= 0)
            return child;
    return -1;
}

} // namespace

DetachedText::Range FlowContent::find(const Core::String& content) {
    XmlText text;
    text.assign(content);
    const auto flowFrom = [&](int position) {
        return firstNamed(text, position, text.length(), L"fo:flow");
    };
    for (int flow = flowFrom(text.prolog().root); flow >= 0;
         flow = flowFrom(text.behindElement(flow)))
        if (const int child = firstWithBlock(text, flow); child >= 0)
            return {child, text.closingTag(flow)};
    return DetachedText::none;
}
