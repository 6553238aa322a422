#include "text/store/TextChunk.h"

#include <algorithm>
#include <utility>

using Kind = MarkupMark::Kind;

TextChunk::TextChunk(std::wstring_view units, const LexicalState& entry)
    : TextChunk(TextUnits(units), entry) {}

TextChunk::TextChunk(TextUnits units, const LexicalState& entry)
    : units_(std::move(units)), entry_(entry) {
    MarkupReader reader(entry, marks_);
    reader.read(units_.bytes(), size(), units_.isWide());
    exit_ = reader.state();
    faults_ = reader.faults();
}

std::size_t TextChunk::marksBefore(int at) const {
    const auto found = std::partition_point(marks_.begin(), marks_.end(),
                                            [at](const MarkupMark& mark) { return mark.at < at; });
    return static_cast<std::size_t>(found - marks_.begin());
}

Measure TextChunk::measure() const {
    Measure measure{.length = size(), .faults = faults_};
    for (auto mark = marks_.rbegin(); mark != marks_.rend(); ++mark) {
        measure.starts += mark->isStart();
        measure.net += (mark->kind == Kind::OpeningEnd) - (mark->kind == Kind::ClosingEnd);
        measure.rise = std::max(measure.rise, measure.net);
    }
    return measure;
}

TextChunk TextChunk::replaced(int at, int count, std::wstring_view with) const {
    if (keepsMarkup(at, count, with))
        return withPlainText(at, count, with);
    TextChunk chunk = part(0, at);
    chunk.append(TextChunk(with, chunk.exit_));
    chunk.append(part(at + count, size()));
    return chunk;
}

TextChunk TextChunk::withPlainText(int at, int count, std::wstring_view with) const {
    TextChunk chunk;
    chunk.units_.reserve(size() - count + static_cast<int>(with.size()), units_.isWide());
    chunk.units_.append(units_, 0, at);
    chunk.units_.append(with);
    chunk.units_.append(units_, at + count, size());
    chunk.marks_ = marks_;
    chunk.faults_ = faults_;
    chunk.entry_ = entry_;
    chunk.exit_ = exit_;
    chunk.shiftMarks(marksBefore(at), static_cast<int>(with.size()) - count);
    return chunk;
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
    const bool isInText = before > 0 ? !marks_[before - 1].isStart() : entry_.isText();
    return isInText && isBehindProlog(before) &&
           (MarkupReader::isPlain(units_[at - 1]) || units_[at - 1] == L'>');
}

/// Whether a place with so many marks before it is.
bool TextChunk::isBehindProlog(std::size_t marks) const {
    return entry_.isBehindProlog || (marks > 0 && marks_[marks - 1].kind != Kind::OtherEnd);
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
    const bool isKnown = marks > 0 && !marks_[marks - 1].isStart() && isBehindProlog(marks);
    TextUnits before;
    before.append(units_, isKnown ? marks_[marks - 1].at + 1 : 0, at);
    return TextChunk(std::move(before), isKnown ? LexicalState{.isBehindProlog = true} : entry_)
        .exit_;
}

TextChunk TextChunk::part(int start, int end) const {
    TextUnits units;
    units.append(units_, start, end);
    if (faults_ > 0)
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
    faults_ += next.faults_;
    exit_ = next.exit_;
}

TextChunk TextChunk::readFrom(const LexicalState& entry) const {
    return {units_, entry};
}
