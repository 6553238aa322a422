#pragma once

#include "foundation/Api.h"

#include <string>
#include <string_view>

namespace Core {

/// A text that is held in pieces and never changes, for which a String can stand without a copy.
/// Several threads may ask at once.
class FORME_API StoredText {
public:
    StoredText() = default;
    StoredText(const StoredText&) = delete;
    StoredText& operator=(const StoredText&) = delete;
    virtual ~StoredText() = default;

    virtual int length() const noexcept = 0;
    /// The unit at a valid position.
    virtual wchar_t unitAt(int position) const noexcept = 0;
    /// A copy of the units from `start` up to but excluding `end`, both within the text.
    virtual std::wstring slice(int start, int end) const = 0;

    /// The first match that begins at or after `start`, or the last at or before it; -1 if none.
    /// `what` is not empty.
    virtual int find(std::wstring_view what, unsigned long long start) const noexcept = 0;
    virtual int rFind(std::wstring_view what, unsigned long long start) const noexcept = 0;
};

} // namespace Core
