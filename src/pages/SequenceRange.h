#pragma once

#include <optional>

class XmlText;

/// Where the page sequences stand in a text: between the page masters and the end of the root.
struct SequenceRange {
    int start; ///< behind the layout master set
    int end;   ///< the root's closing tag, excluded

    /// None where the root has no layout master set.
    static std::optional<SequenceRange> in(const XmlText& text);
};
