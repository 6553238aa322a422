#include "text/TextView.h"

#include "foundation/UnitSearch.h"
#include "text/store/TextStore.h"

#include <algorithm>

namespace {

/// What is not found is -1 there.
std::size_t foundAt(int position) noexcept {
    return position < 0 ? TextView::npos : static_cast<std::size_t>(position);
}

} // namespace

TextView::TextView(const TextStore& store) noexcept
    : window_(&store), size_(static_cast<std::uint32_t>(store.length())) {}

const TextStore& TextView::store() const noexcept {
    return static_cast<const TextStore&>(*window_);
}

template <typename Find>
std::size_t TextView::findInStore(std::size_t start, std::size_t end, Find find) const noexcept {
    const int found =
        start < end ? find(static_cast<int>(start_ + start), static_cast<int>(start_ + end)) : -1;
    return found < 0 ? npos : static_cast<std::size_t>(found) - start_;
}

std::size_t TextView::find(wchar_t unit, std::size_t start) const noexcept {
    if (!window_)
        return foundAt(Core::UnitSearch::forward(plain(), unit, start));
    return findInStore(start, size_,
                       [&](int from, int to) { return store().find(unit, from, to); });
}

std::size_t TextView::findEither(wchar_t a, wchar_t b, std::size_t start) const noexcept {
    if (!window_)
        return foundAt(Core::UnitSearch::forwardEither(plain(), a, b, start));
    return findInStore(start, size_,
                       [&](int from, int to) { return store().findEither(a, b, from, to); });
}

std::size_t TextView::rfind(wchar_t unit, std::size_t start) const noexcept {
    if (!window_)
        return foundAt(Core::UnitSearch::backward(plain(), unit, start));
    const std::size_t end = start < size_ ? start + 1 : size_;
    return findInStore(0, end, [&](int from, int to) { return store().rFind(unit, from, to); });
}

std::size_t TextView::find(TextView what, std::size_t start) const noexcept {
    if (!window_ && !what.window_)
        return foundAt(Core::UnitSearch::forward(plain(), what.plain(), start));
    if (what.empty())
        return start < size_ ? start : npos;
    for (std::size_t at = find(what.front(), start); at != npos && what.size_ <= size_ - at;
         at = find(what.front(), at + 1))
        if (substr(at, what.size_) == what)
            return at;
    return npos;
}

std::size_t TextView::rfind(TextView what, std::size_t start) const noexcept {
    if (!window_ && !what.window_)
        return foundAt(Core::UnitSearch::backward(plain(), what.plain(), start));
    if (empty() || what.size_ > size_)
        return npos;
    start = std::min<std::size_t>(start, what.empty() ? size_ - 1 : size_ - what.size_);
    if (what.empty())
        return start;
    for (std::size_t at = rfind(what.front(), start); at != npos;
         at = at == 0 ? npos : rfind(what.front(), at - 1))
        if (substr(at, what.size_) == what)
            return at;
    return npos;
}

std::strong_ordering TextView::compareByUnit(TextView other) const noexcept {
    const std::size_t both = std::min(size_, other.size_);
    for (std::size_t at = 0; at < both; ++at)
        if ((*this)[at] != other[at])
            return (*this)[at] <=> other[at];
    return size_ <=> other.size_;
}

std::wstring& operator+=(std::wstring& text, TextView more) {
    if (!more.window_)
        return text.append(more.plain());
    const int start = static_cast<int>(more.start_);
    text.reserve(text.size() + more.size_);
    more.store().copyTo(text, start, start + static_cast<int>(more.size_));
    return text;
}
