// Finding text and replacing it.

#include "document/CaretWalk.h"
#include "document/CommandScope.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;
using XmlScan::Text;

namespace {

constexpr int nothingFound = -1;
constexpr int comeRound = -2;

} // namespace

/// One search, stretch by stretch of the text between tags, from where the caret or the selection
/// stands until there is a match or the running search has come round.
class TextSearch {
public:
    TextSearch(const EditableDocumentBuffer& buffer,
               const EditableDocumentBuffer::SearchRequest& request)
        : buffer_(buffer), running_(buffer.search_), request_(request),
          walk_(buffer, buffer.searchOrigin(request.direction)),
          wrapped_(running_.hasWrapped && running_.text == request.text &&
                   running_.direction == request.direction) {}

    /// The match's offset, or why there is none.
    int next();
    /// Whether it went past the end of the document, in this call or an earlier one.
    bool hasWrapped() const { return wrapped_; }

private:
    /// Text without tags, its end excluded.
    struct Stretch {
        int start; // what a match's index is added to
        int begin;
        int end;
    };

    bool movesOn();
    int matchFromStart();
    Stretch stretchAhead();
    Stretch stretchBehind();
    int matchIn(const Stretch& stretch) const;
    int answerFor(const Stretch& stretch, int index) const;
    int wholeWordAt(const Stretch& stretch, int index) const;
    int unitAtOrBehind(int unit, int position) const;
    bool isReachable(int position) const;
    bool isReplaceable(int position) const;
    bool toNextStart();
    bool standsAhead();
    bool wrap();

    bool hasComeRound(int position) const;
    bool wasFoundBefore(int match) const;
    int answerAtTheEnd() const { return running_.hasMatched ? comeRound : nothingFound; }

    Text text() const { return buffer_.text_.view(); }
    int length() const { return request_.text.length(); }
    bool isForward() const { return request_.direction == Direction::Forward; }

    const EditableDocumentBuffer& buffer_;
    const EditableDocumentBuffer::RunningSearch& running_;
    const EditableDocumentBuffer::SearchRequest& request_;
    CaretWalk walk_;
    bool wrapped_;
    int lastStart_ = -1; // where the stretch before began
    bool lastWrapped_ = false;
    int ahead_ = -1; // the text's next occurrence at or behind the walk, once asked for
};

int TextSearch::next() {
    const bool hasDirection = isForward() || request_.direction == Direction::Backward;
    if (!hasDirection || request_.text.empty() || !XmlScan::isValid(text(), walk_.position()))
        return nothingFound;
    // From a selection, which may be the last match, the search goes on behind it.
    bool hasStart = !buffer_.hasSelectedText() || toNextStart();
    for (; hasStart && !hasComeRound(walk_.position()); hasStart = toNextStart()) {
        if (!movesOn())
            return answerAtTheEnd();
        const int match = matchFromStart();
        if (match >= 0)
            return wasFoundBefore(match) ? answerAtTheEnd() : match;
    }
    return answerAtTheEnd();
}

/// Whether a start lies beyond the one before, unless the walk has come to the document's other end
/// in between. Where a tag is not complete a step back need not lead back.
bool TextSearch::movesOn() {
    const int start = walk_.position();
    const bool moves = lastStart_ < 0 || lastWrapped_ != wrapped_ ||
                       (isForward() ? start > lastStart_ : start < lastStart_);
    lastStart_ = start;
    lastWrapped_ = wrapped_;
    return moves;
}

/// The match in the stretch at the walk's position, which goes to the stretch's other end.
int TextSearch::matchFromStart() {
    const bool reachable = isReachable(walk_.position());
    const Stretch stretch = isForward() ? stretchAhead() : stretchBehind();
    return reachable ? matchIn(stretch) : -1;
}

/// From the start to the next tag, where the walk goes.
TextSearch::Stretch TextSearch::stretchAhead() {
    const int start = walk_.position();
    const int tag = XmlScan::nextTag(text(), start);
    const int end = tag < 0 ? start : tag;
    walk_.passText(end);
    return {start, start, end};
}

