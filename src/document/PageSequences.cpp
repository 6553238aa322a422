// The elements that make pages, by index and by offset.

#include "document/PageSequences.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "text/Markup.h"
#include "text/RootChildren.h"
#include "text/Vocabulary.h"

using Core::String;

namespace {

bool isGenerator(const XmlText& text, int element) {
    return XmlScan::contains(Vocabulary::pageGenerators, text.tagName(element));
}

} // namespace

int PageSequences::next(const Document& document, int position) {
    return document.text().nextNamed(position, Vocabulary::strings<Vocabulary::pageGenerators>());
}

int PageSequences::at(const Document& document, int index) {
    const XmlText& text = document.text();
    int left = index;
    for (int child = RootChildren::first(text); child >= 0; child = RootChildren::next(text, child))
        if (isGenerator(text, child) && left-- == 0)
            return child;
    return -1;
}

std::vector<int> PageSequences::all(const Document& document) {
    const XmlText& text = document.text();
    std::vector<int> found;
    for (int child = RootChildren::first(text); child >= 0; child = RootChildren::next(text, child))
        if (isGenerator(text, child))
            found.push_back(child);
    return found;
}

int PageSequences::indexOf(const Document& document, int position) {
    const XmlText& text = document.text();
    int index = -1;
    if (text.outermostAncestor(position, text.rootName()) < 0)
        return index;
    for (int child = RootChildren::first(text); child >= 0 && child <= position;
         child = RootChildren::next(text, child))
        if (isGenerator(text, child))
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
            Markup::unescaped(
                Attributes::of(document, content).getPropertyValue(L"fo:flow-name")) == flowName);
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
