#include "text/torn/MarkupMemo.h"

#include <algorithm>

namespace {

/// A scan over so much costs less than a command.
constexpr int distance = 256;

} // namespace

int MarkupMemo::around(XmlScan::Text text, int position) {
    const XmlScan::Text before = XmlScan::slice(text, 0, position);
    const auto behind = std::lower_bound(starts_.begin(), starts_.end(), position);
    const int last = position > 0 ? brackets_.last(text, position - 1) : -1;
    int at = behind == starts_.begin() ? XmlScan::find(before, L'<', 0) : *(behind - 1);
    while (0 <= at && at <= last) {
        remember(at);
        const int end = XmlScan::unitEnd(text, at);
        if (end < 0 || end > position)
            return at;
        at = end > last ? -1 : XmlScan::find(before, L'<', end);
    }
    return -1;
}

void MarkupMemo::remember(int markup) {
    if (starts_.empty() || markup >= starts_.back() + distance)
        starts_.push_back(markup);
}

/// What stands directly before markup may be an entity that is complete because of it.
void MarkupMemo::forgetFrom(int position) noexcept {
    starts_.erase(std::lower_bound(starts_.begin(), starts_.end(), position), starts_.end());
    brackets_.forgetFrom(position);
}