/// From the `>` before the first stop of the text through the unit at the start. The walk goes to
/// that stop.
TextSearch::Stretch TextSearch::stretchBehind() {
    const int start = walk_.position();
    const int tag = XmlScan::previousTag(text(), start);
    while (walk_.position() > tag && walk_.stepBackward()) {
    }
    if (!walk_.toNextStop())
        walk_.restartAt(start);
    return {start, walk_.position() - 1, start + 1};
}

/// The answer for the first match in the stretch that cuts no entity or other markup; -1 without
/// one that counts.
int TextSearch::matchIn(const Stretch& stretch) const {
    if (stretch.begin < 0 || stretch.end - stretch.begin < length())
        return -1;
    const Text units = XmlScan::slice(text(), stretch.begin, stretch.end);
    int unit = stretch.begin;
    // Deliberate: the first match counts also going backward.
    for (int index = XmlScan::find(units, request_.text.view(), 0); index >= 0 && unit >= 0;
         index = XmlScan::find(units, request_.text.view(), index + 1)) {
        const int match = stretch.begin + index;
        unit = unitAtOrBehind(unit, match);
        if (unit == match && unitAtOrBehind(unit, match + length()) == match + length())
            return answerFor(stretch, index);
    }
    return -1;
}

int TextSearch::answerFor(const Stretch& stretch, int index) const {
    // Deliberate: going backward too the index, which counts from the stretch's beginning, is added
    // to the search's start.
    const int answer = request_.wholeWord ? wholeWordAt(stretch, index) : stretch.start + index;
    const bool isInText =
        XmlScan::isValid(text(), answer) && XmlScan::isValid(text(), answer + length());
    return isInText && (!request_.replaces || isReplaceable(answer)) ? answer : -1;
}

/// Deliberate: fitted to single characters. One at the end of a stretch is judged by the unit whose
/// index is one less than the start's offset in the document, and one within a stretch never
/// counts; recorded searches rely on the result.
int TextSearch::wholeWordAt(const Stretch& stretch, int index) const {
    const Text units = XmlScan::slice(text(), stretch.begin, stretch.end);
    const auto isSpaceAt = [&](int at) {
        return XmlScan::isValid(units, at) && String::isSpace(XmlScan::unitAt(units, at));
    };
    if (index == static_cast<int>(units.size()) - 1) {
        if (index == 0)
            return stretch.start;
        return isSpaceAt(stretch.start - 1) ? stretch.start + index : -1;
    }
    return index == 0 && isSpaceAt(1) ? stretch.start : -1;
}

/// Goes on from one unit to the first that does not begin before the position: that is the position
/// itself, unless an entity, a comment or a section is cut there. -1 at the end of the text.
int TextSearch::unitAtOrBehind(int unit, int position) const {
    while (unit >= 0 && unit < position)
        unit = XmlScan::stepForward(text(), unit);
    return unit;
}

/// Whether the caret may be put there.
bool TextSearch::isReachable(int position) const {
    return !buffer_.isOutOfReach(position);
}

/// Whether the text itself stands at the answer, in no markup and with no tag before its end.
bool TextSearch::isReplaceable(int position) const {
    const int tag = XmlScan::nextTag(text(), position);
    return buffer_.nextContentEquals(request_.text, position) && position + length() <= tag &&
           XmlScan::unitStart(text(), position) == position;
}

bool TextSearch::toNextStart() {
    if (!isForward())
        return walk_.toPreviousStop() || wrap();
    return (standsAhead() && walk_.toNextStop()) || wrap();
}

/// Whether the text searched for stands anywhere ahead, in markup or not, so that the walk there is
/// worth while.
bool TextSearch::standsAhead() {
    const int position = walk_.position();
    if (ahead_ < position) {
        const int found = XmlScan::find(text(), request_.text.view(), position);
        ahead_ = found < 0 ? buffer_.text_.length() : found;
    }
    return ahead_ < buffer_.text_.length();
}

