#include "document/caret/CaretWalk.h"

#include "document/Document.h"
#include "text/Vocabulary.h"
#include "text/XmlScan.h"

using XmlScan::contains;
using XmlScan::Text;

namespace {

/// Whether a step back may have ended inside a section, where one holds what looks like the start
/// of another kind.
bool passesSectionEnd(const XmlText& text, int previous, int position) {
    const Text passed = text.view(previous, position);
    const auto holds = [&](Text end) { return passed.find(end) != Text::npos; };
    return holds(XmlScan::cdataEnd) || holds(XmlScan::commentEnd) || holds(XmlScan::instructionEnd);
}

} // namespace

CaretWalk::CaretWalk(const Document& document, int position)
    : document_(document), whitespace_(document) {
    restartAt(position);
}

void CaretWalk::restartAt(int position) {
    position_ = position;
    outer_ = document_.text().elementAround(position);
    isOuterClosed_.reset();
    entered_.clear();
    closedEntered_ = 0;
}

bool CaretWalk::stepForward() {
    const XmlText& text = document_.text();
    const int next = text.next(position_);
    if (!text.isValid(next))
        return false;
    if (text.openingAt(position_))
        enterElement(position_);
    else if (text.closingAt(position_))
        leaveElement();
    position_ = next;
    return true;
}

bool CaretWalk::stepBackward() {
    const XmlText& text = document_.text();
    int previous = document_.text().previous(position_);
    if (previous < 0)
        return false;
    if (passesSectionEnd(text, previous, position_))
        previous = text.unitStart(previous);
    position_ = previous;
    if (text.closingAt(previous))
        enterElement(document_.text().elementAround(previous));
    else if (text.openingAt(previous))
        leaveElement();
    return true;
}

bool CaretWalk::stepForwardOverScript() {
    const XmlText& text = document_.text();
    if (contains(Vocabulary::scripts, text.tagName(position_)))
        restartAt(text.closingTag(position_));
    return stepForward();
}

bool CaretWalk::stepBackwardOverScript() {
    const XmlText& text = document_.text();
    const Text name = text.tagName(position_);
    if (name.starts_with(L'/') && contains(Vocabulary::scripts, name.substr(1)))
        restartAt(text.startTag(position_));
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

/// A closing tag without a start tag, met on the way back, leads into none.
void CaretWalk::enterElement(int element) {
    if (element < 0)
        return;
    entered_.push_back(element);
    closedEntered_ += isClosedToCaret(element) ? 1 : 0;
}

void CaretWalk::leaveElement() {
    if (entered_.empty()) {
        outer_ = document_.text().elementAround(outer_);
        if (isOuterClosed_ == true)
            isOuterClosed_.reset(); // by what was left, perhaps
        return;
    }
    closedEntered_ -= isClosedToCaret(element()) ? 1 : 0;
    entered_.pop_back();
}

bool CaretWalk::canHoldCaret() const {
    if (!document_.text().isValid(position_))
        return false;
    const bool mayStand = document_.isEditableAt(element()) ||
                          document_.text().isBeforeTable(position_) ||
                          document_.text().isBehindTable(position_);
    return mayStand && !isInClosed();
}

bool CaretWalk::isInClosed() const {
    if (!isOuterClosed_)
        isOuterClosed_ = isClosedToCaret(outer_) ||
                         document_.text().nearestNamed(outer_, Vocabulary::closedToCaret) >= 0;
    return *isOuterClosed_ || closedEntered_ > 0;
}

bool CaretWalk::isClosedToCaret(int element) const {
    return contains(Vocabulary::closedToCaret, document_.text().tagName(element));
}

bool CaretWalk::isSkippedInElement(int position) {
    const XmlText& text = document_.text();
    if (text.isValid(position) && !text.onTagStart(position) &&
        !Core::String::isSpace(text.unitAt(position)))
        return false; // whatever the properties are, which are not looked for then
    loadProperties();
    return whitespace_.isSkipped(position, element());
}

bool CaretWalk::keepsLinefeeds() {
    loadProperties();
    return whitespace_.keepsLinefeeds();
}

void CaretWalk::loadProperties() {
    if (loaded_ == element())
        return;
    whitespace_.load(outer_, entered_);
    loaded_ = element();
}
