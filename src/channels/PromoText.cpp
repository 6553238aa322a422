#include "channels/PromoText.h"

#include "document/Document.h"
#include "document/RecordedCommand.h"

using Core::String;

namespace {

/// The first offset of the tabs before the element, and of a line break before these.
int withSpacesBefore(const XmlText& text, int element) {
    int start = element;
    while (start > 0 && text.unitAt(start - 1) == L'\t')
        --start;
    return start > 0 && text.unitAt(start - 1) == L'\n' ? start - 1 : start;
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

void PromoText::removeAll(Document& document, int sequence) {
    const std::vector<int> elements = in(document.text(), sequence);
    if (elements.empty())
        return;
    carryOut(document, [&] {
        int removed = 0;
        for (const int asFound : elements) {
            const int element = asFound - removed;
            const int start = withSpacesBefore(document.text(), element);
            document.recordCaret();
            const String markup =
                document.removeUnrecorded(start, document.text().lastOffsetOf(element));
            document.recordDeletion(start, markup);
            removed += markup.length();
        }
    });
}
