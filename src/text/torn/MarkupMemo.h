#pragma once

#include "text/UnitMemo.h"

#include <vector>

/// Remembers where markup begins, now and then on the way from the start of a text. Whether an
/// offset is text or lies in a comment, only that way can tell; an edit leaves what stands before
/// it as it was, so that the way need not be gone anew for each key.
class MarkupMemo {
public:
    /// The `<` of the tag, comment, section, instruction or document type that holds the position
    /// and begins before it; -1 where text stands or markup begins.
    int around(XmlScan::Text text, int position);
    /// The text has changed from the position on.
    void forgetFrom(int position) noexcept;

private:
    void remember(int markup);

    std::vector<int> starts_;
    UnitMemo brackets_{[](wchar_t unit) noexcept { return unit == L'<'; }};
};
