#include "channels/BookmarkBuffer.h"

#include "channels/BookmarkForms.h"
#include "channels/BookmarkTree.h"
#include "document/Document.h"
#include "trees/Fragment.h"

using Xml::XmlDocument;

BookmarkBuffer::BookmarkBuffer(EditableDocumentBuffer* document)
    : DOMBasedBuffer(Document::of(document)),
      bookmarks_(std::make_unique<BookmarkTree>(Document::of(document), fragment())) {}

BookmarkBuffer::BookmarkBuffer(const BookmarkBuffer& other)
    : DOMBasedBuffer(other), bookmarks_(std::make_unique<BookmarkTree>(*other.bookmarks_)) {}

BookmarkBuffer& BookmarkBuffer::operator=(const BookmarkBuffer& other) {
    DOMBasedBuffer::operator=(other);
    bookmarks_ = std::make_unique<BookmarkTree>(*other.bookmarks_);
    return *this;
}

BookmarkBuffer::~BookmarkBuffer() = default;

SmartPtr<XmlDocument> BookmarkBuffer::getProcessedDocumentForControl() const {
    const bool hasRoot = fragment().tree() && fragment().root();
    return hasRoot ? BookmarkForms::forControl(*fragment().root()) : SmartPtr<XmlDocument>();
}

void BookmarkBuffer::getProcessedTreeForDocument(const SmartPtr<XmlDocument>& control) {
    BookmarkForms::takeFromControl(control, fragment().tree());
}

SmartPtr<XmlDocument> BookmarkBuffer::getXmlDocument() const {
    return fragment().tree();
}

void BookmarkBuffer::setXmlDocument(const SmartPtr<XmlDocument>& tree) {
    fragment().setTree(tree);
}

void BookmarkBuffer::commitChangesToEditableBuffer() {
    bookmarks_->commit(fragment());
}
