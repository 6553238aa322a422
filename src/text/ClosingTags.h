#pragma once

#include "text/XmlScan.h"

#include <map>
#include <vector>

/// Finds closing tags, and remembers those that a scan found far away or not at all, so that a walk
/// over elements that are all left open reads the rest of the text once and not for each of them.
class ClosingTags {
public:
    /// As XmlScan::closingTag.
    int find(XmlScan::Text text, int element);
    /// The text has changed from the position on.
    void forgetFrom(int position) noexcept;

private:
    /// A start tag that the scan has met, and how many tags it had met before.
    struct Opening {
        int tag;
        int passed;
    };

    int scan(XmlScan::Text text, int element, XmlScan::Text name);
    void close(XmlScan::Text text, int tag, int passed);

    std::map<int, int> far_; // by start tag
    int read_ = -1;          // the last position that these depend on
    std::vector<Opening> opened_;
};
