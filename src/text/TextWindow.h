#pragma once

#include "foundation/Api.h"

#include <cstddef>
#include <cstring>

/// The part of a text held in pieces that was read last, a byte a unit or two. Nearly all that is
/// read next lies in it.
class FORME_API TextWindow {
public:
    /// The unit at a valid position of the text.
    wchar_t unitAt(int position) const noexcept {
        if (position < start_ || position >= end_)
            moveTo(position);
        const auto at = static_cast<std::size_t>(position - start_);
        if (!isWide_)
            return bytes_[at];
        char16_t unit;
        std::memcpy(&unit, bytes_ + at * sizeof unit, sizeof unit);
        return unit;
    }

protected:
    TextWindow() = default;
    TextWindow(const TextWindow&) = delete;
    TextWindow& operator=(const TextWindow&) = delete;
    ~TextWindow() = default;

    /// Has the window hold a valid position.
    virtual void moveTo(int position) const noexcept = 0;

    mutable const unsigned char* bytes_ = nullptr;
    mutable int start_ = 0;
    mutable int end_ = 0;
    mutable bool isWide_ = false;
};
