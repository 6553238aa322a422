#include "text/XmlScan.h"

#include "foundation/String.h"
#include "foundation/UnitSearch.h"
#include "text/TagQuotes.h"
#include "text/UnitMemo.h"
#include "text/torn/PrecedingTags.h"

#include <algorithm>
#include <array>
#include <optional>

namespace XmlScan {

namespace {

/// `position` where it is valid, else -1.
int validOrNone(Text text, int position) noexcept {
    return isValid(text, position) ? position : -1;
}

/// The offset after `delimiter` where that stands at `found`; -1 when it was not found.
int behind(int found, Text delimiter) noexcept {
    return found < 0 ? -1 : found + length(delimiter);
}

int stepOverEntity(Text text, int position) noexcept {
    const int semicolon = find(text, L';', position);
    // Deliberate: an entity that ends the text is not passed; no walk relies on text after the
    // root.
    return semicolon < 0 ? -1 : validOrNone(text, semicolon + 1);
}

int stepOverComment(Text text, int position, Source source) noexcept {
    // Deliberate: in a fragment the search begins on the delimiter itself and may end behind the
    // text; detached page text relies on both.
    if (source == Source::Fragment)
        return behind(find(text, commentEnd, position), commentEnd);
    return validOrNone(text,
                       behind(find(text, commentEnd, position + length(commentStart)), commentEnd));
}

int stepOverCData(Text text, int position, Source source) noexcept {
    const int end = find(text, cdataEnd, position + length(cdataStart));
    // Deliberate: in a fragment an unterminated section answers 2, which detached page text relies
    // on.
    if (source == Source::Fragment)
        return validOrNone(text, end + length(cdataEnd));
    return validOrNone(text, behind(end, cdataEnd));
}

/// Its content is not read, so that a quote or a `>` in it does not count.
int stepOverInstruction(Text text, int position) noexcept {
    return validOrNone(text, behind(find(text, instructionEnd, position + length(instructionStart)),
                                    instructionEnd));
}

/// Finds the ends of the tags before a position, the last tag first, as tagEnd() does, but reads no
/// part of the text more than once for each kind of quotes.
class TagEnds {
public:
    TagEnds(Text text, int position) noexcept : text_(text), last_(position), read_(position) {}

    /// The end of the tag at `tag`, which is before the position and before those asked before.
    int endOf(int tag) noexcept {
        std::array<Scan, QuotesCount> scans;
        for (const Quotes quotes : {NoQuotes, DoubleQuotes, SingleQuotes}) {
            Scan scan{-1, quotes};
            scan.end = tagEndBetween(text_, tag, read_, scan.quotes);
            scans[quotes] = scan.end < 0 ? scans_[scan.quotes] : scan;
        }
        read_ = tag;
        scans_ = scans;
        return scans_[NoQuotes].end < 0 ? endBehind(scans_[NoQuotes].quotes) : scans_[NoQuotes].end;
    }

private:
    /// Where a scan from `read_` ends, or in which quotes it comes to `last_`.
    struct Scan {
        int end;
        Quotes quotes;
    };

    int endBehind(Quotes quotes) noexcept {
        if (!behind_[quotes]) {
            Quotes open = quotes;
            behind_[quotes] = tagEndBetween(text_, last_, length(text_), open);
        }
        return *behind_[quotes];
    }

