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
    /// stops before a tag depends on what stands beside it; and on to the end of each element that
    /// the change opened, closed or gave other attributes, which may look otherwise as a whole.
    void takeUp(const TextChange& change) {
        const auto isFrom = [](int offset) {
            return [=](const Paragraph& each) { return each.start >= offset; };
        };
        const auto end = paragraphs_.end();
        auto first = std::find_if(paragraphs_.begin(), end, isFrom(change.start));
        auto kept = std::find_if(first, end, isFrom(change.start + change.removed));
        int depth = depthAt(change.start);
        for (auto gone = first; gone != kept; ++gone)
            depth = std::min(depth, gone->depth);
        for (auto each = kept; each != end; ++each) {
            each->start += change.inserted - change.removed;
            each->end += change.inserted - change.removed;
        }
        first -= std::min<std::ptrdiff_t>(2, first - paragraphs_.begin());

        std::vector<Paragraph> made;
        int from = first != end ? first->start : std::max(0, document_.getFirstPageGeneratorPos());
        bool isBehind = false;
        while (!document_.getDrawn(from, 1).empty() &&
               !(isBehind && kept != end && kept->start == from)) {
            made.push_back(Typesetter(document_, width_, from).run());
            made.back().depth = depthAt(from);
            if (from >= change.start + change.inserted)
                isBehind = isBehind || made.back().depth <= depth;
            else if (from >= change.start)
                depth = std::min(depth, made.back().depth);
            from = made.back().end;
            kept = std::find_if(kept, end, isFrom(from));
        }
        laidOut_ += static_cast<int>(made.size());
        paragraphs_.insert(paragraphs_.erase(first, kept), made.begin(), made.end());
    }

    /// How many elements are around what is drawn there.
    int depthAt(int offset) const {
        const std::vector<Drawn> here = document_.getDrawn(offset, 1);
        const int start = here.empty() ? offset : here.front().start;
        const ElementPlace element = document_.getElementAt(start);
        return static_cast<int>(element.around.size()) + (element.start < start ? 1 : 0);
    }

    const EditableDocumentBuffer& document_;
    int width_ = 0;
    std::uint64_t version_ = 0;
    std::vector<Paragraph> paragraphs_;
    int laidOut_ = 0;
};
