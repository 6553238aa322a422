#pragma once

#include "text/XmlScan.h"

#include <map>
#include <optional>
#include <vector>

class PrecedingTags;

/// Knows which element stands around a position, and remembers what it found out on the way. An
/// edit leaves what stands before it as it was, so that the climb from a keystroke to the root
/// finds its way known, however many siblings stand before; and a walk back over closing tags
/// looks for their start tags once, also where there are none.
class ElementMemo {
public:
    /// The innermost start tag before the position that has not been closed there; -1 if none.
    /// `tags` finds the tags of the same text.
    int around(XmlScan::Text text, int position, PrecedingTags& tags);
    /// The text has changed from the position on.
    void forgetBehind(int position);

private:
    /// A closing tag that the search has met, and how many tags it had met before.
    struct Closing {
        int tag;
        int passed;
    };

    int search(XmlScan::Text text, int position, PrecedingTags& tags);
    std::optional<int> find(int tag) const;
    void open(int element, int passed);
    void rememberFound(int element);
    void rememberAsked(int tag, int element);

    /// Far more than the tags around a caret. A walk over a whole document begins anew now and
    /// then.
    static constexpr std::size_t leastLimit = 1024;

    std::map<int, int> asked_; // the elements around tags that were asked about
    std::map<int, int> far_;   // and around some others, many tags away
    std::size_t limit_ = leastLimit;
    // Of the search
    std::vector<Closing> closed_; // what its elements ended with, while their start tags are ahead
    std::vector<int> siblings_;   // the first in front of the position, and some of the others
};
