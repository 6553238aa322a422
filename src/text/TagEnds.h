#pragma once

#include "text/TagQuotes.h"

#include <array>
#include <optional>

/// Finds where tags and their names end. Of a text in which they end far away, as behind a quote
/// that is left open, it keeps what it has read, so that a walk back over the starts of many such
/// tags is linear in what it passes.
class TagEnds {
public:
    /// As XmlScan::selfClosingAt and tagName.
    bool selfClosingAt(XmlScan::Text text, int position) noexcept;
    XmlScan::Text tagName(XmlScan::Text text, int position) noexcept;
    /// The text has changed.
    void forget() noexcept;

private:
    /// Where a scan from `read_` that begins in some quotes ends; -1 for nowhere, and none where
    /// that was not asked yet.
    using Ends = std::array<std::optional<int>, XmlScan::QuotesCount>;

    int tagEnd(XmlScan::Text text, int from) noexcept;
    void readBack(XmlScan::Text text, int from) noexcept;
    int nameEnd(XmlScan::Text text, int from) noexcept;

    int read_ = -1;
    Ends ends_;
    int nameRead_ = -1; // no name ends from there up to but excluding `nameEnd_`,
    int nameEnd_ = -1;  // where one does or the text
};
