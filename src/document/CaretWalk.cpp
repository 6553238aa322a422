#include "document/CaretWalk.h"

#include "document/EditableDocumentBuffer.h"
#include "text/XmlScan.h"

CaretWalk::CaretWalk(const EditableDocumentBuffer& buffer, int position)
    : buffer_(buffer), whitespace_(buffer) {
    restartAt(position);
}

void CaretWalk::restartAt(int position) {
    position_ = position;
    around_ = {{buffer_.getCurrentElementPosition(position), std::nullopt}};
}

bool CaretWalk::stepForward() {
    const XmlScan::Text text = buffer_.text_.view();
    const int next = XmlScan::stepForward(text, position_);
    if (!XmlScan::isValid(text, next))
        return false;
    if (XmlScan::openingAt(text, position_)) {
        around_.push_back({position_, std::nullopt});
        position_ = next;
    } else if (!XmlScan::closingAt(text, position_)) {
        position_ = next;
    } else if (around_.size() > 1) {
        around_.pop_back();
        position_ = next;
    } else {
        restartAt(next);
    }
    return true;
}

bool CaretWalk::stepBackward() {
    const XmlScan::Text text = buffer_.text_.view();
    const int previous = buffer_.getPreviousEditablePositionInXml(position_);
    if (previous < 0)
        return false;
    position_ = previous;
    if (XmlScan::closingAt(text, previous))
        around_.push_back({XmlScan::currentElement(text, previous), std::nullopt});
    else if (XmlScan::openingAt(text, previous)) {
        if (around_.size() > 1)
            around_.pop_back();
        else
            restartAt(previous);
    }
    return true;
}

bool CaretWalk::canHoldCaret() {
    if (!XmlScan::isValid(buffer_.text_.view(), position_))
        return false;
    const bool mayStand = buffer_.isEditableElementAtPosition(element()) ||
                          buffer_.beforeFOTable(position_) || buffer_.afterFOTable(position_);
    return mayStand && !isClosedToCaret();
}

bool CaretWalk::isClosedToCaret() {
    static const Core::StringArray closed{L"fo:list-item-label", L"qfd:xslt-global"};
    std::optional<bool>& known = around_.back().isClosedToCaret;
    if (!known)
        known = buffer_.searchFirstParent(closed, position_, false, true, L"") >= 0;
    return *known;
}

bool CaretWalk::isSkippedInElement(int position) {
    if (loaded_ != element()) {
        whitespace_.load(element());
        loaded_ = element();
    }
    return whitespace_.isSkipped(position, element());
}
