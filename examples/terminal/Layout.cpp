#include "Layout.h"

#include <forme/view/Drawn.h>
#include <forme/view/ElementPlace.h>
#include <forme/view/StopSide.h>

#include <algorithm>
#include <utility>

namespace {

/// The elements that hold an offset, from the outside in.
std::vector<int> elementsAt(const EditableDocumentBuffer& document, int offset) {
    ElementPlace place = document.getElementAt(offset);
    place.around.push_back(place.start);
    return place.around;
}

void move(Paragraph& paragraph, int by) {
    paragraph.start += by;
    paragraph.end += by;
    for (Line& line : paragraph.lines)
        for (Cell& cell : line)
            cell.offset += cell.offset < 0 ? 0 : by;
}

} // namespace

void Layout::update(int margin, int width) {
    const auto change = document_.changeSince(std::exchange(version_, document_.getTextVersion()));
    if (paragraphs_.empty() || !change || width != width_ ||
        (!change->empty() && change->start < paragraphs_.front().start))
        paragraphs_.clear(); // what stands above may tell how all looks
    else
        replaceTouched(*change);
    const int caret = document_.getCaretPos();
    if (paragraphs_.empty() || caret < paragraphs_.front().start ||
        caret > paragraphs_.back().end || rows_.size() > static_cast<std::size_t>(50 * margin)) {
        width_ = width;
        paragraphs_.clear();
        lay(0, startBefore(caret));
    }
    while (static_cast<int>(rows_.size()) - rowOf(caret) <= margin &&
           !document_.getDrawn(paragraphs_.back().end, 1).empty())
        lay(paragraphs_.size(), paragraphs_.back().end);
    for (int start; rowOf(caret) < margin; lay(0, start))
        if (start = startBefore(paragraphs_.front().start - 1); start >= paragraphs_.front().start)
            break;
}

void Layout::replaceTouched(const TextChange& change) {
    const int end = change.start + change.inserted;
    const auto touched =
        std::find_if(paragraphs_.begin(), paragraphs_.end(),
                     [&](const Paragraph& each) { return each.end >= change.start; });
    if (change.empty() || touched == paragraphs_.end())
        return;
    const auto behind = std::find_if(touched + 1, paragraphs_.end(), [&](const Paragraph& each) {
        return each.start >= change.start + change.removed;
    });
    for (auto each = behind; each != paragraphs_.end(); ++each)
        move(*each, change.inserted - change.removed);
    const int from = touched->start;
    const auto index = touched - paragraphs_.begin();
    paragraphs_.erase(touched, behind);
    // An element that begins in the change and ends behind it looks otherwise as a whole.
    const std::vector<int> elements = elementsAt(document_, end);
    const auto begun = std::find_if(elements.begin(), elements.end(), [&](int element) {
        return element < end && document_.getDrawn(element, 1).front().end > change.start;
    });
    lay(static_cast<std::size_t>(index), from, begun == elements.end() ? -1 : *begun);
}

/// Puts new paragraphs before the one at an index and in the place of those that they overlap, up
/// to one that starts where they end and not within an element that has to be laid out anew.
void Layout::lay(std::size_t index, int from, int within) {
    const auto isWithin = [&] {
        const std::vector<int> elements = elementsAt(document_, from);
        return std::find(elements.begin(), elements.end(), within) != elements.end();
    };
    do {
        Paragraph laid = layOut(document_, from, width_);
        ++laidOut_;
        from = laid.end;
        const auto at = paragraphs_.begin() + static_cast<std::ptrdiff_t>(index++);
        const auto behind = std::find_if(at, paragraphs_.end(),
                                         [&](const Paragraph& each) { return each.start >= from; });
        paragraphs_.insert(paragraphs_.erase(at, behind), std::move(laid));
    } while (index < paragraphs_.size() && (paragraphs_[index].start != from || isWithin()));
    rows_.clear();
    for (const Paragraph& paragraph : paragraphs_)
        for (const Line& line : paragraph.lines)
            rows_.push_back(&line);
}

/// A place before the offset where a line begins. Of the last two stops the first may be in the
/// last paragraph of a list, where the second is directly behind it.
int Layout::startBefore(int offset) const {
    int start = std::max(0, document_.getFirstPageGeneratorPos());
    for (int stops = 0; stops < 2; ++stops) {
        offset = document_.getNearestStop(offset, StopSide::Before);
        if (const auto range = document_.getRangeAround(TextUnit::Paragraph, offset--))
            start = std::max(start, range->start);
    }
    return start;
}

int Layout::rowOf(int offset) const {
    const auto shows = [&](const Line* row) {
        return std::any_of(row->begin(), row->end(),
                           [&](const Cell& cell) { return cell.offset >= offset; });
    };
    const auto row = std::find_if(rows_.begin(), rows_.end(), shows);
    return static_cast<int>(row == rows_.end() ? rows_.size() - 1 : row - rows_.begin());
}
