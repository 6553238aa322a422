#include "text/store/TextUnits.h"

#include "text/store/StoreWork.h"

#include <algorithm>

void TextUnits::reserve(int more, bool isWide) {
    const auto size = static_cast<std::size_t>(size_);
    if (isWide && !isWide_) {
        std::vector<unsigned char> narrow;
        narrow.reserve((size + static_cast<std::size_t>(more)) * sizeof(char16_t));
        narrow.swap(bytes_);
        bytes_.resize(size * sizeof(char16_t));
        for (std::size_t at = 0; at < size; ++at)
            putWide(at, narrow[at]);
        isWide_ = true;
    }
    bytes_.reserve((size + static_cast<std::size_t>(more)) * (isWide_ ? sizeof(char16_t) : 1));
}

void TextUnits::putWide(std::size_t at, wchar_t unit) {
    const auto narrow = static_cast<char16_t>(unit);
    std::memcpy(bytes_.data() + at * sizeof narrow, &narrow, sizeof narrow);
}

void TextUnits::append(std::wstring_view units) {
    StoreWork::ofThisThread().units += static_cast<int>(units.size());
    reserve(static_cast<int>(units.size()), std::any_of(units.begin(), units.end(), isWideUnit));
    if (isWide_) {
        bytes_.resize((static_cast<std::size_t>(size_) + units.size()) * sizeof(char16_t));
        for (std::size_t at = 0; at < units.size(); ++at)
            putWide(static_cast<std::size_t>(size_) + at, units[at]);
    } else {
        for (const wchar_t unit : units)
            bytes_.push_back(static_cast<unsigned char>(unit));
    }
    size_ += static_cast<int>(units.size());
}

bool TextUnits::isWideIn(int start, int end) const {
    while (isWide_ && start < end && !isWideUnit((*this)[start]))
        ++start;
    return isWide_ && start < end;
}

void TextUnits::append(const TextUnits& units, int start, int end) {
    if (start == end)
        return;
    reserve(end - start, units.isWideIn(start, end));
    if (isWide_ != units.isWide_) {
        std::wstring widened;
        units.copyTo(widened, start, end);
        append(widened);
        return;
    }
    StoreWork::ofThisThread().units += end - start;
    const auto unitSize = static_cast<std::ptrdiff_t>(isWide_ ? sizeof(char16_t) : 1);
    bytes_.insert(bytes_.end(), units.bytes_.begin() + start * unitSize,
                  units.bytes_.begin() + end * unitSize);
    size_ += end - start;
}

bool TextUnits::canReplace(int at, int count, std::wstring_view with) const {
    return isWide_ ? !isWideIn(at, at + count) : std::none_of(with.begin(), with.end(), isWideUnit);
}

void TextUnits::replace(int at, int count, std::wstring_view with) {
    const std::size_t unitSize = isWide_ ? sizeof(char16_t) : 1;
    const auto start = static_cast<std::size_t>(at);
    const auto removed = static_cast<std::size_t>(count);
    const auto first = bytes_.begin() + static_cast<std::ptrdiff_t>(start * unitSize);
    if (with.size() > removed)
        bytes_.insert(first, (with.size() - removed) * unitSize, 0);
    else
        bytes_.erase(first,
                     first + static_cast<std::ptrdiff_t>((removed - with.size()) * unitSize));
    size_ += static_cast<int>(with.size()) - count;
    StoreWork::ofThisThread().units += size_ - at;
    for (std::size_t i = 0; i < with.size(); ++i) {
        if (isWide_)
            putWide(start + i, with[i]);
        else
            bytes_[start + i] = static_cast<unsigned char>(with[i]);
    }
}

void TextUnits::copyTo(std::wstring& text, int start, int end) const {
    for (int at = start; at < end; ++at)
        text += (*this)[at];
}

int TextUnits::find(wchar_t unit, int start, int end) const {
    if (!isWide_) {
        if (isWideUnit(unit) || start >= end)
            return -1;
        const void* const found =
            std::memchr(bytes_.data() + start, unit, static_cast<std::size_t>(end - start));
        return found ? static_cast<int>(static_cast<const unsigned char*>(found) - bytes_.data())
                     : -1;
    }
    while (start < end && (*this)[start] != unit)
        ++start;
    return start < end ? start : -1;
}

int TextUnits::rFind(wchar_t unit, int start, int end) const {
    while (start < end && (*this)[end - 1] != unit)
        --end;
    return start < end ? end - 1 : -1;
}
