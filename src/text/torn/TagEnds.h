#pragma once

#include "text/XmlScan.h"

#include <map>

/// Finds where tags and their names end. Of a text in which they end far away, as behind a quote
/// that is left open, it keeps what it has read, so that a walk over the starts of many such tags
/// is linear in what it passes.
class TagEnds {
public:
    /// As XmlScan::selfClosingAt and tagName.
    bool selfClosingAt(XmlScan::Text text, int position);
    XmlScan::Text tagName(XmlScan::Text text, int position) noexcept;
    /// The text has changed.
    void forget() noexcept;

private:
    /// From `first` on no quotes are open: a tag that a scan begins there ends at `end`, -1 for
    /// nowhere.
    struct Stretch {
        int first;
        int end;
    };

    int tagEnd(XmlScan::Text text, int from);
    int farTagEnd(XmlScan::Text text, int from);
    int nameEnd(XmlScan::Text text, int from) noexcept;

    std::map<int, Stretch> stretches_; // by their last position
    int nameRead_ = -1;                // no name ends from there up to but excluding `nameEnd_`,
    int nameEnd_ = -1;                 // where one does or the text
};
