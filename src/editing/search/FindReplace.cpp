// Finding text and replacing it.

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Selection.h"
#include "document/caret/Stops.h"
#include "editing/typing/Typing.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;
using Typing::Insertion;
using XmlScan::Text;

namespace {

/// What a search looks for.
struct SearchRequest {
    const String& text;
    bool wholeWord;
    Direction direction;
    bool replaces; // so that nothing but the text itself counts
};

constexpr int nothingFound = -1;
constexpr int comeRound = -2;

/// Where a search begins: the last selected unit or, going backward, the first; or the caret.
int searchOrigin(const Document& document, Direction direction) {
    return direction == Direction::Backward ? document.selectionStart() : Selection::last(document);
}

/// One search, stretch by stretch of the text between tags, from where the caret or the selection
/// stands until there is a match or the running search has come round.
class TextSearch {
public:
    TextSearch(const Document& document, const SearchRequest& request)
        : document_(document), running_(document.search), request_(request),
          walk_(document, searchOrigin(document, request.direction)),
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

    const XmlText& text() const { return document_.text(); }
    int length() const { return request_.text.length(); }
    bool isForward() const { return request_.direction == Direction::Forward; }

    const Document& document_;
    const Document::RunningSearch& running_;
    const SearchRequest& request_;
    CaretWalk walk_;
    bool wrapped_;
    int lastStart_ = -1; // where the stretch before began
    bool lastWrapped_ = false;
    int ahead_ = -1; // the text's next occurrence at or behind the walk, once asked for
};

int TextSearch::next() {
    const bool hasDirection = isForward() || request_.direction == Direction::Backward;
    if (!hasDirection || request_.text.empty() || !text().isValid(walk_.position()))
        return nothingFound;
    // From a selection, which may be the last match, the search goes on behind it.
    bool hasStart = !document_.hasSelection() || toNextStart();
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
    const int tag = text().nextTag(start);
    const int end = tag < 0 ? start : tag;
    walk_.passText(end);
    return {start, start, end};
}

/// From the `>` before the first stop of the text through the unit at the start. The walk goes to
/// that stop.
TextSearch::Stretch TextSearch::stretchBehind() {
    const int start = walk_.position();
    const int tag = text().previousTag(start);
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
    const Text units = text().view(stretch.begin, stretch.end);
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
    const bool isInText = text().isValid(answer) && text().isValid(answer + length());
    return isInText && (!request_.replaces || isReplaceable(answer)) ? answer : -1;
}

/// Deliberate: fitted to single characters. One at the end of a stretch is judged by the unit whose
/// index is one less than the start's offset in the document, and one within a stretch never
/// counts; recorded searches rely on the result.
int TextSearch::wholeWordAt(const Stretch& stretch, int index) const {
    const Text units = text().view(stretch.begin, stretch.end);
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
        unit = text().next(unit);
    return unit;
}

/// Whether the caret may be put there.
bool TextSearch::isReachable(int position) const {
    return !document_.isOutOfReach(position);
}

/// Whether the text itself stands at the answer, in no markup and with no tag before its end.
bool TextSearch::isReplaceable(int position) const {
    const int tag = text().nextTag(position);
    return document_.text().standsAt(request_.text, position) && position + length() <= tag &&
           text().unitStart(position) == position;
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
        const int found = text().find(request_.text.view(), position);
        ahead_ = found < 0 ? document_.text().length() : found;
    }
    return ahead_ < document_.text().length();
}

/// To the document's other end. Not a second time: then the start of the running search has been
/// passed, which need not be a stop.
bool TextSearch::wrap() {
    if (wrapped_)
        return false;
    wrapped_ = true;
    ahead_ = -1;
    walk_.restartAt(isForward() ? 0 : document_.text().lastTag());
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

/// Replaces what is selected, if it is the text searched for, and leaves the replacement selected.
bool replaceSelectedMatch(Document& document, const String& find, const String& replacement) {
    const XmlText& text = document.text();
    const int start = document.selectionStart();
    const int oldLength = text.length();
    if (!document.hasSelection() || start < 0 ||
        text.view(start, document.selectionEnd()) != find.view() ||
        Typing::insert(document, replacement, false, true) != Insertion::Done)
        return false;
    if (document.search.start <
        0) // in front of the replacement, which is not searched at the round's end
        document.search.start = start;
    else if (start < document.search.start)
        document.search.start = std::max(start, document.search.start + text.length() - oldLength);
    return true;
}

int selectNextMatch(Document& document, const SearchRequest& request) {
    if (document.search.start < 0) {
        document.search.start = searchOrigin(document, request.direction);
        document.search.beganBehindStart = document.hasSelection();
    }
    TextSearch search(document, request);
    const int match = search.next();
    if (match < 0)
        return match;
    document.search.hasMatched = true;
    document.search.hasWrapped = search.hasWrapped();
    document.search.text = request.text;
    document.search.direction = request.direction;
    // Going backward the answer may lie inside markup, where the caret cannot stand.
    const bool isOnMatch = request.direction == Direction::Forward;
    const int end = match + request.text.length();
    document.select(isOnMatch ? match : Stops::outsideMarkup(document, match),
                    isOnMatch ? end : Stops::outsideMarkup(document, end));
    return match;
}

} // namespace

int EditableDocumentBuffer::findReplace(const String& find, const String& replacement, bool,
                                        bool wholeWord, Direction direction, bool replace) {
    Document& document = *document_;
    CommandScope scope(document);
    document.endTyping();
    const SearchRequest request{find, wholeWord, direction, replace && !document.refusesChanges};
    if (!request.replaces)
        return selectNextMatch(document, request);
    RecordedCommand command(document);
    document.recordCaret();
    const bool hadSelection = document.hasSelection();
    bool replaced = hadSelection && replaceSelectedMatch(document, find, replacement);
    if (replaced)
        document.select(document.selectionEnd(), document.selectionStart());
    const int match = selectNextMatch(document, request);
    if (match >= 0 && !hadSelection) {
        replaced = replaceSelectedMatch(document, find, replacement);
        if (replaced)
            document.setCaret(document.caret());
    }
    document.endTyping();
    document.recordCaret();
    if (!replaced) {
        const int pivot = document.pivot();
        const int caret = document.caret();
        const Document::RunningSearch search = document.search;
        command.takeBack();
        document.search = search; // which goes on, although nothing was replaced
        if (match >= 0)
            document.select(pivot, caret);
    }
    return match;
}

int EditableDocumentBuffer::findNextString(const String& find, int, bool, bool wholeWord,
                                           Direction direction) const {
    const Document& document = *document_;
    return TextSearch(document, {find, wholeWord, direction, false}).next();
}
