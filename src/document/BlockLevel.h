#pragma once

#include "text/XmlText.h"

#include <algorithm>
#include <array>

constexpr std::array<XmlScan::Text, 6> blockLevelNames{
    L"fo:block", L"fo:block-container",   L"fo:list-block",
    L"fo:table", L"fo:table-and-caption", L"qf:form"};

/// Whether a tag stands at the position that begins a line and ends one.
inline bool isBlockLevelTag(const XmlText& text, int position) {
    XmlScan::Text name = text.tagName(position);
    if (name.starts_with(L'/'))
        name.remove_prefix(1);
    return std::find(blockLevelNames.begin(), blockLevelNames.end(), name) != blockLevelNames.end();
}
