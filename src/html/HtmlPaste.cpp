// HTML that is pasted.

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "editing/clipboard/Paste.h"
#include "html/HtmlReader.h"

using Core::String;

void EditableDocumentBuffer::setHtmlParser(const SmartPtr<HtmlParser>& parser) {
    document_->htmlParser = parser;
}

bool EditableDocumentBuffer::pasteHtml(const String& html) {
    Document& document = *document_;
    const HtmlParser& parser = *document.htmlParser; // raises before anything has changed
    return Paste::markup(document, HtmlReader::read(parser, html));
}
