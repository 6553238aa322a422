// The selection: set from elements and paths, grown outward, and read back as text.

#include "document/caret/Selection.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/Stops.h"
#include "text/Markup.h"
#include "text/Vocabulary.h"

#include <algorithm>

using Core::String;

namespace {

/// The first and the last stop of a range.
struct StopRange {
    int first;
    int last;
};

void selectStops(Document& document, const StopRange& stops) {
    if (stops.first >= 0 && stops.last >= 0)
        document.select(stops.first, stops.last);
}

StopRange stopsOfElement(const Document& document, int element) {
    return {Stops::next(document, element),
            Stops::previous(document, document.text().behindElement(element))};
}

/// Selects the next enclosing element; the levels that mean nothing alone to a reader are passed.
void growSelection(Document& document, const String& innermostName) {
    const XmlText& text = document.text();
    int inner = text.ancestor(document.caret(), document.selectedElementName);
    document.selectedElementName = text.nameAround(inner);
    if (document.selectedElementName == L"fo:page-sequence") {
        document.selectedElementName = innermostName;
        return;
    }
    while (XmlScan::contains(Vocabulary::passedBySelection, document.selectedElementName.view())) {
        document.selectedElementName = text.parentName(inner);
        inner = text.elementAround(inner);
    }
    selectStops(document, stopsOfElement(document, text.elementAround(inner)));
}

} // namespace

int Selection::last(const Document& document) {
    return document.hasSelection() ? document.selectionEnd() - 1 : document.caret();
}

void Selection::collapse(Document& document) {
    CommandScope scope(document);
    document.endTyping();
    document.setCaret(document.caret());
}

bool Selection::coversElementNamed(const Document& document, const String& name) {
    if (!document.hasSelection() || name.empty())
        return false;
    const int element = document.text().ancestor(document.caret(), name);
    const int closing = document.text().closingTag(element);
    return Stops::next(document, element) >= document.selectionStart() &&
           Stops::previous(document, closing) <= document.selectionEnd();
}

bool Selection::isContentOfElement(const Document& document, int start, int end) {
    const XmlText& text = document.text();
    if (!text.isValid(start) || !text.isValid(end))
        return false;
    const int element = text.elementAround(start);
    // The closing tag may be far away, but nearly every question is answered without it.
    return start == text.next(element) && text.closingAt(end) && end == text.closingTag(element);
}

String Selection::pathOf(const Document& document, int position) {
    return document.text().path(position) + L"/" + document.text().nameAt(position);
}

String Selection::read(const Document& document, TextFormat format) {
    switch (format) {
    case TextFormat::Plain:
        return Selection::plainText(document);
    case TextFormat::Native:
        return Selection::nativeText(document);
    }
    return {};
}

String Selection::plainText(const Document& document) {
    return document.hasSelection()
               ? Selection::plainTextBetween(document, document.selectionStart(),
                                             document.selectionEnd())
               : String();
}

String Selection::nativeText(const Document& document) {
    return document.hasSelection() ? Markup::cutOut(document.text(), document.selectionStart(),
                                                    document.selectionEnd() - 1)
                                   : String();
}

String Selection::read(Document& document, TextFormat format, const String& path) {
    const int caret = document.caret();
    const int element = document.text().elementNamedByPath(path, caret);
    if (element < 0)
        return {};
    // Deliberate: no scope holds the notices back, and an earlier selection is lost; hosts that
    // read an element follow the caret through it.
    document.select(element, document.text().behindElement(element));
    String selected = Selection::read(document, format);
    document.setCaret(caret);
    return selected;
}

String Selection::plainTextBetween(const Document& document, int start, int end) {
    String plain;
    end = std::min(end, document.text().length());
    for (int position = start; document.text().isValid(position) && position < end;) {
        const int tag = document.text().nextTag(position);
        const int limit = tag < 0 ? end : std::min(tag, end);
        if (position < limit)
            plain += document.text().slice(position, limit);
        if (tag < 0)
            break;
        // Deliberate: the next tag counts also where the range ends in the middle of text, so that
        // a range ending in a block's text ends with a line break.
        const String name = document.text().nextTagName(limit);
        if (!document.names.isInline(name) && !document.names.closesInline(name))
            plain += L'\n';
        position = Stops::next(document, limit);
    }
    return plain;
}

int EditableDocumentBuffer::getSelectionEndIndex() const {
    return Selection::last(*document_);
}

bool EditableDocumentBuffer::offsetIsInSelection(int offset) const {
    const Document& document = *document_;
    return document.hasSelection() && document.selectionStart() <= offset &&
           offset <= document.selectionEnd();
}

void EditableDocumentBuffer::resetSelection() {
    Selection::collapse(*document_);
}

void EditableDocumentBuffer::resetSelectionOfElement() {
    Document& document = *document_;
    document.selectedElementName.clear();
}

void EditableDocumentBuffer::selectCurrentElement() {
    Document& document = *document_;
    CommandScope scope(document);
    document.endTyping();
    const int element = document.text().elementAround(document.caret());
    const int behind = document.text().behindElement(element);
    if (element >= 0 && behind >= 0)
        document.select(element, behind);
}

void EditableDocumentBuffer::selectElement(const String& path) {
    Document& document = *document_;
    CommandScope scope(document);
    document.endTyping();
    const int element = document.text().elementNamedByPath(path, document.caret());
    const int closing = document.text().closingTag(element);
    // Deliberate: unlike selectCurrentElement() this leaves the closing tag out.
    if (element >= 0 && closing >= 0)
        document.select(element, closing);
}

void EditableDocumentBuffer::selectElementStartingAtCaretPosition() {
    Document& document = *document_;
    CommandScope scope(document);
    document.endTyping();
    document.extendTo(document.text().behindElement(document.caret()));
}

void EditableDocumentBuffer::selectParent() {
    Document& document = *document_;
    CommandScope scope(document);
    document.endTyping();
    const String parentName = document.text().parentName(document.caret());
    const StopRange content =
        stopsOfElement(document, document.text().ancestor(document.caret(), parentName));
    if (!document.hasSelection() || document.selectedElementName.empty())
        document.selectedElementName = parentName;
    if (!Selection::coversElementNamed(document, document.selectedElementName) &&
        content.first != content.last) {
        document.selectedElementName = parentName;
        selectStops(document, content);
        return;
    }
    growSelection(document, parentName);
}

bool EditableDocumentBuffer::isElementSelected(const String& name) const {
    return Selection::coversElementNamed(*document_, name);
}

bool EditableDocumentBuffer::selectionIsEntireElementContent(int start, int end) const {
    return Selection::isContentOfElement(*document_, start, end);
}

String EditableDocumentBuffer::getSelectedElementPath(int position) const {
    return Selection::pathOf(*document_, position);
}

String EditableDocumentBuffer::getSelectionAs(TextFormat format) const {
    return Selection::read(*document_, format);
}

String EditableDocumentBuffer::getSelectionAsPlainText() const {
    return Selection::plainText(*document_);
}

String EditableDocumentBuffer::getSelectionAsNativeText() const {
    return Selection::nativeText(*document_);
}

String EditableDocumentBuffer::getSelectionAs(TextFormat format, const String& path) {
    return Selection::read(*document_, format, path);
}

String EditableDocumentBuffer::getPlainText(int start, int end) const {
    return Selection::plainTextBetween(*document_, start, end);
}
