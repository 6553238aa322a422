// Steps by words.

#include "document/caret/Words.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Lines.h"
#include "document/caret/Moves.h"
#include "document/caret/Stops.h"

#include <optional>

using Core::String;
using XmlScan::Text;

namespace {

/// A walk from a position to the next or the previous word. It moves nothing, it answers where the
/// caret would go. A word is a run of what separates no words, and each punctuation mark is a word
/// of its own.
class WordWalk {
public:
    WordWalk(const Document& document, int start)
        : document_(document), start_(start), position_(start) {}

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
    void passWord();

    WordStart startBehindTag(int tag) const;
    bool passBlanksBack(int last);

    const XmlText& text() const { return document_.text(); }
    bool hasPassed() const { return passed_ >= 0; }
    bool areAllStopsAround(int position) const;
    bool isInWord(int position) const;
    int startOfRun(int position) const;
    int lastUnitOfRun(int position) const;
    bool isSeparatorAt(int position) const;
    bool isBlankAt(int position) const;
    bool isPlaceholderAtEnd(int position) const;
    int landRight(int target) const;
    WordStart landLeft(int target) const;
    int stopFrom(int position) const;

    const Document& document_;
    int start_;
    int position_;
    int passed_ = -1; // the last unit or run of blanks passed
};

// To the right

int WordWalk::next() {
    while (text().isValid(position_)) {
        if (isPlaceholderAtEnd(position_))
            return endAtPlaceholder();
        if (text().onTagStart(position_)) {
            if (const auto end = endAtTag())
                return *end;
        } else if (isSeparatorAt(position_)) {
            return endAtSeparator();
        } else {
            passWord();
        }
    }
    return landRight(passed_);
}

/// Before a placeholder at its element's end or, from there, behind the element.
int WordWalk::endAtPlaceholder() const {
    if (hasPassed())
        return landRight(position_);
    const int closing = document_.text().closingTagAround(position_);
    return landRight(Stops::next(document_, closing));
}

/// Behind the end of an inline the step goes on only over blanks and further tags.
std::optional<int> WordWalk::endAtTag() {
    if (!Lines::closesInline(document_, position_))
        return landRight(position_);
    const int behind = Stops::next(document_, position_);
    if (behind < 0 || !Lines::areInOneBlock(document_, position_, behind))
        return landRight(position_);
    if (!isBlankAt(behind) && !text().onTagStart(behind))
        return landRight(behind);
    position_ = behind;
    return std::nullopt;
}

/// Behind a run of blanks. At a punctuation mark, or from there behind it.
int WordWalk::endAtSeparator() {
    if (!isBlankAt(position_))
        return landRight(hasPassed() ? position_ : Stops::next(document_, position_));
    while (isBlankAt(position_) && !(hasPassed() && isPlaceholderAtEnd(position_)))
        position_ = text().next(position_);
    return landRight(position_);
}

void WordWalk::passWord() {
    passed_ = areAllStopsAround(position_) ? lastUnitOfRun(position_) : position_;
    position_ = Stops::next(document_, passed_);
}

int WordWalk::landRight(int target) const {
    return Moves::landingRight(document_, start_, stopFrom(target));
}

// To the left

WordWalk::WordStart WordWalk::previous() {
    for (;;) {
        const int stop = Stops::previous(document_, position_);
        if (stop < 0)
            return {position_, false};
        if (text().onTagStart(stop))
            return hasPassed() ? startBehindTag(stop) : WordStart{stop, true};
        if (!isSeparatorAt(stop)) {
            passed_ = position_ = areAllStopsAround(stop) ? startOfRun(stop) : stop;
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
    const bool opensInline =
        document_.names.isInline(text().tagName(tag)) && text().next(tag) == position_;
    return landLeft(opensInline && document_.text().isInFlow(position_) ? tag : position_);
}

/// Passes the run of blanks that ends with the unit at `last`. Answers whether it begins the
/// element.
bool WordWalk::passBlanksBack(int last) {
    for (int unit = last; isBlankAt(unit); unit = document_.text().previous(unit))
        passed_ = position_ = unit;
    return position_ == document_.text().startOfContentAround(start_);
}

WordWalk::WordStart WordWalk::landLeft(int target) const {
    const int landing = Moves::landingLeft(document_, start_, stopFrom(target), false);
    return {landing < 0 ? start_ : landing, false};
}

// What stands at a position

/// The position, or where a run of blanks ended at no stop the next one.
int WordWalk::stopFrom(int position) const {
    return CaretWalk(document_, position).isStop() ? position : Stops::next(document_, position);
}

/// Whether all units of a run of text around the position are stops, for they are no white space.
bool WordWalk::areAllStopsAround(int position) const {
    const int element = text().elementAround(position);
    return document_.isEditableAt(element) && Stops::canHoldCaret(document_, position) &&
           !text().holdsOnlyPlaceholder(element);
}

bool WordWalk::isInWord(int position) const {
    return !isSeparatorAt(position) && !String::isSpace(text().unitAt(position));
}

/// Of the units around the position among which no separator is, and so no markup, and no blank.
int WordWalk::startOfRun(int position) const {
    while (position > 0 && isInWord(position - 1))
        --position;
    return position;
}

int WordWalk::lastUnitOfRun(int position) const {
    int last = position;
    for (int next = text().next(last); text().isValid(next) && isInWord(next);
         next = text().next(last))
        last = next;
    return last;
}

bool WordWalk::isSeparatorAt(int position) const {
    return Words::isSeparator(text().unitAt(position));
}

bool WordWalk::isBlankAt(int position) const {
    return text().isValid(position) &&
           (String::isSpace(text().unitAt(position)) || text().placeholderLength(position) > 0);
}

bool WordWalk::isPlaceholderAtEnd(int position) const {
    return document_.text().isPlaceholderBeforeClosingTag(position);
}

bool stepOverTag(Document& document, bool extend) {
    const XmlText& text = document.text();
    document.moveCaret(extend, document.caret());
    if (!text.isInFlow(document.caret()) || !Lines::isInlineEdge(document, document.caret())) {
        Moves::right(document, extend, false, false);
        return false;
    }
    const int behind = text.next(document.caret());
    if (!text.isValid(behind))
        return false;
    document.moveCaret(extend, behind);
    return document.caret() == behind;
}

/// Answers whether the step passed the edge of an inline only, from where it goes on.
bool stepToNextWord(Document& document, bool extend) {
    if (document.text().isBehindTable(document.caret())) {
        Moves::right(document, extend, false, false);
        return false;
    }
    if (document.text().onTagStart(document.caret()))
        return stepOverTag(document, extend);
    const int target = WordWalk(document, document.caret()).next();
    if (target >= 0)
        document.moveCaret(extend, target);
    return false;
}

/// Whether nothing but the edge of an inline lies between two stops.
bool isInlineEdgeBetween(const Document& document, int stop, int nextStop) {
    const XmlText& text = document.text();
    if (!document.names.isInline(text.nameAround(stop)) &&
        !document.names.isInline(text.nameAround(nextStop)))
        return false;
    return text.nextNamedBefore(nextStop, stop, L"fo:block") < 0 &&
           Lines::areInOneBlock(document, stop, nextStop);
}

/// The mirror of stepToNextWord().
bool stepToPreviousWord(Document& document, bool extend) {
    if (!document.text().isValid(document.caret()))
        return false;
    if (document.text().isBeforeTable(document.caret())) {
        Moves::left(document, extend, false, false);
        return false;
    }
    const int caret = document.caret();
    const WordWalk::WordStart word = WordWalk(document, caret).previous();
    const int target =
        word.isTag ? Moves::landingLeft(document, caret, word.position, false) : word.position;
    if (target < 0)
        return false;
    document.moveCaret(extend, target);
    return word.isTag && document.caret() == word.position &&
           isInlineEdgeBetween(document, document.caret(), caret);
}

} // namespace

const String EditableDocumentBuffer::wordSeparators = L" \n\t,;)(-=?!#@'\"&%$^*><.|][}{/~:\\\x00A0";

bool Words::isSeparator(wchar_t unit) {
    return EditableDocumentBuffer::wordSeparators.view().find(unit) != Text::npos;
}

void Words::stepRight(Document& document, bool extend) {
    CommandScope scope(document);
    document.endTyping();
    const int start = document.caret();
    int behindEdge = -1;
    NearStops stops(document);
    while (stepToNextWord(document, extend)) {
        behindEdge = document.caret();
        if (Moves::rightThroughTable(document, stops.next(behindEdge)))
            break;
    }
    // Nothing to go to behind the edge: the caret does not stay where there is no stop.
    if (document.caret() == behindEdge && !CaretWalk(document, document.caret()).isStop())
        document.moveCaret(extend, start);
}

void Words::stepLeft(Document& document, bool extend) {
    CommandScope scope(document);
    document.endTyping();
    while (stepToPreviousWord(document, extend) && !Moves::leftThroughTable(document)) {
    }
}

int Words::startBefore(const Document& document, int position) {
    if (!document.text().isValid(position))
        return -1;
    if (document.text().isBeforeTable(position))
        return Moves::landingLeft(document, position, Stops::previous(document, position), false);
    WordWalk::WordStart word = WordWalk(document, position).previous();
    while (word.isTag && Lines::closesInline(document, word.position)) {
        position = word.position;
        word = WordWalk(document, position).previous();
    }
    if (!word.isTag)
        return word.position;
    const int target = Moves::landingLeft(document, position, word.position, false);
    return target < 0 ? position : target;
}

bool EditableDocumentBuffer::isWordSeparator(wchar_t unit) {
    return Words::isSeparator(unit);
}

void EditableDocumentBuffer::jumpToNextWord(bool extend) {
    Words::stepRight(*document_, extend);
}

void EditableDocumentBuffer::jumpToPreviousWord(bool extend) {
    Words::stepLeft(*document_, extend);
}

int EditableDocumentBuffer::getPreviousWordPos(int position) const {
    return Words::startBefore(*document_, position);
}

String EditableDocumentBuffer::getPreviousWord() const {
    const Document& document = *document_;
    const int start = Words::startBefore(document, document.caret());
    return start < 0 ? String() : String(document.text().view(start, document.caret()));
}
