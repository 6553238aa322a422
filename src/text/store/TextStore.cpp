#include "text/store/TextStore.h"

#include <algorithm>
#include <utility>

TextStore& TextStore::operator=(const TextStore& other) {
    tree_ = other.tree_;
    read_ = {};
    return *this;
}

TextStore& TextStore::operator=(TextStore&& other) noexcept {
    tree_ = std::move(other.tree_);
    read_ = {};
    other.read_ = {};
    return *this;
}

const TextStore::Read& TextStore::read(int position) const {
    if (position < read_.start || position >= read_.end) {
        const TextTree::Place place = tree_.chunkAt(position);
        const TextUnits& units = place.chunk->units();
        read_ = {place.chunk, units.bytes(), place.start, place.start + units.size(),
                 units.isWide()};
    }
    return read_;
}

void TextStore::copyTo(std::wstring& text, int start, int end) const {
    for (int next = start; start < end; start = next) {
        const Read& here = read(start);
        next = std::min(end, here.end);
        here.chunk->units().copyTo(text, start - here.start, next - here.start);
    }
}

template <typename Find>
int TextStore::findForward(int start, int end, Find find) const {
    for (int next = start; start < end; start = next) {
        const Read& here = read(start);
        next = std::min(end, here.end);
        const int found = find(here.chunk->units(), start - here.start, next - here.start);
        if (found >= 0)
            return here.start + found;
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
        const Read& here = read(end - 1);
        const int first = std::max(start, here.start);
        const int found = here.chunk->units().rFind(unit, first - here.start, end - here.start);
        if (found >= 0)
            return here.start + found;
        end = first;
    }
    return -1;
}

void TextStore::replace(int start, int count, std::wstring_view with) {
    read_ = {};
    tree_.replace(start, count, with);
}

int TextStore::markupAround(int position) const {
    const Read& here = read(position);
    const TextChunk& chunk = *here.chunk;
    const std::size_t before = chunk.marksBefore(position - here.start);
    if (before > 0) {
        const MarkupMark mark = chunk.marks()[before - 1];
        return mark.isStart() ? here.start + mark.at : -1;
    }
    return chunk.entry().isText() ? -1 : tree_.markupStartBefore(here.start);
}

int TextStore::elementAround(int position) const {
    const int end = tree_.openTagEndBefore(position + 1);
    return end < 0 ? -1 : tree_.markupStartBefore(end);
}
