#include "document/caret/PageOrder.h"

#include "document/Document.h"

#include "document/caret/Moves.h"
#include "document/caret/Stops.h"
#include "text/XmlScan.h"

#include <algorithm>

namespace {

/// Where a part of a table stands on the page. What is neither header nor footer, such as a part
/// that is written once for each node of the data, stands with the bodies.
int rankOf(XmlScan::Text name) {
    if (name == L"fo:table-header")
        return 0;
    return name == L"fo:table-footer" ? 2 : 1;
}

} // namespace

// From stop to stop

int PageOrder::next(int from, int next) const {
    if (haveOneOrder(from, next))
        return next;
    for (int table = tableAround(from); table >= 0; table = tableAround(table)) {
        const int group = groupAround(table, from);
        if (holds(group, next))
            break;
        if (const int stop = firstStopIn(groupsBehind(table, group)); stop >= 0)
            return stop;
        from = table;
        const int end = document_.text().closingTag(table);
        next = Moves::landingRight(document_, end, Stops::next(document_, end));
    }
    return entryFromAbove(next, from);
}

int PageOrder::previous(int from, int previous) const {
    if (haveOneOrder(from, previous))
        return previous;
    for (int table = tableAround(from); table >= 0; table = tableAround(table)) {
        const int group = groupAround(table, from);
        if (holds(group, previous))
            break;
        if (const int stop = lastStopIn(groupsBefore(table, group)); stop >= 0)
            return stop;
        from = table;
        const int start = document_.text().next(table);
        previous = Moves::landingLeft(document_, start, Stops::previous(document_, start), false);
    }
    return entryFromBelow(previous, from);
}

/// A quick answer for the usual step: both stand in one element, or in one cell and there in no
/// further table.
bool PageOrder::haveOneOrder(int position, int other) const {
    if (other >= 0 && document_.text().areInOneElement(position, other))
        return true;
    const int cell = document_.text().ancestorWithin(position, L"fo:table-cell", L"fo:table");
    return cell >= 0 &&
           cell == document_.text().ancestorWithin(other, L"fo:table-cell", L"fo:table");
}

// Tables and their groups

int PageOrder::tableAround(int position) const {
    return document_.text().ancestor(position, L"fo:table");
}

/// Of the tables around the stop those that do not also hold `outside`; the outermost of them, or
/// -1 if there is none.
int PageOrder::outermostTable(int stop, int outside) const {
    int outermost = -1;
    for (int table = tableAround(stop); table >= 0 && !holds(table, outside);
         table = tableAround(table))
        outermost = table;
    return outermost;
}

/// The child of the table that holds the position; -1 if none does.
int PageOrder::groupAround(int table, int position) const {
    int child = -1;
    for (int element = document_.text().elementAround(position); element > table;
         element = document_.text().elementAround(element))
        child = element;
    return child;
}

/// The children of the table in the order of the page.
std::vector<int> PageOrder::groupsOf(int table) const {
    std::vector<int> groups;
    const int end = document_.text().closingTag(table);
    for (int child = document_.text().firstChild(table); 0 <= child && child < end;
         child = document_.text().nextTag(document_.text().behindElement(child)))
        groups.push_back(child);
    std::stable_sort(groups.begin(), groups.end(), [this](int group, int other) {
        const auto rank = [this](int at) { return rankOf(document_.text().tagName(at)); };
        return rank(group) < rank(other);
    });
    return groups;
}

std::vector<int> PageOrder::groupsBehind(int table, int group) const {
    std::vector<int> groups = groupsOf(table);
    const auto own = std::find(groups.begin(), groups.end(), group);
    return {own == groups.end() ? own : own + 1, groups.end()};
}

std::vector<int> PageOrder::groupsBefore(int table, int group) const {
    std::vector<int> groups = groupsOf(table);
    return {groups.begin(), std::find(groups.begin(), groups.end(), group)};
}

/// Whether the position lies between the tags of the element; one that is left open ends nowhere.
bool PageOrder::holds(int element, int position) const {
    if (element < 0 || position <= element)
        return false;
    const int closing = document_.text().closingTag(element);
    return closing < 0 || position <= closing;
}

// Stops in them

int PageOrder::firstStopIn(const std::vector<int>& groups) const {
    for (const int group : groups) {
        const int stop = Stops::next(document_, group);
        if (holds(group, stop))
            return entryFromAbove(stop, group);
    }
    return -1;
}

int PageOrder::lastStopIn(const std::vector<int>& groups) const {
    for (auto group = groups.rbegin(); group != groups.rend(); ++group) {
        const int stop = Stops::previous(document_, document_.text().closingTag(*group));
        if (holds(*group, stop))
            return entryFromBelow(stop, *group);
    }
    return -1;
}

/// The stop, or where it lies in a table that does not hold `outside` the one that the page shows
/// first there.
int PageOrder::entryFromAbove(int stop, int outside) const {
    const int table = outermostTable(stop, outside);
    return table < 0 ? stop : firstStopIn(groupsOf(table));
}

/// The same for the one that the page shows last.
int PageOrder::entryFromBelow(int stop, int outside) const {
    const int table = outermostTable(stop, outside);
    return table < 0 ? stop : lastStopIn(groupsOf(table));
}
