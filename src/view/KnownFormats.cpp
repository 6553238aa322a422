#include "view/KnownFormats.h"

#include "document/Document.h"

#include <cstddef>
#include <utility>

namespace {

/// The start tag, but for its end; empty where it has none.
TextView tagOf(const XmlText& text, int element) {
    const int end = text.tagEnd(element);
    return end < 0 ? TextView() : text.view(element, end);
}

bool isInlineTag(const Document& document, int element) {
    return document.names.isInline(document.text().tagName(element));
}

} // namespace

KnownFormats::KnownFormats(const Document& document, int element, std::vector<Format> formats)
    : formats_(std::move(formats)) {
    const XmlText& text = document.text();
    for (; element >= 0; element = text.elementAround(element))
        levels_.push_back({Core::String(tagOf(text, element)), isInlineTag(document, element)});
}

bool KnownFormats::areOf(const Document& document, int element) const {
    const XmlText& text = document.text();
    std::size_t level = 0;
    for (; element >= 0 && level < levels_.size(); ++level, element = text.elementAround(element)) {
        const TextView tag = tagOf(text, element);
        if (tag.empty() || tag != levels_[level].tag ||
            isInlineTag(document, element) != levels_[level].isInline)
            return false;
    }
    return element < 0 && level == levels_.size();
}
