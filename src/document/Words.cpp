// Steps by words.

#include "document/EditableDocumentBuffer.h"

#include "document/CaretWalk.h"
#include "document/CommandScope.h"
#include "text/XmlScan.h"

#include <optional>

using Core::String;
using XmlScan::Text;

const String EditableDocumentBuffer::wordSeparators = L" \n\t,;)(-=?!#@'\"&%$^*><.|][}{/~:\\\x00A0";

bool EditableDocumentBuffer::isWordSeparator(wchar_t unit) {
    return wordSeparators.view().find(unit) != Text::npos;
}

/// A walk from a position to the next or the previous word. It moves nothing, it answers where the
/// caret would go. A word is a run of what separates no words, and each punctuation mark is a word
/// of its own.
class WordWalk {
public:
    WordWalk(const EditableDocumentBuffer& buffer, int start)
        : buffer_(buffer), start_(start), position_(start) {}

    /// Where the next word begins; -1 if it cannot be reached. The start is on no tag.
    int next();

    struct WordStart {
        int position;
        bool isTag; ///< no word, but a tag directly before the start
    };

    /// Where the word around or before the start begins; the start itself if there is none.
    WordStart previous();

private:
    int endAtPlaceholder() const;
    std::optional<int> endAtTag();
    int endAtSeparator();
    void passWordUnit();

    WordStart startBehindTag(int tag) const;
    bool passBlanksBack(int last);

    Text text() const { return buffer_.text_.view(); }
    bool hasPassed() const { return passed_ >= 0; }
    bool isSeparatorAt(int position) const;
    bool isBlankAt(int position) const;
    bool isPlaceholderAtEnd(int position) const;
    int landRight(int target) const;
    WordStart landLeft(int target) const;
    int stopFrom(int position) const;

    const EditableDocumentBuffer& buffer_;
    int start_;
    int position_;
    int passed_ = -1; // the last unit or run of blanks passed
};

// To the right

int WordWalk::next() {
    while (XmlScan::isValid(text(), position_)) {
        if (isPlaceholderAtEnd(position_))
            return endAtPlaceholder();
        if (XmlScan::onTagStart(text(), position_)) {
            if (const auto end = endAtTag())
                return *end;
        } else if (isSeparatorAt(position_)) {
            return endAtSeparator();
        } else {
            passWordUnit();
        }
    }
    return landRight(passed_);
}

/// Before a placeholder at its element's end or, from there, behind the element.
int WordWalk::endAtPlaceholder() const {
    if (hasPassed())
        return landRight(position_);
    const int closing = buffer_.getLastPositionInElementContaining(position_);
    return landRight(buffer_.getNextValidCaretPos(closing));
}

/// Behind the end of an inline the step goes on only over blanks and further tags.
std::optional<int> WordWalk::endAtTag() {
    if (!buffer_.closesInlineAt(position_))
        return landRight(position_);
    const int behind = buffer_.getNextValidCaretPos(position_);
    if (behind < 0 || !buffer_.isInBlockOf(position_, behind))
        return landRight(position_);
    if (!isBlankAt(behind) && !XmlScan::onTagStart(text(), behind))
        return landRight(behind);
    position_ = behind;
    return std::nullopt;
}

/// Behind a run of blanks. At a punctuation mark, or from there behind it.
int WordWalk::endAtSeparator() {
    if (!isBlankAt(position_))
        return landRight(hasPassed() ? position_ : buffer_.getNextValidCaretPos(position_));
    while (isBlankAt(position_) && !(hasPassed() && isPlaceholderAtEnd(position_)))
        position_ = XmlScan::stepForward(text(), position_);
    return landRight(position_);
}

void WordWalk::passWordUnit() {
    passed_ = position_;
    position_ = buffer_.getNextValidCaretPos(position_);
}

int WordWalk::landRight(int target) const {
    return buffer_.landingRight(start_, stopFrom(target));
}

// To the left

WordWalk::WordStart WordWalk::previous() {
    for (;;) {
        const int stop = buffer_.getPreviousValidCaretPos(position_);
        if (stop < 0)
            return {position_, false};
        if (XmlScan::onTagStart(text(), stop))
            return hasPassed() ? startBehindTag(stop) : WordStart{stop, true};
        if (!isSeparatorAt(stop)) {
            passed_ = position_ = stop;
            continue;
        }
        if (hasPassed())
            return landLeft(position_);
        if (!isBlankAt(stop))
            return landLeft(stop);
        if (passBlanksBack(stop))
            return landLeft(position_);
    }
}

/// At the start of an inline that is before the inline, but only in a flow.
WordWalk::WordStart WordWalk::startBehindTag(int tag) const {
    const bool opensInline = buffer_.isInlineName(XmlScan::tagName(text(), tag)) &&
                             XmlScan::stepForward(text(), tag) == position_;
    return landLeft(opensInline && buffer_.isInFoFlow(position_) ? tag : position_);
}

/// Passes the run of blanks that ends with the unit at `last`. Answers whether it begins the
/// element.
bool WordWalk::passBlanksBack(int last) {
    for (int unit = last; isBlankAt(unit); unit = buffer_.getPreviousEditablePositionInXml(unit))
        passed_ = position_ = unit;
    return position_ == buffer_.getFirstPositionInElementContaining(start_);
}

