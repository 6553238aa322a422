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
    TextUnits units;
    units.reserve(size() - count + static_cast<int>(with.size()), units_.isWide());
    units.append(units_, 0, at);
    units.append(with);
    units.append(units_, at + count, size());
    if (!keepsMarkup(at, count, with))
        return {std::move(units), entry_};
    TextChunk chunk;
    chunk.units_ = std::move(units);
    chunk.marks_ = marks_;
    chunk.faults_ = faults_;
    chunk.entry_ = entry_;
    chunk.exit_ = exit_;
    const int shift = static_cast<int>(with.size()) - count;
    for (std::size_t mark = marksBefore(at); mark < marks_.size(); ++mark)
        chunk.marks_[mark].at = static_cast<std::uint16_t>(marks_[mark].at + shift);
    return chunk;
}

/// Whether nothing differs but plain text between plain text, so that all else is read as before.
bool TextChunk::keepsMarkup(int at, int count, std::wstring_view with) const {
    const std::size_t before = marksBefore(at);
    const bool isInText = before > 0 ? !marks_[before - 1].isStart() : entry_.isText();
    if (!isInText || !entry_.isBehindProlog ||
        !std::all_of(with.begin(), with.end(), MarkupReader::isPlain))
        return false;
    // Behind a plain unit, or the end of markup, no delimiter is half read.
    const bool isBehindPlain = at > 0
                                   ? MarkupReader::isPlain(units_[at - 1]) || units_[at - 1] == L'>'
                                   : entry_.isPlainText();
    const bool endsPlain = at + count < size() || exit_.isPlainText();
    return isBehindPlain && endsPlain && isPlainIn(at, at + count);
}

bool TextChunk::isPlainIn(int at, int end) const {
    while (at < end && MarkupReader::isPlain(units_[at]))
        ++at;
    return at == end;
}

TextChunk TextChunk::part(int start, int end) const {
    TextUnits before;
    before.append(units_, 0, start);
    TextUnits units;
    units.append(units_, start, end);
    return {std::move(units), TextChunk(std::move(before), entry_).exit_};
}

TextChunk TextChunk::joined(const TextChunk& first, const TextChunk& second) {
    TextUnits units = first.units_;
    units.append(second.units_, 0, second.size());
    return {std::move(units), first.entry_};
}

TextChunk TextChunk::readFrom(const LexicalState& entry) const {
    return {units_, entry};
}
