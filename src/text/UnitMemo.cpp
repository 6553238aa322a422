#include "text/UnitMemo.h"

#include <algorithm>

namespace {

/// What is found within so many units is not worth remembering in the place of what is far.
constexpr int distance = 64;

int lastBetween(XmlScan::Text text, int from, int position, XmlScan::Text kinds) noexcept {
    const XmlScan::Text part = XmlScan::slice(text, from, position + 1);
    if (kinds.size() == 1) {
        const int found = XmlScan::rFind(part, kinds.front(), position - from);
        return found < 0 ? -1 : from + found;
    }
    const std::size_t found = part.find_last_of(kinds);
    return found == XmlScan::Text::npos ? -1 : from + static_cast<int>(found);
}

} // namespace

int UnitMemo::last(XmlScan::Text text, int position) noexcept {
    if (found_ <= position && position <= read_)
        return found_;
    const bool isBehind = position > read_;
    int found = lastBetween(text, isBehind ? read_ + 1 : 0, position, kinds_);
    if (found < 0 && isBehind)
        found = found_;
    if (position - found >= distance) {
        found_ = found;
        read_ = position;
    }
    return found;
}

void UnitMemo::forgetFrom(int position) noexcept {
    if (position <= found_)
        found_ = read_ = -1;
    else
        read_ = std::min(read_, position - 1);
}
