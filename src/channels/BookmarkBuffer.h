#pragma once

#include "foundation/Api.h"
#include "foundation/SmartPtr.h"
#include "foundation/xml/XmlDocument.h"
#include "trees/DOMBasedBuffer.h"

#include <memory>

class BookmarkTree;
class EditableDocumentBuffer;

/// The bookmarks of a document, which a reader of the PDF sees beside the pages, for a panel that
/// shows them as a tree. In the order in which a host meets them here are:
///
/// - making one
/// - the bookmarks in a form for the host's control, and back
/// - the tree in the document's form
/// - writing it back
///
/// In the document's form a fo:bookmark stands for itself and a qfd:dynamic-bookmark for those that
/// are made from the data. The control's form has elements "bookmark" and "dynamic-bookmark" in one
/// "bookmark-tree", all without namespace. Their attributes are `title`, `id` (the id of what the
/// bookmark leads to) and `objectId` (its own); a dynamic one has `xpath`, `condition` and `sort`,
/// too. Values are plain text.
///
/// The document stays as it is until commitChangesToEditableBuffer(). Copies edit the same tree.
class FORME_API BookmarkBuffer : public DOMBasedBuffer {
public:
    /// Reads the fo:bookmark-tree in the root of the document, which must outlive this. Where there
    /// is none the start and end are -1; else getDocumentBufferEnd() is the offset behind its
    /// closing tag. Throws Xml::ParseException where it is not well formed, and
    /// NullPointerException for no document.
    explicit BookmarkBuffer(EditableDocumentBuffer* document);
    BookmarkBuffer(const BookmarkBuffer& other);
    BookmarkBuffer& operator=(const BookmarkBuffer& other);
    ~BookmarkBuffer() override;

    /// The bookmarks in the control's form, a document of its own. Whatever is no bookmark is left
    /// out with all that it holds, and so are other attributes. Null where the tree is null.
    SmartPtr<Xml::XmlDocument> getProcessedDocumentForControl() const;
    /// Takes the bookmarks of a document in the control's form for those there were. An element
    /// that is no "bookmark" counts as a dynamic one. Throws NullPointerException, and changes
    /// nothing, where that document or the tree is null.
    void getProcessedTreeForDocument(const SmartPtr<Xml::XmlDocument>& control);

    /// The tree itself: the document's root, without its content but for the fo:bookmark-tree. What
    /// is set takes its place and may be null.
    SmartPtr<Xml::XmlDocument> getXmlDocument() const;
    void setXmlDocument(const SmartPtr<Xml::XmlDocument>& tree);

    /// Writes the bookmarks in the place of those that were read, as one undo step. The first ones
    /// of a document go directly behind the start tag of its root. Nothing happens where nothing
    /// has changed, where a document without bookmarks would get an empty tree, nor where no parser
    /// would take the result; a run of typing goes on then. Throws Core::Exception where the text
    /// has changed there since, or has got bookmarks, or the root of what is to get bookmarks
    /// closes itself, and NullPointerException where the tree is null; nothing is changed then.
    void commitChangesToEditableBuffer() override;

private:
    std::unique_ptr<BookmarkTree> bookmarks_;
};
