#include "channels/PromoText.h"

#include "document/Document.h"
#include "document/RecordedCommand.h"
#include "document/TextRewrite.h"
#include "text/Markup.h"

#include <algorithm>

using Core::String;

namespace {

/// From `start` up to but excluding `end`.
struct Stretch {
    int start;
    int end;
};

/// The elements, each with the tabs before it and a line break before these, as they stand when
/// those before it have gone. With only tabs between, neighbours are one stretch.
std::vector<Stretch> withSpacesBefore(const XmlText& text, const std::vector<int>& elements) {
    std::vector<Stretch> stretches;
    for (const int element : elements) {
        int start = element;
        for (;;) {
            while (start > 0 && text.unitAt(start - 1) == L'\t')
                --start;
            if (stretches.empty() || stretches.back().end != start)
                break;
            start = stretches.back().start;
            stretches.pop_back();
        }
        if (start > 0 && text.unitAt(start - 1) == L'\n')
            --start;
        stretches.push_back({start, text.lastOffsetOf(element) + 1});
    }
    return stretches;
}

} // namespace

std::vector<int> PromoText::in(const XmlText& text, int sequence) {
    std::vector<int> found;
    const int end = text.closingTag(sequence);
    int element = text.nextNamed(sequence, L"qf:trans-promo");
    while (element >= 0 && element < end) {
        const int closing = text.closingTag(element);
        if (closing < 0)
            break;
        found.push_back(element);
        element = text.nextNamed(closing, L"qf:trans-promo");
    }
    return found;
}

String PromoText::markupIn(const XmlText& text, int sequence) {
    String markup;
    for (const int element : in(text, sequence))
        markup += text.markupOf(element);
    return markup;
}

std::set<String> PromoText::idsBeside(const XmlText& text, int sequence) {
    const std::vector<int> places = in(text, sequence);
    std::set<String> ids;
    for (int tag = text.root(), end = -1; tag >= 0; tag = text.nextTag(end + 1)) {
        const bool isPlace = std::binary_search(places.begin(), places.end(), tag);
        end = isPlace ? text.lastOffsetOf(tag) : text.tagEnd(tag + 1);
        if (end < 0)
            break;
        if (isPlace || text.closingAt(tag))
            continue;
        for (int at = text.nextAttribute(tag); at >= 0; at = text.nextAttribute(at))
            if (XmlScan::localName(text.attributeName(at)) == L"id")
                ids.insert(Markup::unescaped(text.attributeValue(at)));
    }
    return ids;
}

void PromoText::removeAll(Document& document, int sequence) {
    const std::vector<int> elements = in(document.text(), sequence);
    if (elements.empty())
        return;
    carryOut(document, [&] {
        TextRewrite rewrite(document);
        for (const Stretch& stretch : withSpacesBefore(document.text(), elements)) {
            rewrite.recordCaret();
            rewrite.remove(stretch.start, stretch.end);
        }
        rewrite.apply();
    });
}
