#include "text/store/TextChunk.h"

#include <algorithm>
#include <utility>

TextChunk::TextChunk(std::wstring_view units, const LexicalState& entry)
    : TextChunk(TextUnits(units), entry) {}

TextChunk::TextChunk(TextUnits units, const LexicalState& entry)
    : units_(std::move(units)), entry_(entry) {
    MarkupReader reader(entry, marks_);
    reader.read(units_.bytes(), size(), units_.isWide());
    marks_.shrink_to_fit();
    for (MarkupMark& mark : marks_)
        name(mark);
    exit_ = reader.state();
    faults_ = reader.faults();
}

/// Tells the kind of one that begins markup.
void TextChunk::name(MarkupMark& mark) {
    if (isStart(mark.kind))
        mark.kind = kindOfStart(units_, mark.at);
}

const MarkupMark* TextChunk::markFrom(int at, MarkKinds kinds) const {
    for (std::size_t mark = marksBefore(at); mark < marks_.size(); ++mark)
        if (kinds.has(marks_[mark].kind))
            return &marks_[mark];
    return nullptr;
}

const MarkupMark* TextChunk::markBefore(int at, MarkKinds kinds) const {
    for (std::size_t mark = marksBefore(at); mark > 0; --mark)
        if (kinds.has(marks_[mark - 1].kind))
            return &marks_[mark - 1];
    return nullptr;
}

int TextChunk::tornName() const {
    return marks_.empty() || marks_.back().kind != MarkKind::CutStart ? -1 : marks_.back().at;
}

std::size_t TextChunk::marksBefore(int at) const {
    const auto found = std::partition_point(marks_.begin(), marks_.end(),
                                            [at](const MarkupMark& mark) { return mark.at < at; });
    return static_cast<std::size_t>(found - marks_.begin());
}

Measure TextChunk::measure() const {
    Measure measure{.length = size(), .faults = faults_, .endsInText = exit_.isText()};
    for (auto mark = marks_.rbegin(); mark != marks_.rend(); ++mark) {
        measure.kinds |= {mark->kind};
        measure.net += (mark->kind == MarkKind::OpeningEnd) - (mark->kind == MarkKind::ClosingEnd);
        measure.rise = std::max(measure.rise, measure.net);
    }
    return measure;
}

TextChunk TextChunk::replaced(int at, int count, std::wstring_view with) const {
    TextChunk chunk = part(0, at);
    chunk.append(TextChunk(with, chunk.exit_));
    chunk.append(part(at + count, size()));
    return chunk;
}

void TextChunk::replacePlain(int at, int count, std::wstring_view with) {
    units_.replace(at, count, with);
    shiftMarks(marksBefore(at), static_cast<int>(with.size()) - count);
}

void TextChunk::shiftMarks(std::size_t first, int distance) {
    for (; first < marks_.size(); ++first)
        marks_[first].at = static_cast<std::uint16_t>(marks_[first].at + distance);
}

/// Whether nothing differs but plain text between plain text, so that all else is read as before.
bool TextChunk::keepsMarkup(int at, int count, std::wstring_view with) const {
    const bool endsPlain = at + count < size() || exit_.isPlainText();
    return endsPlain && isPlainText(at) && isPlainIn(at, at + count) &&
           std::all_of(with.begin(), with.end(), MarkupReader::isPlain);
}

/// Whether a place is in text behind a plain unit or the end of markup, so that no delimiter is
/// half read.
bool TextChunk::isPlainText(int at) const {
    if (at == 0)
        return entry_.isPlainText();
    const std::size_t before = marksBefore(at);
    const bool isInText = before > 0 ? !isStart(marks_[before - 1].kind) : entry_.isText();
    return isInText && isBehindProlog(before) &&
           (MarkupReader::isPlain(units_[at - 1]) || units_[at - 1] == L'>') && !isInReference(at);
}

/// Of a place in text.
bool TextChunk::isInReference(int at) const {
    int read = 0;
    while (read < at && read < MarkupReader::longestReference &&
           !MarkupReader::endsReference(units_[at - read - 1]))
        ++read;
    if (read == at)
        return entry_.tail == LexicalState::Tail::Reference &&
               entry_.read + read <= MarkupReader::longestReference;
    return units_[at - read - 1] == L'&';
}

/// Whether a place with so many marks before it is.
bool TextChunk::isBehindProlog(std::size_t marks) const {
    return entry_.isBehindProlog ||
           (marks > 0 && MarkKinds::elementEnds().has(marks_[marks - 1].kind));
}

bool TextChunk::isPlainIn(int at, int end) const {
    while (at < end && MarkupReader::isPlain(units_[at]))
        ++at;
    return at == end;
}

/// How the unit at an offset is read. Behind markup, text begins anew, so that no more than the
/// units since then are read.
LexicalState TextChunk::stateAt(int at) const {
    if (at == 0 || at == size())
        return at == 0 ? entry_ : exit_;
    if (isPlainText(at))
        return {.isBehindProlog = true};
    const std::size_t marks = marksBefore(at);
    const bool isKnown = marks > 0 && !isStart(marks_[marks - 1].kind) && isBehindProlog(marks);
    TextUnits before;
    before.append(units_, isKnown ? marks_[marks - 1].at + 1 : 0, at);
    return TextChunk(std::move(before), isKnown ? LexicalState{.isBehindProlog = true} : entry_)
        .exit_;
}

TextChunk TextChunk::part(int start, int end) const {
    TextUnits units;
    units.append(units_, start, end);
    if (faults_.any())
        return {std::move(units), stateAt(start)};
    TextChunk part;
    part.units_ = std::move(units);
    part.entry_ = stateAt(start);
    part.exit_ = stateAt(end);
    const auto mark = [this](int at) {
        return marks_.begin() + static_cast<std::ptrdiff_t>(marksBefore(at));
    };
    part.marks_.assign(mark(start), mark(end));
    part.shiftMarks(0, -start);
    if (!part.marks_.empty())
        part.name(part.marks_.back());
    return part;
}

void TextChunk::append(const TextChunk& next) {
    if (next.entry_ != exit_) {
        append(next.readFrom(exit_));
        return;
    }
    const int size = this->size();
    const std::size_t marks = marks_.size();
    units_.append(next.units_, 0, next.size());
    marks_.insert(marks_.end(), next.marks_.begin(), next.marks_.end());
    shiftMarks(marks, size);
    if (marks > 0)
        name(marks_[marks - 1]);
    faults_ += next.faults_;
    exit_ = next.exit_;
}

TextChunk TextChunk::readFrom(const LexicalState& entry) const {
    return {units_, entry};
}
