#pragma once

#include "Paragraph.h"

#include <forme/view/StopSide.h>

#include <cstdint>

/// The paragraphs around the caret. Those that a change has touched are laid out anew; the others
/// only move.
class Layout {
public:
    explicit Layout(const EditableDocumentBuffer& document) : document_(document) {}

    /// Takes up what has changed, and has so many rows above and below the caret, if there are.
    void update(int margin, int width) {
        const auto change =
            document_.changeSince(std::exchange(version_, document_.getTextVersion()));
        if (std::exchange(width_, width) != width || !change)
            paragraphs_.clear();
        else if (!change->empty())
            takeUp(*change);
        const int caret = document_.getCaretPos();
        const bool isHeld = !paragraphs_.empty() && paragraphs_.front().start <= caret &&
                            caret <= paragraphs_.back().end && rowCount() < 50 * margin;
        int start = isHeld ? paragraphs_.front().start : startBefore(caret);
        fill(start, caret, margin);
        for (; rowOf(caret) < margin && startBefore(start - 1) < start; fill(start, caret, margin))
            start = startBefore(start - 1);
    }

    const std::vector<Paragraph>& paragraphs() const { return paragraphs_; }
    int laidOut() const { return laidOut_; } ///< how many paragraphs, up to now
    int rowCount() const { return static_cast<int>(rows_.size()); }
    const Line& row(int index) const { return *rows_[static_cast<std::size_t>(index)]; }
    /// The row that shows an offset, or else the first one behind it.
    int rowOf(int offset) const {
        const auto isShown = [&](const Cell& cell) { return cell.offset >= offset; };
        int found = 0;
        while (found + 1 < rowCount() &&
               std::none_of(row(found).begin(), row(found).end(), isShown))
            ++found;
        return found;
    }

private:
    void takeUp(const TextChange& change) {
        if (!paragraphs_.empty() && change.start < paragraphs_.front().start)
            return paragraphs_.clear(); // what stands above may tell how all looks
        std::erase_if(paragraphs_, [&](const Paragraph& each) {
            return each.end >= change.start && each.start <= change.start + change.removed;
        });
        for (Paragraph& each : paragraphs_)
            if (each.start > change.start)
                each.move(change.inserted - change.removed);
        // What begins in the change and ends behind it may look otherwise as a whole.
        const std::vector<Drawn> tag = document_.getDrawn(change.start, 1);
        const int from = tag.empty() ? change.start : std::min(tag.front().start, change.start);
        std::erase_if(paragraphs_, [&](const Paragraph& each) {
            const std::vector<int> around = document_.getElementAt(each.start).around;
            return std::any_of(around.begin(), around.end(), [&](int element) {
                return element >= from && element < change.start + change.inserted;
            });
        });
    }

    /// Has the paragraphs from an offset up to so many rows behind the caret, known ones or new.
    void fill(int from, int caret, int margin) {
        std::vector<Paragraph> known = std::exchange(paragraphs_, {});
        int behind = 0;
        while (behind <= margin && !document_.getDrawn(from, 1).empty()) {
            const auto same = std::find_if(known.begin(), known.end(), [&](const Paragraph& each) {
                return each.start == from;
            });
            laidOut_ += same == known.end() ? 1 : 0;
            paragraphs_.push_back(same == known.end() ? Typesetter(document_, width_).run(from)
                                                      : std::move(*same));
            from = paragraphs_.back().end;
            behind += paragraphs_.back().start > caret
                          ? static_cast<int>(paragraphs_.back().lines.size())
                          : 0;
        }
        rows_.clear();
        for (const Paragraph& paragraph : paragraphs_)
            for (const Line& line : paragraph.lines)
                rows_.push_back(&line);
    }

    /// A place before an offset where a line begins. Of the last two stops the first may be in the
    /// last paragraph of a list and the second directly behind the list, in the block around it.
    int startBefore(int offset) const {
        int start = std::max(0, document_.getFirstPageGeneratorPos());
        for (int stops = 0; stops < 2; ++stops) {
            offset = document_.getNearestStop(offset, StopSide::Before);
            if (const auto range = document_.getRangeAround(TextUnit::Paragraph, offset--))
                start = std::max(start, range->start);
        }
        return start;
    }

    const EditableDocumentBuffer& document_;
    int width_ = 0;
    std::uint64_t version_ = 0;
    std::vector<Paragraph> paragraphs_; // each starts where the one before ends
    std::vector<const Line*> rows_;
    int laidOut_ = 0;
};
