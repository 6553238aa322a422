#pragma once

#include "document/TableCache.h"
#include "foundation/SmartPtr.h"
#include "tables/EditableTableBuffer.h"

class Document;

/// The table buffer that a document keeps. It is known by where its table stands, so that an edit
/// within the table lets it stay; its commands read the table anew.
class CachedTable : public TableCache {
public:
    /// The document's, null where none is kept.
    static const CachedTable* of(const Document& document);
    /// The buffer of the table around the position, or with -1 around the caret, or else of the
    /// one that is selected; null where there is none. A caret outside of the table at a position
    /// goes into it.
    static SmartPtr<EditableTableBuffer> open(Document& document, int position);
    /// Keeps the table around the caret, read anew.
    static void renew(Document& document);

    static void onBufferChange(Document& document);
    static void onCaretChange(Document& document);
    static void onSelectionChange(Document& document);

    void followText() override;

    int start() const { return buffer_->getDocumentBufferStart(); }
    const EditableTableBuffer& buffer() const { return *buffer_; }

private:
    CachedTable(Document& document, int table);
    bool isAt(int table) const;

    Document& document_;
    SmartPtr<EditableTableBuffer> buffer_;
};
