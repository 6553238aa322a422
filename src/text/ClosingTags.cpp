#include "text/ClosingTags.h"

#include <algorithm>

using XmlScan::Text;

namespace {

/// To pass so many tags again is cheaper than to remember them.
constexpr int few = 16;

} // namespace

int ClosingTags::find(Text text, int element) {
    if (!XmlScan::openingAt(text, element))
        return XmlScan::selfClosingAt(text, element) ? XmlScan::closingTag(text, element) : -1;
    if (const auto known = far_.find(element); known != far_.end())
        return known->second;
    const Text name = XmlScan::tagName(text, element);
    return name.empty() ? -1 : scan(text, element, name);
}

/// Goes on from tag to tag, and over an element of the same name that is known as one.
int ClosingTags::scan(Text text, int element, Text name) {
    opened_.assign(1, {element, 0});
    int passed = 0;
    for (int at = element; at >= 0; ++passed) {
        at = XmlScan::nextTag(text, XmlScan::stepForward(text, at));
        const Text found = XmlScan::tagName(text, at);
        const bool isClosing = found.starts_with(L'/') && found.substr(1) == name;
        if ((!isClosing && found != name) || XmlScan::selfClosingAt(text, at))
            continue;
        if (isClosing) {
            close(text, at, passed);
            if (opened_.empty())
                return at;
        } else if (const auto known = far_.find(at); known != far_.end()) {
            at = known->second;
        } else {
            opened_.push_back({at, passed});
        }
    }
    for (const Opening& unclosed : opened_)
        far_[unclosed.tag] = -1;
    read_ = static_cast<int>(text.size());
    return -1;
}

/// The scan has met the closing tag of what was opened last.
void ClosingTags::close(Text text, int tag, int passed) {
    const Opening opening = opened_.back();
    opened_.pop_back();
    if (passed - opening.passed <= few)
        return;
    far_[opening.tag] = tag;
    const int end = XmlScan::tagEnd(text, tag + 1);
    read_ = std::max(read_, end < 0 ? static_cast<int>(text.size()) : end);
}

/// A closing tag is that of all elements around it, so that nothing can be known any more.
void ClosingTags::forgetFrom(int position) noexcept {
    if (position > read_)
        return;
    far_.clear();
    read_ = -1;
}
