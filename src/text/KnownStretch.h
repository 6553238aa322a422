#pragma once

#include <string_view>

/// The stretch of text between two pieces of markup that was asked about last, and the element
/// around it: where one types, the same from key to key.
class KnownStretch {
public:
    bool holds(int position) const noexcept { return start_ <= position && position <= end_; }
    int element() const noexcept { return element_; }

    /// From the text at `start` to the text or the `<` at `end`, both included.
    void remember(int start, int end, int element) noexcept {
        start_ = start;
        end_ = end;
        element_ = element;
    }
    void forget() noexcept { *this = {}; }
    /// So many units from `start` on have given way to others. Text that begins no markup leaves
    /// all markup what it is.
    void follow(int start, int count, std::wstring_view with) noexcept {
        if (start > end_)
            return;
        if (start < start_ || start + count > end_ || with.find(L'<') != std::wstring_view::npos)
            forget();
        else
            end_ += static_cast<int>(with.size()) - count;
    }

private:
    int start_ = 0;
    int end_ = -1;
    int element_ = -1;
};
