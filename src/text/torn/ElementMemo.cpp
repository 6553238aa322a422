#include "text/torn/ElementMemo.h"

#include "text/torn/PrecedingTags.h"
#include "text/torn/ReadAgain.h"

#include <algorithm>
#include <iterator>
#include <utility>

using XmlScan::Text;

int ElementMemo::around(Text text, int position, PrecedingTags& tags) {
    const bool isAsked = XmlScan::onTagStart(text, position);
    const auto known = isAsked ? find(position) : std::nullopt;
    if (known)
        return *known;
    closed_.clear();
    siblings_.clear();
    const int element = search(text, position, tags);
    rememberFound(element);
    // What is around a sibling in front is around the position too.
    if (isAsked || !siblings_.empty())
        rememberAsked(isAsked ? position : siblings_.front(), element);
    return element;
}

/// Goes back from tag to tag, and over an element whose start tag is known as one.
int ElementMemo::search(Text text, int position, PrecedingTags& tags) {
    int passed = 0;
    for (int at = tags.find(text, position); at >= 0; at = tags.find(text, at), ++passed) {
        const bool isClosing = XmlScan::closingAt(text, at);
        const auto start = isClosing ? find(at) : std::nullopt;
        if (isClosing && !start) {
            closed_.push_back({at, passed});
            continue;
        }
        if (start && *start < 0)
            return -1;
        at = start.value_or(at);
        if (!isClosing && XmlScan::openingAt(text, at)) {
            if (closed_.empty())
                return at;
            open(at, passed);
        }
        if (!closed_.empty())
            continue;
        if (const auto known = find(at))
            return *known;
        if (siblings_.empty() || passed % ReadAgain::tags == 0)
            siblings_.push_back(at);
    }
    return -1;
}

/// The search has met the start tag of what was closed last.
void ElementMemo::open(int element, int passed) {
    const Closing closing = closed_.back();
    closed_.pop_back();
    if (passed - closing.passed > ReadAgain::tags)
        far_[closing.tag] = element;
}

void ElementMemo::rememberFound(int element) {
    for (const Closing& unmatched : closed_)
        far_[unmatched.tag] = -1;
    for (std::size_t sibling = 1; sibling < siblings_.size(); ++sibling)
        far_[siblings_[sibling]] = element;
}

std::optional<int> ElementMemo::find(int tag) const {
    for (const auto* const elements : {&asked_, &far_})
        if (const auto known = elements->find(tag); known != elements->end())
            return known->second;
    return std::nullopt;
}

void ElementMemo::rememberAsked(int tag, int element) {
    if (asked_.size() >= limit_) {
        // What is around the place that the walk has come to is asked for next.
        std::map<int, int> around;
        const auto keep = [&](auto known) {
            for (; known != asked_.end(); known = asked_.find(known->second))
                around.insert(*known);
        };
        keep(asked_.find(element));
        // A climb comes from the inside, so that only the last place knows its way to the root.
        if (const auto behind = asked_.upper_bound(tag); behind != asked_.begin())
            keep(std::prev(behind));
        asked_ = std::move(around);
        limit_ = std::max(leastLimit, 2 * asked_.size());
    }
    asked_[tag] = element;
}

void ElementMemo::forgetBehind(int position) {
    for (auto* const elements : {&asked_, &far_})
        elements->erase(elements->upper_bound(position), elements->end());
}
