// The caret on its way to a page sequence, a region or a reference.

#include "document/caret/Jumps.h"

#include "document/Attributes.h"
#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/PageSequences.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Moves.h"
#include "document/caret/Stops.h"
#include "text/Markup.h"
#include "text/Vocabulary.h"

#include <map>

using Core::String;
using XmlScan::Text;

namespace {

/// The first start tag of that name behind the tag at `position` and before `end`; -1 if none.
int nextTagNamed(const XmlText& text, Text name, int position, int end) {
    int tag = position;
    do
        tag = text.nextTag(text.next(tag));
    while (tag >= 0 && tag < end && text.tagName(tag) != name);
    return tag < end ? tag : -1;
}

/// An attribute as plain text; empty without it.
String plainValueOf(const Document& document, int element, const String& name) {
    return Markup::unescaped(Attributes::of(document, element).getPropertyValue(name));
}

int pageMasterNamed(const Document& document, const String& name) {
    const XmlText& text = document.text();
    int master =
        text.nextNamed(text.layoutMasterSet(), Vocabulary::strings<Vocabulary::pageMasters>());
    while (master >= 0 && plainValueOf(document, master, L"fo:master-name") != name)
        master = text.nextNamed(master, Vocabulary::strings<Vocabulary::pageMasters>());
    return master;
}

} // namespace

void Moves::toFirstFlow(Document& document) {
    CommandScope scope(document);
    const int first = Stops::next(document, 0);
    document.setCaret(Stops::nextInFlow(document, first));
}

bool Moves::toPageSequence(Document& document, int index) {
    const int flow = PageSequences::firstFlowOf(document, PageSequences::at(document, index));
    const int stop = Stops::next(document, flow);
    if (flow < 0 || stop <= flow || stop > document.text().closingTag(flow))
        return false;
    Moves::to(document, false, stop);
    return true;
}

int Jumps::firstStopInStaticContent(const Document& document, const String& flowName,
                                    int generator) {
    const int end = document.text().closingTag(generator);
    const XmlText& text = document.text();
    int content = nextTagNamed(text, L"fo:static-content", generator, end);
    while (content >= 0) {
        const int closing = document.text().closingTag(content);
        if (plainValueOf(document, content, L"fo:flow-name") == flowName) {
            const int stop = Stops::next(document, content);
            if (stop >= 0 && stop <= closing)
                return stop;
        }
        content = nextTagNamed(text, L"fo:static-content", closing, end);
    }
    return -1;
}

String Jumps::firstSideRegionOf(const Document& document, const String& masterName) {
    const XmlText& text = document.text();
    int master = pageMasterNamed(document, masterName);
    if (text.tagName(master) == L"fo:page-sequence-master") {
        const int reference =
            text.nextNamed(master, Vocabulary::strings<Vocabulary::pageMasterReferences>());
        master =
            pageMasterNamed(document, plainValueOf(document, reference, L"fo:master-reference"));
    }
    const int region = text.nextNamed(master, Vocabulary::strings<Vocabulary::sideRegions>());
    if (region < 0 || region > text.closingTag(master))
        return {};
    const String name = plainValueOf(document, region, L"fo:region-name");
    return name.empty() ? L"xsl-" + text.localNameAt(region) : name;
}

void EditableDocumentBuffer::moveCaretToFirstFoFlow() {
    document_->endTyping();
    Moves::toFirstFlow(*document_);
}

void EditableDocumentBuffer::resetCaretFromStaticContent() {
    Document& document = *document_;
    if (document.text().staticContentAround(document.caret()) >= 0)
        moveCaretToFirstFoFlow();
}

bool EditableDocumentBuffer::moveCaretToPageSequence(int index) {
    return Moves::toPageSequence(*document_, index);
}

bool EditableDocumentBuffer::moveCaretToReference(int sequenceIndex, int offset) {
    Document& document = *document_;
    if (sequenceIndex == -1)
        return false;
    document.endTyping();
    if (offset < 1)
        return Moves::toPageSequence(document, sequenceIndex);
    const int flow =
        PageSequences::firstFlowOf(document, PageSequences::at(document, sequenceIndex));
    const int start = document.text().next(flow);
    if (start < 0 || offset > document.text().closingTag(flow) - start)
        return false;
    const int target = Stops::outsideMarkup(document, start + offset);
    if (target < start || !document.isInEditable(target))
        return false;
    CommandScope scope(document);
    document.setCaret(target);
    return true;
}

void EditableDocumentBuffer::moveCaretToFirstStaticRegion() {
    Document& document = *document_;
    std::map<String, String> regions; // by the master, which many sequences can have in common
    for (int generator = PageSequences::next(document, 0); generator >= 0;
         generator = PageSequences::next(document, generator)) {
        const String master = plainValueOf(document, generator, L"fo:master-reference");
        if (regions.find(master) == regions.end())
            regions[master] = Jumps::firstSideRegionOf(document, master);
        const int stop = Jumps::firstStopInStaticContent(document, regions[master], generator);
        if (stop < 0)
            continue;
        Moves::to(document, false, stop);
        return;
    }
}

void EditableDocumentBuffer::moveCaretToStaticRegion(const String& flowName, int sequenceIndex) {
    Document& document = *document_;
    const int stop = Jumps::firstStopInStaticContent(document, flowName,
                                                     PageSequences::at(document, sequenceIndex));
    if (stop >= 0)
        Moves::to(document, false, stop);
}

int EditableDocumentBuffer::getFirstEditPosInStaticContent(const String& flowName,
                                                           int generator) const {
    return Jumps::firstStopInStaticContent(*document_, flowName, generator);
}

String EditableDocumentBuffer::getFirstPageRegionNameFromMaster(const String& masterName) const {
    return Jumps::firstSideRegionOf(*document_, masterName);
}
