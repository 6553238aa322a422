#include "pages/DetachedText.h"

#include "pages/TextElements.h"

#include <algorithm>

using Core::String;

namespace {

bool hasFlows(XmlText::View name) {
    return name == L"fo:page-sequence" || name == L"qfd:page-sequence-repeat";
}

} // namespace

void DetachedText::assign(const String& text) {
    text_.assign(text);
    sequences_.clear();
    staticContents_.clear();
    const int root = text_.prolog().root;
    for (const int child : TextElements::childrenOf(text_, root)) {
        if (!hasFlows(text_.tagName(child)))
            continue;
        sequences_.push_back(child);
        for (const int element : TextElements::childrenOf(text_, child, L"static-content"))
            staticContents_.push_back({element, child});
    }
    findComments();
}

DetachedText::Range DetachedText::rangeOf(int element) const {
    const int last = text_.lastOffsetOf(element);
    return last < 0 ? none : Range(element, last + 1);
}

std::size_t DetachedText::sequenceFrom(int position) const {
    return static_cast<std::size_t>(
        std::lower_bound(sequences_.begin(), sequences_.end(), position) - sequences_.begin());
}

std::vector<DetachedText::StaticContent>::const_iterator
DetachedText::staticContentFrom(int position) const {
    return std::lower_bound(
        staticContents_.begin(), staticContents_.end(), position,
        [](const StaticContent& found, int offset) { return found.element < offset; });
}

int DetachedText::pageSequenceAround(int position) const {
    if (!text_.isValid(position))
        return -1;
    const int unit = text_.unitStart(position);
    const bool atStart = text_.tagName(unit) == L"fo:page-sequence";
    const int sequence = atStart ? unit : text_.ancestor(position, L"fo:page-sequence");
    const int closing = text_.closingTag(sequence);
    return sequence >= 0 && (position < closing || sequence == closing) ? sequence : -1;
}

std::vector<int> DetachedText::complexMasters() const {
    const int set = TextElements::childOf(text_, text_.prolog().root, L"layout-master-set");
    return TextElements::childrenOf(text_, set, L"page-sequence-master");
}

void DetachedText::findComments() {
    comments_.clear();
    const auto behind = [&](int from, XmlScan::Text end) {
        const int found = text_.find(end, from);
        return found < 0 ? -1 : found + static_cast<int>(end.size());
    };
    for (int at = text_.find(L"<", 0); at >= 0;) {
        if (text_.cdataAt(at)) {
            at = behind(at, XmlScan::cdataEnd);
        } else if (text_.instructionAt(at)) {
            at = behind(at, XmlScan::instructionEnd);
        } else if (text_.commentAt(at)) {
            const int end = behind(at + 4, XmlScan::commentEnd);
            if (end >= 0)
                comments_.emplace_back(at, end - 3);
            at = end;
        } else {
            ++at;
        }
        at = text_.find(L"<", at);
    }
}

bool DetachedText::isInComment(int position) const {
    const auto behind =
        std::upper_bound(comments_.begin(), comments_.end(), position,
                         [](int offset, const Range& comment) { return offset < comment.first; });
    return behind != comments_.begin() && position <= std::prev(behind)->second;
}
