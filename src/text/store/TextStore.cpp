#include "text/store/TextStore.h"

#include "text/store/StoreWork.h"

#include <algorithm>
#include <cassert>
#include <new>
#include <utility>

namespace {

/// Whether all holds that is to hold of a text that is not long, as far as there is memory to look.
[[maybe_unused]] bool isSound(const TextTree& tree) noexcept try {
    constexpr int mostToCheck = 4096;
    return tree.measure().length > mostToCheck || tree.fault().empty();
} catch (const std::bad_alloc&) {
    return true;
}

} // namespace

TextStore& TextStore::operator=(const TextStore& other) {
    return *this = TextStore(other);
}

TextStore& TextStore::operator=(TextStore&& other) noexcept {
    tree_ = std::move(other.tree_);
    forget();
    other.forget();
    return *this;
}

void TextStore::moveTo(int position) const noexcept {
    ++StoreWork::ofThisThread().chunks;
    const TextTree::Place place = placeOf(position);
    const TextUnits& units = place.chunk->units();
    chunk_ = place.chunk;
    bytes_ = units.bytes();
    isWide_ = units.isWide();
    start_ = place.start;
    end_ = place.start + units.size();
}

TextTree::Place TextStore::placeOf(int position) const noexcept {
    const auto known =
        std::find_if(recent_.begin(), recent_.end(), [position](const TextTree::Place& place) {
            return place.chunk && place.start <= position &&
                   position < place.start + place.chunk->size();
        });
    if (known != recent_.end())
        return *known;
    oldest_ = (oldest_ + 1) % recent_.size();
    return recent_[oldest_] = tree_.chunkAt(position);
}

const TextChunk& TextStore::chunkAt(int position) const {
    if (position < start_ || position >= end_)
        moveTo(position);
    return *chunk_;
}

void TextStore::forget() noexcept {
    start_ = end_ = 0;
    recent_ = {};
}

void TextStore::copyTo(std::wstring& text, int start, int end) const {
    for (int next = start; start < end; start = next) {
        const TextUnits& units = chunkAt(start).units();
        next = std::min(end, end_);
        units.copyTo(text, start - start_, next - start_);
    }
}

template <typename Find>
int TextStore::findForward(int start, int end, Find find) const {
    for (int next = start; start < end; start = next) {
        const TextUnits& units = chunkAt(start).units();
        next = std::min(end, end_);
        const int found = find(units, start - start_, next - start_);
        if (found >= 0)
            return start_ + found;
    }
    return -1;
}

int TextStore::find(wchar_t unit, int start, int end) const {
    return findForward(start, end, [unit](const TextUnits& units, int from, int to) {
        return units.find(unit, from, to);
    });
}

int TextStore::findEither(wchar_t a, wchar_t b, int start, int end) const {
    return findForward(start, end, [a, b](const TextUnits& units, int from, int to) {
        const int first = units.find(a, from, to);
        const int other = units.find(b, from, first < 0 ? to : first);
        return other < 0 ? first : other;
    });
}

int TextStore::rFind(wchar_t unit, int start, int end) const {
    while (start < end) {
        const TextUnits& units = chunkAt(end - 1).units();
        const int first = std::max(start, start_);
        const int found = units.rFind(unit, first - start_, end - start_);
        if (found >= 0)
            return start_ + found;
        end = first;
    }
    return -1;
}

void TextStore::replace(int start, int count, std::wstring_view with) {
    forget();
    tree_.replace(start, count, with);
    assert(isSound(tree_));
}

// Nearly all that is asked for lies in the chunk that is read.

int TextStore::markFrom(int position, MarkKinds kinds) const {
    if (position >= length())
        return -1;
    const MarkupMark* const near = chunkAt(position).markFrom(position - start_, kinds);
    return near ? start_ + near->at : tree_.markFrom(end_, kinds);
}

int TextStore::markBefore(int position, MarkKinds kinds) const {
    if (position <= 0)
        return -1;
    const MarkupMark* const near = chunkAt(position - 1).markBefore(position - start_, kinds);
    return near ? start_ + near->at : tree_.markBefore(start_, kinds);
}

int TextStore::markupAround(int position) const {
    const TextChunk& chunk = chunkAt(position);
    const std::size_t before = chunk.marksBefore(position - start_);
    if (before > 0) {
        const MarkupMark mark = chunk.marks()[before - 1];
        return isStart(mark.kind) ? start_ + mark.at : -1;
    }
    return chunk.entry().isText() ? -1 : tree_.markBefore(start_, MarkKinds::starts());
}

std::pair<int, int> TextStore::stretchAround(int position) const {
    const TextChunk& chunk = chunkAt(position);
    const std::vector<MarkupMark>& marks = chunk.marks();
    const std::size_t next = chunk.marksBefore(position - start_);
    return {next > 0 ? start_ + marks[next - 1].at + 1 : start_,
            next < marks.size() ? start_ + marks[next].at : end_ - 1};
}

int TextStore::elementAround(int position) const {
    const int end = tree_.openTagEndBefore(position + 1);
    return end < 0 ? -1 : tree_.markBefore(end, MarkKinds::starts());
}
