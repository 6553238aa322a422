// Page sequences for the pages on which headers, footers and side regions are edited.

#include "pages/SequenceForEditing.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/NamespaceBinding.h"
#include "document/PageSequences.h"
#include "document/RecordedCommand.h"
#include "document/caret/Moves.h"
#include "pages/PracticePages.h"
#include "pages/TextElements.h"

#include <utility>

using Core::String;

namespace {

/// What stands before the last flow of a stretch, without those before it, and what stands behind.
struct AroundFlows {
    String before;
    String behind;
};

/// Of what stands in the sequence, from the position on.
AroundFlows aroundFlows(const XmlText& text, int from, int sequence) {
    const int end = text.closingTag(sequence);
    AroundFlows around;
    int copied = from;
    for (int flow = text.nextNamed(sequence, L"fo:flow"); flow >= 0 && flow < end;
         flow = text.nextNamed(text.closingTag(flow), L"fo:flow")) {
        around.before += text.slice(copied, flow);
        copied = text.behindElement(flow);
    }
    String& rest = copied == from ? around.before : around.behind;
    rest += text.slice(copied, end);
    return around;
}

/// Where the element's line begins, the line feed before it included, if it is indented by tabs
/// only.
int withIndent(const XmlText& text, int element) {
    int start = element;
    while (start > 0 && text.unitAt(start - 1) == L'\t')
        --start;
    return start > 0 && text.unitAt(start - 1) == L'\n' ? start - 1 : start;
}

void removeOne(Document& document, int staticContent) {
    const int start = withIndent(document.text(), staticContent);
    const int last = document.text().lastOffsetOf(staticContent);
    if (last < 0)
        return;
    document.recordCaret();
    document.recordDeletion(start, document.removeUnrecorded(start, last));
}

/// From the last to the first, so that those to come stay where they are.
void removeAll(Document& document, int sequence) {
    const std::vector<int> found =
        TextElements::childrenOf(document.text(), sequence, L"static-content");
    document.recordCaret();
    for (auto it = found.rbegin(); it != found.rend(); ++it)
        removeOne(document, *it);
    Moves::outOfMarkup(document);
    document.recordCaret();
}

} // namespace

int SequenceForEditing::at(const Document& document, int index) {
    const XmlText& text = document.text();
    const int sequence = PageSequences::at(document, index);
    const bool isElement = text.openingAt(sequence) && text.closingTag(sequence) >= 0;
    return isElement && text.tagName(sequence) != L"qf:insert-document" ? sequence : -1;
}

int SequenceForEditing::placeOfStaticContents(const XmlText& text, int sequence) {
    const int flow = TextElements::childOf(text, sequence, L"flow");
    if (flow >= 0)
        return flow;
    const std::vector<int> children = TextElements::childrenOf(text, sequence);
    const bool opensWithOptions =
        !children.empty() &&
        XmlScan::localName(text.tagName(children.front())) == L"printing-options";
    return opensWithOptions ? text.behindElement(children.front()) : text.next(sequence);
}

String SequenceForEditing::whole(const Document& document, int index, const String& master,
                                 const String& flowName) {
    const int sequence = at(document, index);
    if (sequence < 0)
        return {};
    const XmlText& text = document.text();
    const AroundFlows kept = aroundFlows(text, sequence, sequence);
    String page = kept.before + PracticePages::lockedFlow(flowName, master) + kept.behind +
                  text.slice(text.closingTag(sequence), text.lastOffsetOf(sequence) + 1);
    PracticePages::changeMasterReference(page, master);
    return page;
}

String SequenceForEditing::contentWithFlow(const Document& document, int index,
                                           const String& flow) {
    const int sequence = at(document, index);
    if (sequence < 0)
        return {};
    const XmlText& text = document.text();
    const AroundFlows kept = aroundFlows(text, text.next(sequence), sequence);
    return kept.before + flow + kept.behind;
}

bool SequenceForEditing::removeStaticContents(Document& document, int index) {
    const int sequence = at(document, index);
    return sequence >= 0 && carryOut(document, [&] { removeAll(document, sequence); });
}

bool SequenceForEditing::replaceStaticContents(Document& document, int index,
                                               const String& markup) {
    const int sequence = at(document, index);
    if (sequence < 0)
        return false;
    RecordedCommand command(document);
    removeAll(document, sequence);
    const int place = placeOfStaticContents(document.text(), sequence);
    document.insertUnrecorded(place, markup);
    document.recordInsertion(place, markup);
    const bool areBound = NamespaceBinding::bind(document, place, place + markup.length());
    document.recordCaret();
    if (areBound && command.mayStand())
        return true;
    command.takeBack();
    return false;
}

String EditableDocumentBuffer::getPageSequenceForEditing(int index, const String& master,
                                                         const String& flowName) const {
    return SequenceForEditing::whole(*document_, index, master, flowName);
}

String EditableDocumentBuffer::getPageSequenceContentWithReplacedFoFlow(int index,
                                                                        const String& flow) const {
    return SequenceForEditing::contentWithFlow(*document_, index, flow);
}

void EditableDocumentBuffer::deleteStaticContentsFromPageSequence(int index) {
    SequenceForEditing::removeStaticContents(*document_, index);
}

void EditableDocumentBuffer::replaceStaticContentsFromPageSeq(int index, const String& markup) {
    SequenceForEditing::replaceStaticContents(*document_, index, markup);
}
