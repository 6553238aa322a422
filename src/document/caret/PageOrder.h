#pragma once

#include <vector>

class Document;

/// The order in which a page shows the stops. It differs from the order of the text in tables: the
/// page shows the headers, the bodies and the footers, while in the text the footer stands before
/// the bodies.
///
/// Each question is answered from the neighbour in the text, given by the walk or the move that
/// asks; the answer is that neighbour where page and text have one order.
class PageOrder {
public:
    explicit PageOrder(const Document& document) : document_(document) {}

    /// The stop that the page shows behind or before the stop `from`, which in the text is `next`
    /// or `previous`, or -1; -1 if there is none.
    int next(int from, int next) const;
    int previous(int from, int previous) const;

private:
    bool haveOneOrder(int position, int other) const;
    int tableAround(int position) const;
    int outermostTable(int stop, int outside) const;
    int groupAround(int table, int position) const;
    std::vector<int> groupsOf(int table) const;
    std::vector<int> groupsBehind(int table, int group) const;
    std::vector<int> groupsBefore(int table, int group) const;
    bool holds(int element, int position) const;

    int firstStopIn(const std::vector<int>& groups) const;
    int lastStopIn(const std::vector<int>& groups) const;
    int entryFromAbove(int stop, int outside) const;
    int entryFromBelow(int stop, int outside) const;

    const Document& document_;
};
