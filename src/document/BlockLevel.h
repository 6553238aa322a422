#pragma once

#include "text/Vocabulary.h"
#include "text/XmlText.h"

/// Whether a tag stands at the position that begins a line and ends one.
inline bool isBlockLevelTag(const XmlText& text, int position) {
    XmlScan::Text name = text.tagName(position);
    if (name.starts_with(L'/'))
        name = name.substr(1);
    return XmlScan::contains(Vocabulary::blockLevel, name);
}
