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
#include "text/Markup.h"

#include <algorithm>
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

/// From `start` up to but excluding `end`.
struct Stretch {
    int start;
    int end;
};

/// What goes with the sequence's static contents: each with the tabs before it and a line feed
/// before these, as they stand when those before it are gone.
std::vector<Stretch> staticContentLines(const XmlText& text, int sequence) {
    std::vector<Stretch> gone; // apart from each other
    for (const int element : TextElements::childrenOf(text, sequence, L"static-content")) {
        const int last = text.lastOffsetOf(element);
        if (last < 0)
            break;
        int start = element;
        const auto passOverGone = [&] {
            if (!gone.empty() && gone.back().end == start) {
                start = gone.back().start;
                gone.pop_back();
            }
        };
        const auto standsBefore = [&](wchar_t unit) { return text.unitAt(start - 1) == unit; };
        passOverGone();
        while (standsBefore(L'\t')) {
            --start;
            passOverGone();
        }
        if (standsBefore(L'\n'))
            --start;
        passOverGone();
        gone.push_back({start, last + 1});
    }
    return gone;
}

/// From the last to the first, so that those to come stay where they are.
void removeAll(Document& document, int sequence) {
    const std::vector<Stretch> stretches = staticContentLines(document.text(), sequence);
    document.recordCaret();
    for (auto it = stretches.rbegin(); it != stretches.rend(); ++it) {
        document.recordCaret();
        document.recordDeletion(it->start, document.removeUnrecorded(it->start, it->end - 1));
    }
    Moves::outOfMarkup(document);
    document.recordCaret();
}

/// Whether the markup uses only prefixes that are declared. To ask this first spares a climb to the
/// root over all sequences before this one.
bool areDeclared(const String& markup, const std::set<String>& declared) {
    XmlText alone;
    alone.assign(markup);
    const std::set<String> prefixes = NamespaceBinding::unbound(alone, 0, alone.length());
    return std::all_of(prefixes.begin(), prefixes.end(), [&](const String& prefix) {
        return std::any_of(declared.begin(), declared.end(), [&](const String& declaration) {
            return declaration.startsWith(L"xmlns:" + prefix + L"=");
        });
    });
}

bool holdsFlows(const XmlText& text, int element) {
    return text.openingAt(element) && text.closingTag(element) >= 0 &&
           text.tagName(element) != L"qf:insert-document";
}

} // namespace

int SequenceForEditing::at(const Document& document, int index) {
    const int sequence = PageSequences::at(document, index);
    return holdsFlows(document.text(), sequence) ? sequence : -1;
}

std::vector<int> SequenceForEditing::all(const Document& document) {
    std::vector<int> sequences = PageSequences::all(document);
    for (int& sequence : sequences)
        if (!holdsFlows(document.text(), sequence))
            sequence = -1;
    return sequences;
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

std::set<String> SequenceForEditing::namespacesIn(const XmlText& text, int sequence) {
    std::set<String> declared = Namespaces::of(text, sequence);
    for (const String& declaration : Namespaces::of(text, text.prolog().root))
        if (!Namespaces::declares(declared, declaration))
            declared.insert(declaration);
    return declared;
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

bool SequenceForEditing::putStaticContents(Document& document, int sequence, const String& markup) {
    removeAll(document, sequence);
    const int place = placeOfStaticContents(document.text(), sequence);
    document.insertUnrecorded(place, markup);
    document.recordInsertion(place, markup);
    const bool areBound = areDeclared(markup, namespacesIn(document.text(), sequence)) ||
                          NamespaceBinding::bind(document, place, place + markup.length());
    document.recordCaret();
    return areBound;
}

bool SequenceForEditing::replaceStaticContents(Document& document, int index,
                                               const String& markup) {
    const int sequence = at(document, index);
    if (sequence < 0)
        return false;
    RecordedCommand command(document);
    if (putStaticContents(document, sequence, markup) && command.mayStand())
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