    Text text_;
    int last_;
    int read_;
    std::array<Scan, QuotesCount> scans_{
        Scan{-1, NoQuotes}, {-1, DoubleQuotes}, {-1, SingleQuotes}};
    std::array<std::optional<int>, QuotesCount> behind_;
};

/// Deliberate: in a fragment only a CDATA section directly before the position is skipped, so a
/// comment can be the answer; detached page text was arranged around it.
int tagEndingBeforeInFragment(Text text, int position) noexcept {
    while (standsAt(text, cdataEnd, position - 2))
        position = rFind(text, cdataStart, position - 2);
    return rFind(text, L'<', rFind(text, L'>', position));
}

/// Whether the position lies between the halves of a surrogate pair.
bool isInsidePair(Text text, int position) noexcept {
    const auto isSurrogate = [text](int at, wchar_t first) {
        return isValid(text, at) && (unitAt(text, at) & 0xFC00) == first;
    };
    return isSurrogate(position - 1, 0xD800) && isSurrogate(position, 0xDC00);
}

/// The first unit at or after `from` that ends the name of a tag; -1 if none.
int nameEnd(Text text, int from) noexcept {
    for (int end = from; isValid(text, end); ++end) {
        const wchar_t unit = unitAt(text, end);
        if (unit == L'>' || unit == L'/' || Core::String::isSpace(unit))
            return end;
    }
    return -1;
}

/// The next `<` or `&` at or after a valid position: all between is one step a unit.
int skipPlainText(Text text, int position) noexcept {
    return static_cast<int>(text.findEither(L'<', L'&', static_cast<unsigned>(position)));
}

/// The offset after the `<` or `&` at `position` and what belongs to it, to the exact end also
/// where the steps of the caret differ; -1 where that is missing.
int markupEnd(Text text, int position) noexcept {
    const auto behindDelimiter = [&](Text start, Text end) {
        return behind(find(text, end, position + length(start)), end);
    };
    if (unitAt(text, position) == L'&') {
        // An "&" that opens no entity is a unit by itself.
        int end = position + 1;
        while (isValid(text, end) && !endsEntityName(unitAt(text, end)))
            ++end;
        return isValid(text, end) && unitAt(text, end) == L';' ? end + 1 : position + 1;
    }
    if (!declarationAt(text, position))
        return behind(tagEnd(text, position + 1), L">");
    if (commentAt(text, position))
        return behindDelimiter(commentStart, commentEnd);
    if (cdataAt(text, position))
        return behindDelimiter(cdataStart, cdataEnd);
    if (instructionAt(text, position))
        return behindDelimiter(instructionStart, instructionEnd);
    if (documentTypeAt(text, position))
        return documentTypeEnd(text, position);
    return behind(tagEnd(text, position + 1), L">");
}

/// Whether the tag at `position` closes the element of that name.
bool closesElement(Text text, int position, Text name) noexcept {
    const Text found = tagName(text, position);
    return found.starts_with(L'/') && found.substr(1) == name && !selfClosingAt(text, position);
}

/// Walks backward over tags, of which `previous` tells the one before a position, to the innermost
/// one that is opened and not closed before `position`; `isOpening` says which tags open an
/// element.
template <typename Previous, typename IsOpening>
int innermostOpenTag(Text text, int position, Previous previous, IsOpening isOpening) {
    int depth = 0;
    for (int at = previous(position); at >= 0; at = previous(at)) {
        if (closingAt(text, at))
            ++depth;
        else if (isOpening(at) && --depth < 0)
            return at;
    }
    return -1;
}

/// `isSkipped` tells which tags are passed over, self-closing ones apart.
template <typename IsSkipped>
int innermostOpenTagOfFragment(Text text, int position, IsSkipped isSkipped) {
    TagEnds ends(text, position);
    const auto isSelfClosing = [text, &ends](int at) {
        const int end = ends.endOf(at);
        return end > at && unitAt(text, end - 1) == L'/';
    };
    return innermostOpenTag(
        text, position, [text](int at) { return previousTag(text, at, Source::Fragment); },
        [&](int at) { return !isSkipped(at) && !isSelfClosing(at); });
}

} // namespace

int find(Text text, wchar_t unit, int start) noexcept {
    return start < 0 ? -1 : static_cast<int>(text.find(unit, static_cast<unsigned>(start)));
}

int find(Text text, Text what, int start) noexcept {
    return start < 0 ? -1 : static_cast<int>(text.find(what, static_cast<unsigned>(start)));
}

int rFind(Text text, wchar_t unit, int start) noexcept {
    return start < 0 ? -1 : static_cast<int>(text.rfind(unit, static_cast<unsigned>(start)));
}

int rFind(Text text, Text what, int start) noexcept {
    return start < 0 ? -1 : static_cast<int>(text.rfind(what, static_cast<unsigned>(start)));
}

bool commentAt(Text text, int position) noexcept {
    return standsAt(text, commentStart, position);
}

bool cdataAt(Text text, int position) noexcept {
    return standsAt(text, cdataStart, position);
}

bool instructionAt(Text text, int position) noexcept {
    return standsAt(text, instructionStart, position);
}

bool ignoredAt(Text text, int position) noexcept {
    return declarationAt(text, position) &&
           (commentAt(text, position) || cdataAt(text, position) || instructionAt(text, position));
}

bool declarationAt(Text text, int position) noexcept {
    if (!isValid(text, position) || !isValid(text, position + 1) || unitAt(text, position) != L'<')
        return false;
    const wchar_t second = unitAt(text, position + 1);
    return second == L'!' || second == L'?';
}

bool selfClosingAt(Text text, int position) noexcept {
    if (!onTagStart(text, position))
        return false;
    const int end = tagEnd(text, position);
    return end > position && unitAt(text, end - 1) == L'/';
}

bool closingAt(Text text, int position) noexcept {
    return standsAt(text, L"</", position);
}

bool openingAt(Text text, int position) noexcept {
    return onTagStart(text, position) && !closingAt(text, position) &&
           !(declarationAt(text, position) &&
             (ignoredAt(text, position) || documentTypeAt(text, position))) &&
           !selfClosingAt(text, position);
}

Text tagName(Text text, int position) noexcept {
    if (!onTagStart(text, position))
        return {};
    // From the second unit on, so that the "/" of a closing tag is part of its name.
    const int end = nameEnd(text, position + 2);
    return end < 0 ? Text() : slice(text, position + 1, end);
}

Text localName(Text name) noexcept {
    return name.substr(name.find(L':') + 1);
}

int tagEnd(Text text, int from) noexcept {
    Quotes quotes = NoQuotes;
    return from < 0 ? -1 : tagEndBetween(text, from, length(text), quotes);
}

bool documentTypeAt(Text text, int position) noexcept {
    return standsAt(text, L"<!DOCTYPE", position);
}

int documentTypeEnd(Text text, int position) noexcept {
    bool inBrackets = false;
    for (int at = position + 1; at > 0 && isValid(text, at);) {
        const wchar_t unit = unitAt(text, at);
        if (unit == L'>' && !inBrackets)
            return at + 1;
        if (unit == L'[' || unit == L']')
            inBrackets = unit == L'[';
        if (ignoredAt(text, at))
            at = markupEnd(text, at);
        else if (unit == L'"' || unit == L'\'')
            at = behind(find(text, unit, at + 1), L"\"");
        else
            ++at;
    }
    return -1;
}

int stepForward(Text text, int position, Source source) noexcept {
    if (!isValid(text, position))
        return -1;
    const wchar_t unit = unitAt(text, position);
    if (unit == L'&')
        return stepOverEntity(text, position);
    if (unit != L'<')
        return isInsidePair(text, position + 1) ? position + 2 : position + 1;
    if (commentAt(text, position))
        return stepOverComment(text, position, source);
    if (standsAt(text, foRootEnd, position))
        return -1;
    if (cdataAt(text, position))
        return stepOverCData(text, position, source);
    if (source == Source::Document && instructionAt(text, position))
        return stepOverInstruction(text, position);
    if (source == Source::Document && documentTypeAt(text, position))
        return validOrNone(text, documentTypeEnd(text, position));
    const int end = tagEnd(text, position + 1);
    return end < 0 ? -1 : validOrNone(text, end + 1);
}

int stepBackward(Text text, int position, Text rootName) noexcept {
    PrecedingTags tags;
    return stepBackward(text, position, rootName, [text, &tags](int bracket) {
        return tags.isText(text, bracket) ? bracket : tags.find(text, bracket);
    });
}

int stepBackward(Text text, int position, Text rootName,
                 const std::function<int(int bracket)>& overBracket) {
    if (position < 1 || !isValid(text, position - 1))
        return -1;
    if (!rootName.empty() && standsAt(text, rootName, position + 1) &&
        tagName(text, position) == rootName)
        return -1;
    const wchar_t before = unitAt(text, position - 1);
    // Deliberate: behind a comment or CDATA section this is the tag before it, while a step forward
    // passes the section as one unit; the deletion commands depend on the difference.
    if (before == L'>')
        return overBracket(position - 1);
    if (before != L';')
        return isInsidePair(text, position - 1) ? position - 2 : position - 1;
    for (int start = position - 2; start >= 0; --start) {
        const wchar_t unit = unitAt(text, start);
        if (unit == L'&')
            return start;
        if (unit == L'>' || unit == L';')
            return position - 1;
    }
    return -1;
}

int unitStart(Text text, int position) noexcept {
    int at = 0;
    while (at < position) {
        at = skipPlainText(text, at);
        if (at < 0 || at >= position)
            return isInsidePair(text, position) ? position - 1 : position;
        const int end = markupEnd(text, at);
        if (end < 0 || end > position)
            return at;
        at = end;
    }
    return position;
}

int unitStartInText(Text text, int position) noexcept {
    UnitMemo nameEnds(endsEntityName);
    return unitStartInText(text, position, nameEnds);
}

int unitStartInText(Text text, int position, UnitMemo& nameEnds) noexcept {
    if (!isValid(text, position))
        return position;
    const int before = position > 0 ? nameEnds.last(text, position - 1) : -1;
    if (before >= 0 && unitAt(text, before) == L'&' && markupEnd(text, before) > position)
        return before;
    return isInsidePair(text, position) ? position - 1 : position;
}

int unitEnd(Text text, int position) noexcept {
    const wchar_t unit = unitAt(text, position);
    if (unit == L'<' || unit == L'&')
        return markupEnd(text, position);
    return isInsidePair(text, position + 1) ? position + 2 : position + 1;
}

int behindUnit(Text text, int position) noexcept {
    const int end = unitEnd(text, position);
    return end < 0 ? length(text) : end;
}

int firstPositionInRoot(Text text) noexcept {
    // Deliberate: a comment before the root is read as a tag, so that a quote in it opens a quoted
    // stretch; the documents that are edited have none there.
    enum class State { Outside, InTag, InCData };
    State state = State::Outside;
    bool rootFound = false;
    for (int at = 0; isValid(text, at); ++at) {
        const wchar_t unit = unitAt(text, at);
        if (state == State::InCData) {
            if (standsAt(text, cdataEnd, at)) {
                state = State::Outside;
                at += length(cdataEnd) - 1;
            }
        } else if (state == State::Outside) {
            if (unit != L'<')
                continue;
            state = State::InTag;
            if (isValid(text, at + 1) && unitAt(text, at + 1) != L'?' &&
                unitAt(text, at + 1) != L'!') {
                rootFound = true;
                ++at;
            }
        } else if (unit == L'"' || unit == L'\'') {
            at = find(text, unit, at + 1);
            if (at < 0)
                return -1;
        } else if (unit == L'>') {
            state = State::Outside;
        } else if (standsAt(text, L"![CDATA[", at)) {
            state = State::InCData;
            at += length(cdataStart) - 2;
        }
        if (state == State::Outside && rootFound)
            return validOrNone(text, at + 1);
    }
    return -1;
}

int nextTag(Text text, int position) noexcept {
    while (isValid(text, position)) {
        position = skipPlainText(text, position);
        if (onTagStart(text, position) && !ignoredAt(text, position))
            return nameEnd(text, position + (closingAt(text, position) ? 2 : 1)) < 0 ? -1
                                                                                     : position;
        position = stepForward(text, position);
    }
    return -1;
}

int previousTag(Text text, int position, Source source) noexcept {
    if (source == Source::Document)
        return PrecedingTags().find(text, position);
    return isValid(text, position) ? tagEndingBeforeInFragment(text, position) : -1;
}

int closingTag(Text text, int position, Source source) noexcept {
    if (!onTagStart(text, position) || ignoredAt(text, position) || !isValid(text, position + 1) ||
        closingAt(text, position))
        return -1;
    if (selfClosingAt(text, position))
        return position;
    int at = stepForward(text, position, source);
    // Deliberate: a fragment's element is named by the scan from behind its tag, which does not see
    // a tag at offset 0; detached page text always has something in front.
    const Text name =
        source == Source::Fragment ? fragmentElementName(text, at) : tagName(text, position);
    if (name.empty())
        return -1;
    int depth = 0;
    // A step that goes back met an unterminated section of a fragment, where nothing closes.
    for (int from = position; at > from; at = stepForward(text, at, source)) {
        at = skipPlainText(text, at);
        from = at;
        if (closesElement(text, at, name)) {
            if (depth < 1)
                return at;
            --depth;
        } else if (tagName(text, at) == name && !selfClosingAt(text, at)) {
            ++depth;
        }
    }
    return -1;
}

int startTag(Text text, int position) noexcept {
    if (!onTagStart(text, position))
        return -1;
    if (selfClosingAt(text, position))
        return position;
    if (!closingAt(text, position))
        return -1;
    PrecedingTags tags;
    int at = tags.find(text, stepForward(text, position));
    const Text closingName = tagName(text, at);
    int counter = -1;
    // Deliberate: a start tag at offset 0 is never found, and a self-closing tag of the same name
    // counts as a start tag; the deletion cases were arranged around both.
    for (; at > 0; at = tags.find(text, at)) {
        const Text name = tagName(text, at);
        if (name == closingName) {
            ++counter;
        } else if (name == closingName.substr(1)) {
            if (counter < 1)
                return at;
            --counter;
        }
    }
    return -1;
}

int currentElement(Text text, int position, Source source) noexcept {
    if (source == Source::Document) {
        PrecedingTags tags;
        return innermostOpenTag(
            text, position, [text, &tags](int at) { return tags.find(text, at); },
            [text](int at) { return openingAt(text, at); });
    }
    // Deliberate: in a fragment a CDATA section that the walk meets counts as a start tag; detached
    // page text holds none.
    const int found = innermostOpenTagOfFragment(
        text, position, [text](int at) { return commentAt(text, at) || instructionAt(text, at); });
    return tagName(text, found).empty() ? -1 : found;
}

Text fragmentElementName(Text text, int position) noexcept {
    const int element = innermostOpenTagOfFragment(
        text, position, [text](int at) { return ignoredAt(text, at) || documentTypeAt(text, at); });
    // Deliberate: a tag at the very start of a fragment is not recognised; closingTag() depends on
    // it.
    return element <= 0 ? Text() : tagName(text, element);
}

int placeholderLength(Text text, int position) noexcept {
    if (standsAt(text, nbspEntity, position))
        return length(nbspEntity);
    return standsAt(text, nbspCharacter, position) ? length(nbspCharacter) : 0;
}

int skipSpaces(Text text, int position) noexcept {
    while (isValid(text, position) && Core::String::isSpace(unitAt(text, position)))
        ++position;
    return position;
}

} // namespace XmlScan
