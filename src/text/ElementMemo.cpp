#include "text/ElementMemo.h"

#include <iterator>
#include <utility>

namespace {

/// Far more than the tags around a caret. A walk over a whole document begins anew now and then.
constexpr std::size_t limit = 1024;

} // namespace

std::optional<int> ElementMemo::find(int tag) const {
    const auto known = elements_.find(tag);
    return known == elements_.end() ? std::nullopt : std::optional(known->second);
}

void ElementMemo::remember(int tag, int element) {
    if (elements_.size() >= limit) {
        // What is around the place that the walk has come to is asked for next.
        std::map<int, int> around;
        const auto keep = [&](auto known) {
            for (; known != elements_.end(); known = elements_.find(known->second))
                around.insert(*known);
        };
        keep(elements_.find(element));
        // A climb comes from the inside, so that only the last place knows its way to the root.
        if (const auto behind = elements_.upper_bound(tag); behind != elements_.begin())
            keep(std::prev(behind));
        elements_ = std::move(around);
    }
    elements_[tag] = element;
}

void ElementMemo::forgetBehind(int position) {
    elements_.erase(elements_.upper_bound(position), elements_.end());
}
