// The elements that make pages, by index and by offset.

#include "document/PageSequences.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "text/Vocabulary.h"

using Core::String;

int PageSequences::next(const Document& document, int position) {
    return document.text().nextNamed(position, Vocabulary::strings<Vocabulary::pageGenerators>());
}

int PageSequences::at(const Document& document, int index) {
    int generator = index < 0 ? -1 : PageSequences::next(document, 0);
    for (int i = 0; i < index && generator >= 0; ++i)
        generator = PageSequences::next(document, document.text().closingTag(generator));
    return generator;
}

int PageSequences::indexOf(const Document& document, int position) {
    const XmlText& text = document.text();
    int index = -1;
    const int root = text.outermostAncestor(position, text.rootName());
    for (int generator = PageSequences::next(document, root);
         generator >= 0 && generator <= position;
         generator = PageSequences::next(document, text.closingTag(generator)))
        ++index;
    return index;
}

int PageSequences::around(const Document& document, int position) {
    const int sequence = document.text().ancestor(position, L"fo:page-sequence");
    return sequence >= 0 ? sequence
                         : document.text().ancestor(position, L"qfd:page-sequence-repeat");
}

int PageSequences::firstFlowOf(const Document& document, int generator) {
    const int flow = document.text().nextNamed(generator, L"fo:flow");
    return flow < document.text().closingTag(generator) ? flow : -1;
}

bool PageSequences::isInStaticContent(const Document& document, int position,
                                      const String& flowName) {
    const int content = document.text().staticContentAround(position);
    return content >= 0 &&
           (flowName.empty() ||
            Attributes::of(document, content).getPropertyValue(L"fo:flow-name") == flowName);
}

int EditableDocumentBuffer::getNextPageSeq(int position) const {
    return PageSequences::next(*document_, position);
}

int EditableDocumentBuffer::getPageSequencePosition(int index) const {
    return PageSequences::at(*document_, index);
}

int EditableDocumentBuffer::getPageSequenceIdxFromPos(int position) const {
    return PageSequences::indexOf(*document_, position);
}

int EditableDocumentBuffer::getPageSeqPosFrom(int position) const {
    return PageSequences::around(*document_, position);
}

int EditableDocumentBuffer::getCurrentPageSequenceIdx() const {
    const Document& document = *document_;
    return PageSequences::indexOf(document, PageSequences::around(document, document.caret()));
}
