#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "text/TextWindow.h"

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

class TextStore;

/// A stretch of text to read, valid until that changes: the read side of std::wstring_view, with
/// its names, but without a pointer to the units. They may be one piece of memory or those of a
/// store, and nobody who is given a view can tell.
class FORME_API TextView {
public:
    static constexpr std::size_t npos = std::wstring_view::npos;

    constexpr TextView() noexcept = default;
    constexpr TextView(std::wstring_view units) noexcept
        : units_(units.data()), size_(static_cast<std::uint32_t>(units.size())) {}
    /// A literal, whose length is known to the compiler.
    template <std::size_t Size>
    constexpr TextView(const wchar_t (&literal)[Size]) noexcept
        : units_(literal), size_(Size - 1) {}
    /// Text up to a NUL; by a template, that a literal is not taken for one.
    template <std::same_as<const wchar_t*> Pointer>
    constexpr TextView(Pointer text) noexcept : TextView(std::wstring_view(text)) {}
    TextView(const Core::String& text) : TextView(text.view()) {}
    TextView(const std::wstring& text) noexcept : TextView(std::wstring_view(text)) {}
    explicit TextView(const TextStore& store) noexcept;

    constexpr std::size_t size() const noexcept { return size_; }
    constexpr bool empty() const noexcept { return size_ == 0; }
    /// Of a position that is known to be valid; the first and the last of a text that is not empty.
    constexpr wchar_t operator[](std::size_t at) const noexcept {
        return window_ ? window_->unitAt(static_cast<int>(start_ + at)) : units_[at];
    }
    constexpr wchar_t front() const noexcept { return (*this)[0]; }
    constexpr wchar_t back() const noexcept { return (*this)[size_ - 1]; }

    /// At most `count` units from `start` on, which is at most the length.
    constexpr TextView substr(std::size_t start, std::size_t count = npos) const noexcept {
        TextView part = *this;
        if (window_)
            part.start_ += static_cast<std::uint32_t>(start);
        else
            part.units_ += start;
        part.size_ = static_cast<std::uint32_t>(std::min(count, size_ - start));
        return part;
    }
    constexpr bool starts_with(wchar_t unit) const noexcept { return !empty() && front() == unit; }
    constexpr bool starts_with(TextView what) const noexcept {
        return what.size_ <= size_ && substr(0, what.size_) == what;
    }
    constexpr bool ends_with(TextView what) const noexcept {
        return what.size_ <= size_ && substr(size_ - what.size_) == what;
    }

    /// The first match that begins at or after `start`; npos if there is none, as there never is
    /// where no unit is left.
    std::size_t find(wchar_t unit, std::size_t start = 0) const noexcept;
    std::size_t find(TextView what, std::size_t start = 0) const noexcept;
    /// The first unit at or after `start` that is one of the two.
    std::size_t findEither(wchar_t a, wchar_t b, std::size_t start = 0) const noexcept;
    /// The last match that begins at or before `start`; npos if there is none.
    std::size_t rfind(wchar_t unit, std::size_t start = npos) const noexcept;
    std::size_t rfind(TextView what, std::size_t start = npos) const noexcept;

    /// Copies.
    explicit operator Core::String() const { return Core::String(std::wstring(*this)); }
    explicit operator std::wstring() const {
        std::wstring text;
        text += *this;
        return text;
    }
    friend FORME_API std::wstring& operator+=(std::wstring& text, TextView more);

    /// Names are compared most, and those of one length differ at their ends: "fo:block" and
    /// "fo:table".
    friend constexpr bool operator==(TextView a, TextView b) noexcept {
        return a.size_ == b.size_ &&
               (a.empty() || (a.back() == b.back() && a.compare(b) == std::strong_ordering::equal));
    }
    friend constexpr std::strong_ordering operator<=>(TextView a, TextView b) noexcept {
        return a.compare(b);
    }

    class Iterator;
    constexpr Iterator begin() const noexcept;
    constexpr Iterator end() const noexcept;
    constexpr std::reverse_iterator<Iterator> rbegin() const noexcept;
    constexpr std::reverse_iterator<Iterator> rend() const noexcept;

private:
    constexpr std::wstring_view plain() const noexcept { return {units_, size_}; }
    const TextStore& store() const noexcept;
    template <typename Find>
    std::size_t findInStore(std::size_t start, std::size_t end, Find find) const noexcept;
    constexpr std::strong_ordering compare(TextView other) const noexcept {
        return window_ || other.window_ ? compareByUnit(other)
                                        : plain().compare(other.plain()) <=> 0;
    }
    std::strong_ordering compareByUnit(TextView other) const noexcept;

    const wchar_t* units_ = nullptr;     // of one piece of memory
    const TextWindow* window_ = nullptr; // or else of a store, where the view begins at `start_`
    std::uint32_t start_ = 0;
    std::uint32_t size_ = 0;
};

/// Gives the units, but no place where they stand.
class TextView::Iterator {
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = wchar_t;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = wchar_t;

    constexpr Iterator() noexcept = default;
    constexpr Iterator(TextView text, std::size_t at) noexcept : text_(text), at_(at) {}

    constexpr wchar_t operator*() const noexcept { return text_[at_]; }
    constexpr Iterator& operator++() noexcept {
        ++at_;
        return *this;
    }
    constexpr Iterator operator++(int) noexcept { return {text_, at_++}; }
    constexpr Iterator& operator--() noexcept {
        --at_;
        return *this;
    }
    constexpr Iterator operator--(int) noexcept { return {text_, at_--}; }
    /// How many units lie between.
    friend constexpr difference_type operator-(const Iterator& a, const Iterator& b) noexcept {
        return static_cast<difference_type>(a.at_) - static_cast<difference_type>(b.at_);
    }
    friend constexpr bool operator==(const Iterator& a, const Iterator& b) noexcept {
        return a.at_ == b.at_;
    }

private:
    TextView text_;
    std::size_t at_ = 0;
};

constexpr TextView::Iterator TextView::begin() const noexcept {
    return {*this, 0};
}

constexpr TextView::Iterator TextView::end() const noexcept {
    return {*this, size_};
}

constexpr std::reverse_iterator<TextView::Iterator> TextView::rbegin() const noexcept {
    return std::make_reverse_iterator(end());
}

constexpr std::reverse_iterator<TextView::Iterator> TextView::rend() const noexcept {
    return std::make_reverse_iterator(begin());
}
