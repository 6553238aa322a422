#pragma once

#include "document/EditableDocumentBuffer.h"
#include "foundation/Api.h"
#include "foundation/SmartPtr.h"
#include "foundation/String.h"

/// Small algorithms on a document that are no operations of the document itself.
namespace BufferAlgorithms {

/// What such an algorithm stands on: the document and its scanners. Positions are as everywhere in
/// the document, and -1 is the answer of a scan that finds nothing.
class FORME_API BufferAlg {
public:
    /// Throws Core::NullPointerException at the first use of a null document.
    explicit BufferAlg(const SmartPtr<EditableDocumentBuffer>& buffer) : buffer_(buffer) {}

protected:
    EditableDocumentBuffer& buffer() const { return *buffer_; }

    int getCaretPos() const;
    int getRootElement() const;
    /// The nearest element of that name around the position.
    int searchParent(const Core::String& name, int position) const;
    /// The next start tag of that name behind the position.
    int getNextElementByName(const Core::String& name, int position) const;
    int getClosingTagForTagAtPosition(int position) const;

private:
    SmartPtr<EditableDocumentBuffer> buffer_;
};

} // namespace BufferAlgorithms