WordWalk::WordStart WordWalk::landLeft(int target) const {
    const int landing = buffer_.landingLeft(start_, stopFrom(target), false);
    return {landing < 0 ? start_ : landing, false};
}

// What stands at a position

/// The position, or where a run of blanks ended at no stop the next one.
int WordWalk::stopFrom(int position) const {
    return CaretWalk(buffer_, position).isStop() ? position
                                                 : buffer_.getNextValidCaretPos(position);
}

bool WordWalk::isSeparatorAt(int position) const {
    return EditableDocumentBuffer::isWordSeparator(XmlScan::unitAt(text(), position));
}

bool WordWalk::isBlankAt(int position) const {
    return XmlScan::isValid(text(), position) &&
           (String::isSpace(XmlScan::unitAt(text(), position)) ||
            XmlScan::placeholderLength(text(), position) > 0);
}

bool WordWalk::isPlaceholderAtEnd(int position) const {
    return buffer_.nbspFollowedByWspaceAndElementCloseTagAt(position);
}

// The steps

void EditableDocumentBuffer::jumpToNextWord(bool extend) {
    CommandScope scope(this);
    endKeyTypingSequence();
    const int start = caretPos_;
    int behindEdge = -1;
    while (stepToNextWord(extend)) {
        behindEdge = caretPos_;
        if (moveRightThroughTable())
            break;
    }
    // Nothing to go to behind the edge: the caret does not stay where there is no stop.
    if (caretPos_ == behindEdge && !CaretWalk(*this, caretPos_).isStop())
        setCaret(extend, start);
}

/// Answers whether the step passed the edge of an inline only, from where it goes on.
bool EditableDocumentBuffer::stepToNextWord(bool extend) {
    if (afterFOTable(caretPos_)) {
        moveCaretRight(extend, false, false);
        return false;
    }
    if (onTagStartPosition(caretPos_))
        return stepOverTag(extend);
    const int target = WordWalk(*this, caretPos_).next();
    if (target >= 0)
        setCaret(extend, target);
    return false;
}

bool EditableDocumentBuffer::stepOverTag(bool extend) {
    setCaret(extend, caretPos_);
    if (!isInFoFlow(caretPos_) || !isInlineEdgeAt(caretPos_)) {
        moveCaretRight(extend, false, false);
        return false;
    }
    const int behind = getNextEditablePositionInXml(caretPos_);
    if (isOnInvalidPosition(behind))
        return false;
    setCaret(extend, behind);
    return caretPos_ == behind;
}

void EditableDocumentBuffer::jumpToPreviousWord(bool extend) {
    CommandScope scope(this);
    endKeyTypingSequence();
    while (stepToPreviousWord(extend) && !moveLeftThroughTable()) {
    }
}

/// The mirror of stepToNextWord().
bool EditableDocumentBuffer::stepToPreviousWord(bool extend) {
    if (isOnInvalidPosition(caretPos_))
        return false;
    if (beforeFOTable(caretPos_)) {
        moveCaretLeft(extend, false, false);
        return false;
    }
    const int caret = caretPos_;
    const WordWalk::WordStart word = WordWalk(*this, caret).previous();
    const int target = word.isTag ? landingLeft(caret, word.position, false) : word.position;
    if (target < 0)
        return false;
    setCaret(extend, target);
    return word.isTag && caretPos_ == word.position && isInlineEdgeBetween(caretPos_, caret);
}

int EditableDocumentBuffer::getPreviousWordPos(int position) const {
    if (isOnInvalidPosition(position))
        return -1;
    if (beforeFOTable(position))
        return landingLeft(position, getPreviousValidCaretPos(position), false);
    WordWalk::WordStart word = WordWalk(*this, position).previous();
    while (word.isTag && closesInlineAt(word.position)) {
        position = word.position;
        word = WordWalk(*this, position).previous();
    }
    if (!word.isTag)
        return word.position;
    const int target = landingLeft(position, word.position, false);
    return target < 0 ? position : target;
}

String EditableDocumentBuffer::getPreviousWord() const {
    const int start = getPreviousWordPos(caretPos_);
    return start < 0 ? String() : String(XmlScan::slice(text_.view(), start, caretPos_));
}

/// Whether nothing but the edge of an inline lies between two stops.
bool EditableDocumentBuffer::isInlineEdgeBetween(int stop, int nextStop) const {
    const int block = getNextElementByName(L"fo:block", stop);
    return (isInlineEditableElementName(getCurrentElementName(stop)) ||
            isInlineEditableElementName(getCurrentElementName(nextStop))) &&
           isInBlockOf(stop, nextStop) && (block < 0 || block >= nextStop);
}

bool EditableDocumentBuffer::isInlineEdgeAt(int position) const {
    return isInlineName(XmlScan::tagName(text_.view(), position)) || closesInlineAt(position);
}

bool EditableDocumentBuffer::closesInlineAt(int position) const {
    const Text name = XmlScan::tagName(text_.view(), position);
    return name.starts_with(L'/') && isInlineName(name.substr(1));
}