/// To the document's other end. Not a second time: then the start of the running search has been
/// passed, which need not be a stop.
bool TextSearch::wrap() {
    if (wrapped_)
        return false;
    wrapped_ = true;
    ahead_ = -1;
    walk_.restartAt(isForward() ? 0 : buffer_.lastTagPosition());
    return isForward() ? walk_.toNextStop() : walk_.toPreviousStop();
}

bool TextSearch::hasComeRound(int position) const {
    if (!wrapped_ || running_.start < 0)
        return false;
    return isForward() ? position >= running_.start : position <= running_.start;
}

/// Whether the search met the match before it went past the end of the document. The stretch that
/// holds its start begins before it.
bool TextSearch::wasFoundBefore(int match) const {
    return isForward() && hasComeRound(running_.beganBehindStart ? match - 1 : match);
}

// The commands

int EditableDocumentBuffer::findReplace(const String& find, const String& replacement, bool,
                                        bool wholeWord, Direction direction, bool replace) {
    CommandScope scope(this);
    endKeyTypingSequence();
    const SearchRequest request{find, wholeWord, direction, replace};
    if (!replace)
        return selectNextMatch(request);
    RecordedCommand command(this);
    recordCaret();
    const bool hadSelection = hasSelectedText();
    bool replaced = hadSelection && replaceSelectedMatch(find, replacement);
    if (replaced)
        selectRange(selectionUpperEnd(), getSelectionStartIndex());
    const int match = selectNextMatch(request);
    if (match >= 0 && !hadSelection) {
        replaced = replaceSelectedMatch(find, replacement);
        if (replaced)
            setCaret(false, caretPos_);
    }
    endKeyTypingSequence();
    recordCaret();
    if (!replaced) {
        const int pivot = selectionPivotPos_;
        const int caret = caretPos_;
        const RunningSearch search = search_;
        command.takeBack();
        search_ = search; // which goes on, although nothing was replaced
        if (match >= 0)
            selectRange(pivot, caret);
    }
    return match;
}

/// Replaces what is selected, if it is the text searched for, and leaves the replacement selected.
bool EditableDocumentBuffer::replaceSelectedMatch(const String& find, const String& replacement) {
    const int start = getSelectionStartIndex();
    const int oldLength = text_.length();
    if (!hasSelectedText() || start < 0 ||
        XmlScan::slice(text_.view(), start, selectionUpperEnd()) != find.view() ||
        tryInsertText(replacement, false, true) != Insertion::Done)
        return false;
    if (search_.start < 0) // in front of the replacement, which is not searched at the round's end
        search_.start = start;
    else if (start < search_.start)
        search_.start = std::max(start, search_.start + text_.length() - oldLength);
    return true;
}

int EditableDocumentBuffer::selectNextMatch(const SearchRequest& request) {
    if (search_.start < 0) {
        search_.start = searchOrigin(request.direction);
        search_.beganBehindStart = hasSelectedText();
    }
    TextSearch search(*this, request);
    const int match = search.next();
    if (match < 0)
        return match;
    search_.hasMatched = true;
    search_.hasWrapped = search.hasWrapped();
    search_.text = request.text;
    search_.direction = request.direction;
    // Going backward the answer may lie inside markup, where the caret cannot stand.
    const bool isOnMatch = request.direction == Direction::Forward;
    const int end = match + request.text.length();
    selectRange(isOnMatch ? match : outsideMarkup(match), isOnMatch ? end : outsideMarkup(end));
    return match;
}

/// Where a search begins: the last selected unit or, going backward, the first; or the caret.
int EditableDocumentBuffer::searchOrigin(Direction direction) const {
    return direction == Direction::Backward ? getSelectionStartIndex() : getSelectionEndIndex();
}

int EditableDocumentBuffer::findNextString(const String& find, int, bool, bool wholeWord,
                                           Direction direction) const {
    return TextSearch(*this, {find, wholeWord, direction, false}).next();
}
