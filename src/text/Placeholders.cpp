#include "text/EditableXmlBuffer.h"

#include "text/XmlScan.h"

using Core::String;
using XmlScan::Text;

namespace {

/// The closing tag that follows the placeholder at `position` with only white space between; -1 if
/// there is none.
int closingTagBehindPlaceholder(Text text, int position) {
    const int length = XmlScan::placeholderLength(text, position);
    if (length == 0)
        return -1;
    const int behind = XmlScan::skipSpaces(text, position + length);
    return XmlScan::closingAt(text, behind) ? behind : -1;
}

} // namespace

bool EditableXmlBuffer::elementContainsJustNonBreakingSpace(int element) const {
    const Text text = text_.view();
    if (!XmlScan::openingAt(text, element))
        return false;
    const int content = XmlScan::skipSpaces(text, XmlScan::stepForward(text, element));
    const int closing = closingTagBehindPlaceholder(text, content);
    return closing >= 0 && closing == XmlScan::closingTag(text, element);
}

bool EditableXmlBuffer::isNbspFollowedByCloseElement(int position) const {
    const int closing = closingTagBehindPlaceholder(text_.view(), position);
    return closing >= 0 && closing == getLastPositionInElementContaining(position);
}

bool EditableXmlBuffer::nbspFollowedByWspaceAndElementCloseTagAt(int position) const {
    const int closing = closingTagBehindPlaceholder(text_.view(), position);
    return closing >= 0 && closing == getLastPositionInElementContaining(closing);
}

bool EditableXmlBuffer::isLastValidWhiteSpaceBeforeElementClosed(int position) const {
    const Text text = text_.view();
    int start = getLastPositionInElementContaining(position);
    if (start < 1 || !String::isSpace(XmlScan::unitAt(text, start - 1)))
        return false;
    while (start > 0 && String::isSpace(XmlScan::unitAt(text, start - 1)))
        --start;
    return position == start;
}

int EditableXmlBuffer::getNonBreakingSpacePosition(int position) const {
    const Text text = text_.view();
    for (int at = XmlScan::stepForward(text, position); XmlScan::isValid(text, at); ++at)
        if (XmlScan::unitAt(text, at) == L'&' || XmlScan::unitAt(text, at) == L'\x00A0')
            return at;
    return -1;
}
