#pragma once

#include "text/XmlScan.h"

#include <map>
#include <vector>

class XmlText;

/// Finds closing tags, and remembers those that a scan found far away or not at all, so that a walk
/// over elements that are all left open reads the rest of the text once and not for each of them.
class ClosingTags {
public:
    /// As XmlScan::closingTag, of the text that this is a part of.
    int find(const XmlText& text, int element);
    /// The text has changed from the position on.
    void forgetFrom(int position) noexcept;

private:
    /// A start tag that the scan has met, and how many tags it had met before.
    struct Opening {
        int tag;
        int passed;
    };

    using Name = XmlScan::Text;
    struct Reading;

    int scan(const XmlText& text, int element);
    void close(const XmlText& text, const Opening& opening, int tag, int passed);
    int pairFrom(const XmlText& text, int element);
    void pairTags(Reading& reading, int end);
    void pairWithRest();

    std::map<int, int> far_; // by start tag
    int read_ = -1;          // the last position that these depend on
    std::vector<Opening> opened_;

    // Once an element was found to be left open, whatever its name: from where on the text has been
    // read for all names, and the closing tags without a start tag there, the first one last. Of
    // the part before, what is left open is matched with these.
    int pairedFrom_ = -1;
    std::map<Name, std::vector<int>> unmatched_;
    std::map<Name, std::vector<int>> stray_;
    std::map<Name, std::vector<Opening>> open_;
};
