#include "text/torn/PrecedingTags.h"

#include "text/torn/ReadAgain.h"

#include <algorithm>
#include <limits>

using namespace XmlScan;

namespace {

/// The start of the section whose last unit stands at `last`; -1 where none ends there, as in the
/// text "a --> b". What looks like another start in a section belongs to it. `depth` bounds how
/// many in a row are looked at of which each seems to begin within the end of the one before.
int sectionEndingAt(Text text, int last, Text start, Text end, int depth = 8) noexcept {
    const int delimiter = last + 1 - length(end);
    if (!standsAt(text, end, delimiter))
        return -1;
    const Text read = slice(text, 0, last + 1);
    const int endBefore = rFind(read, end, delimiter - 1);
    // In "<!-->" the start has units in common with what looks like an end, and is none if that
    // ends another.
    int section = find(read, start, std::max(0, endBefore - length(start) + 1));
    const int behindEnd = endBefore + length(end);
    if (0 <= section && section < endBefore && depth > 0 &&
        sectionEndingAt(text, behindEnd - 1, start, end, depth - 1) >= 0)
        section = find(read, start, behindEnd);
    return section >= 0 && find(read, end, section + length(start)) == delimiter ? section : -1;
}

/// The start of the comment or CDATA section whose last unit stands at `last`; -1 if none does.
int ignoredEndingAt(Text text, int last) noexcept {
    const int comment = sectionEndingAt(text, last, commentStart, commentEnd);
    return comment >= 0 ? comment : sectionEndingAt(text, last, cdataStart, cdataEnd);
}

/// Where the document type begins or else what is no comment or instruction before it; -1 where one
/// of them has no end.
int prologEnd(Text text) noexcept {
    int at = skipSpaces(text, 0);
    while (ignoredAt(text, at))
        at = skipSpaces(text, stepForward(text, at));
    return at;
}

} // namespace

int PrecedingTags::find(Text text, int position) noexcept {
    if (!isValid(text, position))
        return -1;
    const Gap gap = search(text, position);
    if (gap.last - gap.tag > ReadAgain::units)
        remember(gap);
    return gap.tag;
}

PrecedingTags::Gap PrecedingTags::search(Text text, int position) noexcept {
    Gap gap{-1, position, -1};
    const auto endAt = [&gap](int first, int tag) {
        return Gap{gap.first < 0 ? first : gap.first, gap.last, tag};
    };
    while (position >= 0) {
        if (isInKnownGap(position))
            return endAt(gaps_.front().first, gaps_.front().tag);
        const int bracket = brackets_.last(text, position);
        if (bracket < 0)
            break;
        const Markup markup = endingAt(text, bracket);
        if (markup.kind == Kind::Tag)
            return endAt(bracket, markup.start);
        position = markup.kind == Kind::Text ? bracket - 1 : markup.start;
        // What is passed over at once would answer for itself.
        if (position != bracket - 1)
            gap = endAt(bracket, -1);
    }
    return endAt(0, -1);
}

/// Puts the gap that holds the position in front.
bool PrecedingTags::isInKnownGap(int position) noexcept {
    const auto known = std::find_if(gaps_.begin(), gaps_.end(), [position](const Gap& gap) {
        return gap.first <= position && position <= gap.last;
    });
    if (known == gaps_.end())
        return false;
    std::rotate(gaps_.begin(), known, known + 1);
    return true;
}

/// In the place of what it continues, or else of what was not used for the longest time.
void PrecedingTags::remember(Gap gap) noexcept {
    const auto known = std::find_if(gaps_.begin(), gaps_.end() - 1,
                                    [&gap](const Gap& other) { return other.first == gap.first; });
    *known = {gap.first, std::max(gap.last, known->first == gap.first ? known->last : -1), gap.tag};
    std::rotate(gaps_.begin(), known, known + 1);
}

bool PrecedingTags::forgetBehind(int position) noexcept {
    brackets_.forgetFrom(position);
    if (0 <= tag_.end && tag_.end < position)
        tag_.last = std::min(tag_.last, position - 1);
    else if (position <= tag_.last)
        tag_ = {};
    for (Gap& gap : gaps_)
        gap.last = std::min(gap.last, position - 1);
    if (!type_ || position > type_->last)
        return false;
    type_.reset();
    tag_ = {};
    gaps_.fill({});
    return true;
}

/// What ends with the `>`.
PrecedingTags::Markup PrecedingTags::endingAt(Text text, int bracket) noexcept {
    if (const int ignored = ignoredEndingAt(text, bracket); ignored >= 0)
        return {Kind::Skipped, ignored};
    const int instruction = sectionEndingAt(text, bracket, instructionStart, instructionEnd);
    if (instruction >= 0)
        return {Kind::Tag, instruction};
    findTagBefore(text, bracket);
    if (tag_.position < 0)
        return {Kind::Skipped, -1};
    if (tag_.end == bracket && !standsAt(text, L"<!", tag_.position))
        return {Kind::Tag, tag_.position};
    const DocumentType& type = documentType(text);
    if (bracket < type.end)
        return {bracket + 1 == type.end ? Kind::Tag : Kind::Skipped, type.start};
    return {Kind::Text, bracket};
}

/// Looks for the end of the tag only up to the `>`: where a quote is left open it may be far.
void PrecedingTags::findTagBefore(Text text, int bracket) noexcept {
    const bool isBehind = bracket > tag_.last;
    if (!isBehind && bracket > tag_.position)
        return;
    const int unread = isBehind ? tag_.last + 1 : 0;
    const int start = rFind(slice(text, unread, bracket + 1), L'<', bracket - unread);
    if (start >= 0 || !isBehind)
        tag_ = {.position = start < 0 ? -1 : unread + start, .last = unread + start};
    if (tag_.end < 0)
        tag_.end = tagEndBetween(text, tag_.last + 1, bracket + 1, tag_.quotes);
    tag_.last = bracket;
}

const PrecedingTags::DocumentType& PrecedingTags::documentType(Text text) noexcept {
    if (!type_) {
        const int start = prologEnd(text);
        const bool isThere = documentTypeAt(text, start);
        const int end = isThere ? documentTypeEnd(text, start) : -1;
        const bool isComplete = start >= 0 && (!isThere || end >= 0);
        type_ = {start, end,
                 isComplete ? std::max(end, start + length(L"<!DOCTYPE"))
                            : std::numeric_limits<int>::max()};
    }
    return *type_;
}
