#include "text/ClosingTags.h"

#include "text/ReadAgain.h"
#include "text/TagEnds.h"

#include <algorithm>
#include <utility>

using XmlScan::Text;

/// How far the text was read from an element on.
struct ClosingTags::Reading {
    Text text;
    TagEnds& ends;
    int element;
    int at;
    int passed = 0;

    bool isBefore(int end) const { return at >= 0 && at < end; }
    void step() {
        at = XmlScan::nextTag(text, XmlScan::stepForward(text, at));
        ++passed;
    }
};

int ClosingTags::find(Text text, int element, TagEnds& ends) {
    if (!XmlScan::onTagStart(text, element) || XmlScan::closingAt(text, element) ||
        XmlScan::ignoredAt(text, element))
        return -1;
    if (const auto known = far_.find(element); known != far_.end())
        return known->second;
    if (ends.selfClosingAt(text, element))
        return element;
    return XmlScan::documentTypeAt(text, element) ? -1 : scan(text, element, ends);
}

/// Goes on from tag to tag, and over an element of the same name that is known as one.
int ClosingTags::scan(Text text, int element, TagEnds& ends) {
    const Text name = ends.tagName(text, element);
    if (name.empty())
        return -1;
    opened_.assign(1, {element, 0});
    int passed = 0;
    for (int at = element; at >= 0; ++passed) {
        at = XmlScan::nextTag(text, XmlScan::stepForward(text, at));
        if (0 <= pairedFrom_ && pairedFrom_ <= at)
            break;
        const Text found = ends.tagName(text, at);
        const bool isClosing = found.starts_with(L'/') && found.substr(1) == name;
        if ((!isClosing && found != name) || ends.selfClosingAt(text, at))
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
    return pairFrom(text, element, ends);
}

/// The scan has met the closing tag of what was opened there.
void ClosingTags::close(Text text, const Opening& opening, int tag, int passed) {
    if (passed - opening.passed <= ReadAgain::tags)
        return;
    far_[opening.tag] = tag;
    const int end = XmlScan::tagEnd(text, tag + 1);
    read_ = std::max(read_, end < 0 ? static_cast<int>(text.size()) : end);
}

/// Reads on for all names up to where that has been done. So a walk over elements that are left
/// open reads the text once, however many names they have.
int ClosingTags::pairFrom(Text text, int element, TagEnds& ends) {
    const int length = static_cast<int>(text.size());
    const int known = std::exchange(pairedFrom_, -1);
    stray_.clear();
    open_.clear();
    read_ = length;
    Reading reading{text, ends, element, element};
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
    const auto& [text, ends, element, at, passed] = reading;
    for (; reading.isBefore(end); reading.step()) {
        const Text found = ends.tagName(text, at);
        if (found.empty() || ends.selfClosingAt(text, at))
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
