#pragma once

#include "Paragraph.h"

#include <cstdint>
#include <iterator>
#include <utility>

/// A line, and the paragraph that it is of.
struct Row {
    const Paragraph& paragraph;
    const Line& line;

    int offsetOf(const Cell& cell) const { return paragraph.start + cell.offset; }
};

/// The whole document in paragraphs. What a change has touched is laid out anew; the rest moves.
class Layout {
public:
    explicit Layout(const EditableDocumentBuffer& document) : document_(document) {}

    void update(int width) {
        const auto change =
            document_.changeSince(std::exchange(version_, document_.getTextVersion()));
        if (change && change->empty() && width == width_)
            return;
        if (!change || std::exchange(width_, width) != width || paragraphs_.empty() ||
            change->start < paragraphs_.front().start)
            paragraphs_.clear();
        takeUp(change.value_or(TextChange{}));
    }

    /// In the order of the text; each starts where the one before ends.
    const std::vector<Paragraph>& paragraphs() const { return paragraphs_; }
    int laidOut() const { return laidOut_; } ///< how many paragraphs, up to now

    std::vector<Row> rows() const {
        std::vector<Row> rows;
        for (const Paragraph& paragraph : paragraphs_)
            for (const Line& line : paragraph.lines)
                rows.push_back({paragraph, line});
        return rows;
    }

private:
    /// Lays out from one paragraph before the change through one behind it, since whether the caret
    /// stops before a tag depends on what stands beside it.
    void takeUp(const TextChange& change) {
        const auto isFrom = [](int offset) {
            return [=](const Paragraph& each) { return each.start >= offset; };
        };
        const auto end = paragraphs_.end();
        auto first = std::find_if(paragraphs_.begin(), end, isFrom(change.start));
        auto kept = std::find_if(first, end, isFrom(change.start + change.removed));
        for (auto each = kept; each != end; ++each) {
            each->start += change.inserted - change.removed;
            each->end += change.inserted - change.removed;
        }
        while (kept != end && looksOtherwise(*kept, change))
            ++kept;
        kept += kept != end ? 1 : 0;
        first -= std::min<std::ptrdiff_t>(2, first - paragraphs_.begin());

        std::vector<Paragraph> made;
        int from = first != end ? first->start : std::max(0, document_.getFirstPageGeneratorPos());
        while (kept != end ? kept->start != from : !document_.getDrawn(from, 1).empty()) {
            made.push_back(Typesetter(document_, width_, from).run());
            from = made.back().end;
            kept = std::find_if(kept, end, isFrom(from));
        }
        laidOut_ += static_cast<int>(made.size());
        paragraphs_.insert(paragraphs_.erase(first, kept), made.begin(), made.end());
    }

    /// Whether a start tag in the change, or one that it is a part of, is of an element around.
    bool looksOtherwise(const Paragraph& paragraph, const TextChange& change) const {
        const std::vector<Drawn> tag = document_.getDrawn(change.start, 1);
        const int from = tag.empty() ? change.start : std::min(tag.front().start, change.start);
        const std::vector<int> around = document_.getElementAt(paragraph.start).around;
        return std::any_of(around.begin(), around.end(), [&](int element) {
            return element >= from && element < change.start + change.inserted;
        });
    }

    const EditableDocumentBuffer& document_;
    int width_ = 0;
    std::uint64_t version_ = 0;
    std::vector<Paragraph> paragraphs_;
    int laidOut_ = 0;
};
