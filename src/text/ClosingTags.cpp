#include "text/ClosingTags.h"

#include "text/XmlText.h"
#include "text/torn/ReadAgain.h"

#include <algorithm>
#include <utility>

/// How far the text was read from an element on.
struct ClosingTags::Reading {
    const XmlText& text;
    int element;
    int at;
    int passed = 0;

    bool isBefore(int end) const { return at >= 0 && at < end; }
    void step() {
        at = text.nextTag(text.next(at));
        ++passed;
    }
};

int ClosingTags::find(const XmlText& text, int element) {
    if (!text.onTagStart(element) || text.closingAt(element) || text.ignoredAt(element))
        return -1;
    if (const auto known = far_.find(element); known != far_.end())
        return known->second;
    if (text.selfClosingAt(element))
        return element;
    return text.documentTypeAt(element) ? -1 : scan(text, element);
}

/// Goes on from tag to tag, and over an element of the same name that is known as one.
int ClosingTags::scan(const XmlText& text, int element) {
    const Name name = text.tagName(element);
    if (name.empty())
        return -1;
    const MarkKinds kinds = MarkKinds::named(name) | MarkKinds::named(XmlScan::foRoot);
    opened_.assign(1, {element, 0});
    int passed = 0;
    for (int at = element; at >= 0; ++passed) {
        at = text.nextTagOf(kinds, text.next(at));
        if (0 <= pairedFrom_ && pairedFrom_ <= at)
            break;
        const Name found = text.tagName(at);
        const bool isClosing = found.starts_with(L'/') && found.substr(1) == name;
        if ((!isClosing && found != name) || text.selfClosingAt(at))
            continue;
        if (isClosing) {
            close(text, opened_.back(), at, passed);
            opened_.pop_back();
            if (opened_.empty())
                return at;
        } else if (const auto known = far_.find(at); known != far_.end()) {
            at = known->second;
        } else {
            opened_.push_back({at, passed});
        }
    }
    return pairFrom(text, element);
}

/// The scan has met the closing tag of what was opened there.
void ClosingTags::close(const XmlText& text, const Opening& opening, int tag, int passed) {
    if (passed - opening.passed <= ReadAgain::tags)
        return;
    far_[opening.tag] = tag;
    const int end = text.tagEnd(tag);
    read_ = std::max(read_, end < 0 ? text.length() : end);
}

/// Reads on for all names up to where that has been done. So a walk over elements that are left
/// open reads the text once, however many names they have.
int ClosingTags::pairFrom(const XmlText& text, int element) {
    const int length = text.length();
    const int known = std::exchange(pairedFrom_, -1);
    stray_.clear();
    open_.clear();
    read_ = length;
    Reading reading{text, element, element};
    pairTags(reading, known);
    if (reading.at != known) {
        unmatched_.clear();
        pairTags(reading, length);
    }
    pairWithRest();
    pairedFrom_ = element;
    return far_.emplace(element, -1).first->second;
}

void ClosingTags::pairTags(Reading& reading, int end) {
    const auto& [text, element, at, passed] = reading;
    for (; reading.isBefore(end); reading.step()) {
        const Name found = text.tagName(at);
        if (found.empty() || text.selfClosingAt(at))
            continue;
        if (!found.starts_with(L'/')) {
            open_[found].push_back({at, passed});
            continue;
        }
        std::vector<Opening>& open = open_[found.substr(1)];
        if (open.empty()) {
            stray_[found.substr(1)].push_back(at);
            continue;
        }
        close(text, open.back(), at, passed);
        if (open.back().tag == element)
            far_[element] = at;
        open.pop_back();
    }
}

void ClosingTags::pairWithRest() {
    for (auto& [name, open] : open_)
        for (std::vector<int>& rest = unmatched_[name]; !open.empty(); open.pop_back()) {
            far_[open.back().tag] = rest.empty() ? -1 : rest.back();
            if (!rest.empty())
                rest.pop_back();
        }
    for (const auto& [name, tags] : stray_)
        unmatched_[name].insert(unmatched_[name].end(), tags.rbegin(), tags.rend());
}

/// A closing tag is that of all elements around it, so that nothing can be known any more.
void ClosingTags::forgetFrom(int position) noexcept {
    if (position > read_)
        return;
    far_.clear();
    unmatched_.clear();
    read_ = pairedFrom_ = -1;
}
