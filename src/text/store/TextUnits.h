#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

/// Few units of text, a byte each, or two bytes where one of them needs two or did when it was put
/// to the others.
class TextUnits {
public:
    TextUnits() = default;
    explicit TextUnits(std::wstring_view units) { append(units); }

    static bool isWideUnit(wchar_t unit) { return unit > 0xFF; }
    int size() const { return size_; }
    bool isWide() const { return isWide_; }
    const unsigned char* bytes() const { return bytes_.data(); }
    wchar_t operator[](int at) const {
        return isWide_ ? wideUnitAt(bytes_.data(), at) : bytes_[static_cast<std::size_t>(at)];
    }
    static wchar_t wideUnitAt(const unsigned char* bytes, int at) {
        char16_t unit;
        std::memcpy(&unit, bytes + static_cast<std::size_t>(at) * sizeof unit, sizeof unit);
        return unit;
    }

    void append(std::wstring_view units);
    /// Those from `start` up to but excluding `end` of others.
    void append(const TextUnits& units, int start, int end);
    /// Whether others can take the place of `count` from `at` on without another width for all.
    bool canReplace(int at, int count, std::wstring_view with) const;
    void replace(int at, int count, std::wstring_view with);
    /// The units put at the end of a text.
    void copyTo(std::wstring& text, int start, int end) const;

    /// The first or the last match from `start` up to but excluding `end`; -1 if none.
    int find(wchar_t unit, int start, int end) const;
    int rFind(wchar_t unit, int start, int end) const;

private:
    /// Makes room for so many more, as wide as all of them then are.
    void reserve(int more, bool isWide);
    bool isWideIn(int start, int end) const;
    void putWide(std::size_t at, wchar_t unit);

    std::vector<unsigned char> bytes_;
    int size_ = 0;
    bool isWide_ = false;
};
