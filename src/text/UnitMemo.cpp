#include "text/UnitMemo.h"

#include <algorithm>

namespace {

/// What is found within so many units is not worth remembering in the place of what is far.
constexpr int leastDistance = 64;

} // namespace

int UnitMemo::last(XmlScan::Text text, int position) noexcept {
    if (found_ <= position && position <= read_)
        return found_;
    const bool isBehind = position > read_;
    const int unread = isBehind ? read_ + 1 : 0;
    int found = position;
    while (found >= unread && !isMeant_(XmlScan::unitAt(text, found)))
        --found;
    if (found < unread)
        found = isBehind ? found_ : -1;
    if (position - found >= leastDistance) {
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
