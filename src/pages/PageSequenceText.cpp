// Page sequences in the document's text: what they hold, and whether they are printed duplex.

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/DocumentText.h"
#include "document/EditableDocumentBuffer.h"
#include "document/PageSequences.h"
#include "pages/SequenceRange.h"
#include "text/RootChildren.h"

using Core::String;

namespace {

constexpr XmlScan::Text printingOptions = L"qf:printing-options";

bool isDuplex(const Document& document, int options) {
    return Attributes::of(document, options).getPropertyValue(L"qf:duplex") == L"true";
}

/// The last child of the root that is a fo:page-sequence; -1 without one.
int lastSequence(const XmlText& text) {
    int last = -1;
    for (int child = RootChildren::first(text); child >= 0; child = RootChildren::next(text, child))
        if (text.tagName(child) == L"fo:page-sequence")
            last = child;
    return last;
}

} // namespace

String EditableDocumentBuffer::getFirstFlowFromPageSequence(int index) const {
    const Document& document = *document_;
    return document.text().markupOf(
        PageSequences::firstFlowOf(document, PageSequences::at(document, index)));
}

void EditableDocumentBuffer::replacePageSequence(int index, const String& xml) {
    Document& document = *document_;
    const XmlText& text = document.text();
    const int sequence = PageSequences::at(document, index);
    if (text.openingAt(sequence))
        DocumentText::replace(document, text.next(sequence), text.closingTag(sequence) - 1, xml);
}

bool EditableDocumentBuffer::pageSequenceHasPrintingOptionsOn() const {
    const Document& document = *document_;
    const int sequence = PageSequences::around(document, document.caret());
    return isDuplex(document, document.text().nextNamed(sequence, printingOptions));
}

bool EditableDocumentBuffer::pageSequenceHasPrintingOptionsOn(int index) const {
    const Document& document = *document_;
    const int sequence = PageSequences::at(document, index);
    const int options = document.text().nextNamed(sequence, printingOptions);
    return options < document.text().closingTag(sequence) && isDuplex(document, options);
}

String EditableDocumentBuffer::getAllPageSequencesWrappedInRoot() const {
    const XmlText& text = document_->text();
    const std::optional<SequenceRange> range = SequenceRange::in(text);
    const int last = lastSequence(text);
    if (!range || last < range->start)
        return {};
    const int root = text.prolog().root;
    return text.slice(root, text.next(root)) + text.slice(range->start, text.behindElement(last)) +
           L"</" + text.nameAt(root) + L">";
}
