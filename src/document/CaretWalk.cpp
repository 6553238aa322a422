#include "document/CaretWalk.h"

#include "document/EditableDocumentBuffer.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <array>

using XmlScan::Text;

namespace {

/// Whether a step back may have ended inside a section, where one holds what looks like the start
/// of another kind.
bool passesSectionEnd(Text text, int previous, int position) {
    const Text passed = XmlScan::slice(text, previous, position);
    const auto holds = [&](Text end) { return passed.find(end) != Text::npos; };
    return holds(XmlScan::cdataEnd) || holds(XmlScan::commentEnd) || holds(XmlScan::instructionEnd);
}

constexpr std::array<Text, 3> scripts{L"qfd:xslt-global", L"qfd:xslt", L"qfd:inline-xslt"};

bool isScript(Text name) {
    return std::find(scripts.begin(), scripts.end(), name) != scripts.end();
}

} // namespace

CaretWalk::CaretWalk(const EditableDocumentBuffer& buffer, int position)
    : buffer_(buffer), whitespace_(buffer) {
    restartAt(position);
}

void CaretWalk::restartAt(int position) {
    position_ = position;
    around_ = buffer_.elementsAround(position);
}

bool CaretWalk::stepForward() {
    const Text text = buffer_.text_.view();
    const int next = XmlScan::stepForward(text, position_);
    if (!XmlScan::isValid(text, next))
        return false;
    if (XmlScan::openingAt(text, position_))
        around_.push_back(position_);
    else if (XmlScan::closingAt(text, position_))
        leaveElement();
    position_ = next;
    return true;
}

bool CaretWalk::stepBackward() {
    const Text text = buffer_.text_.view();
    int previous = buffer_.getPreviousEditablePositionInXml(position_);
    if (previous < 0)
        return false;
    if (passesSectionEnd(text, previous, position_))
        previous = XmlScan::unitStart(text, previous);
    position_ = previous;
    if (XmlScan::closingAt(text, previous))
        around_.push_back(buffer_.getCurrentElementPosition(previous));
    else if (XmlScan::openingAt(text, previous))
        leaveElement();
    return true;
}

bool CaretWalk::stepForwardOverScript() {
    const Text text = buffer_.text_.view();
    if (isScript(XmlScan::tagName(text, position_)))
        restartAt(XmlScan::closingTag(text, position_));
    return stepForward();
}

bool CaretWalk::stepBackwardOverScript() {
    const Text text = buffer_.text_.view();
    const Text name = XmlScan::tagName(text, position_);
    if (name.starts_with(L'/') && isScript(name.substr(1)))
        restartAt(XmlScan::startTag(text, position_));
    return stepBackward();
}

bool CaretWalk::toNextStop() {
    while (stepForwardOverScript())
        if (isStop())
            return true;
    return false;
}

bool CaretWalk::toPreviousStop() {
    while (stepBackwardOverScript())
        if (isStop())
            return true;
    return false;
}

void CaretWalk::leaveElement() {
    if (!around_.empty())
        around_.pop_back();
}

bool CaretWalk::canHoldCaret() const {
    if (!XmlScan::isValid(buffer_.text_.view(), position_))
        return false;
    const bool mayStand = buffer_.isEditableElementAtPosition(element()) ||
                          buffer_.beforeFOTable(position_) || buffer_.afterFOTable(position_);
    return mayStand && !isClosedToCaret();
}

bool CaretWalk::isClosedToCaret() const {
    return std::any_of(around_.begin(), around_.end(), [this](int element) {
        const Text name = XmlScan::tagName(buffer_.text_.view(), element);
        return name == L"fo:list-item-label" || name == L"qfd:xslt-global";
    });
}

bool CaretWalk::isSkippedInElement(int position) {
    if (loaded_ != element()) {
        whitespace_.load(around_);
        loaded_ = element();
    }
    return whitespace_.isSkipped(position, element());
}
