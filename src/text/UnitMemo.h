#pragma once

#include "text/XmlScan.h"

/// Remembers the last unit of a kind before a place. Where one types, that is the same from key
/// to key, however long the text since then has grown.
class UnitMemo {
public:
    using Kind = bool (*)(wchar_t) noexcept;

    explicit UnitMemo(Kind isMeant) : isMeant_(isMeant) {}

    /// The last of the units at or before a valid position; -1 if none.
    int last(XmlScan::Text text, int position) noexcept;

    /// The text has changed from the position on.
    void forgetFrom(int position) noexcept;

private:
    Kind isMeant_;
    int found_ = -1; ///< the last of the units at or before `read_`
    int read_ = -1;  ///< -1 while nothing is known
};
