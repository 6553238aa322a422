#include "document/PlainPlace.h"

#include "document/caret/Stops.h"
#include "text/Vocabulary.h"

namespace {

bool isErasable(const Document& document, int position) {
    const XmlText& text = document.text();
    return (text.isInFlow(position) || text.staticContentAround(position) >= 0) &&
           !text.isWithin(position, L"fo:list-block") &&
           !XmlScan::contains(Vocabulary::inlineHolders,
                              text.tagName(text.elementAround(position)));
}

} // namespace

void PlainPlace::note(Document& document) {
    const int caret = document.caret();
    document.knownPlace = {};
    const bool isBesideText =
        isPlainAt(document.text(), caret - 1) || isPlainAt(document.text(), caret);
    if (!isBesideText || !document.isInEditable(caret) ||
        document.text().unitStart(caret) != caret || !Stops::canHoldCaret(document, caret))
        return;
    document.knownPlace.isErasable = isErasable(document, caret);
    follow(document);
}
