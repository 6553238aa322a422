#include "pages/SequenceRange.h"

#include "text/RootChildren.h"

std::optional<SequenceRange> SequenceRange::in(const XmlText& text) {
    const int masters = RootChildren::named(text, L"fo:layout-master-set");
    const int closing = text.closingTag(masters);
    if (closing < 0)
        return std::nullopt;
    return SequenceRange{text.tagEnd(closing) + 1, text.lastTag()};
}
