#pragma once

#include "text/XmlScan.h"

/// Remembers the last unit of some kinds before a place. Where one types, that is the same from key
/// to key, however long the text since then has grown.
class UnitMemo {
public:
    /// The kinds must outlive the memo.
    explicit UnitMemo(XmlScan::Text kinds) : kinds_(kinds) {}

    /// The last of the units at or before a valid position; -1 if none.
    int last(XmlScan::Text text, int position) noexcept;

    /// The text has changed from the position on.
    void forgetFrom(int position) noexcept;

private:
    XmlScan::Text kinds_;
    int found_ = -1; ///< the last of the units at or before `read_`
    int read_ = -1;  ///< -1 while nothing is known
};
