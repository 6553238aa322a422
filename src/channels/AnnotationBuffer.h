#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/values/DocumentSignature.h"
#include "trees/DOMBasedBuffer.h"

#include <list>
#include <memory>

class AnnotationArea;
class EditableDocumentBuffer;

/// The annotations of a document: qf:annotation elements before its page masters, which carry
/// scripts for the PDF and what is said of its signature. In the order in which a host meets them
/// here are:
///
/// - making one
/// - the annotations
/// - scripts
/// - the document's signature
/// - writing them back
///
/// An annotation is known by its `id`, be that `id`, `qf:id` or `fo:id`; one without is known by
/// the empty id. A signature is a record
/// for whoever renders the document; nothing is signed or checked here. The root refers to the
/// annotation that holds it by qf:annotation-reference.
///
/// The document stays as it is until commitChangesToEditableBuffer(). Copies edit the same tree. A
/// text that XML cannot hold, as with U+0001, raises a Core::Exception, and nothing is changed.
class FORME_API AnnotationBuffer : public DOMBasedBuffer {
public:
    /// Reads the document, which must outlive this, from its root's start tag up to its page
    /// masters. Throws Core::Exception where it has none, Xml::ParseException where that is not
    /// well formed, and NullPointerException for no document.
    explicit AnnotationBuffer(EditableDocumentBuffer* document);
    AnnotationBuffer(const AnnotationBuffer& other);
    AnnotationBuffer& operator=(const AnnotationBuffer& other);
    ~AnnotationBuffer() override;

    // The annotations

    std::list<Xml::Node*> getAnnotationNodes() const;
    /// The first with that id; null without one.
    Xml::Element* getAnnotation(const Core::String& id) const;
    /// A new id that no annotation has.
    Core::String generateAnnotationId() const;

    // Scripts

    /// Adds a script to the annotation of that id, or to a new one. `outputType` says for what kind
    /// of output it is.
    void addJavaScriptToAnnotation(const Core::String& id, const Core::String& script,
                                   const Core::String& outputType);
    /// Empty where there is no such annotation.
    std::list<Xml::Node*> getJSElementsFromAnnotation(const Core::String& id) const;

    // The signature. Of several in one annotation the last counts.

    bool hasDocumentSignature() const;
    /// The id of the annotation that the root refers to; empty without one.
    Core::String getDocumentSignatureID() const;
    /// All fields are empty where there is none.
    DocumentSignature getDocumentSignature() const;
    /// Writes the signature into the annotation of that id, or a new one, and lets the root refer
    /// to it. One that it has is overwritten, but where the root referred to none: then a new one
    /// is added. In the annotation that the root refers to already and that has none, what is added
    /// is a qf:annotation, which no reader takes for a signature.
    void setDocumentSignature(const DocumentSignature& signature, const Core::String& id);
    /// Removes the annotation of that id with all that it holds, and the root's reference, whatever
    /// that refers to. Throws NullPointerException, and changes nothing, where there is no such
    /// annotation.
    void removeDocumentSignature(const Core::String& id);
    /// False for null.
    bool annotationHasSignature(const Xml::Element* annotation) const;
    /// Null without one, and for null.
    Xml::Element* getLastSignatureInAnnotation(const Xml::Element* annotation) const;
    /// All fields are empty for null.
    DocumentSignature getDocumentSignatureFromElement(const Xml::Element* signature) const;

    /// Writes what was read back, as one undo step. Nothing happens where nothing has changed, nor
    /// where no parser would take the result; a run of typing goes on then. Throws Core::Exception
    /// where the text has changed there since; nothing is changed then.
    void commitChangesToEditableBuffer() override;

private:
    std::unique_ptr<AnnotationArea> area_;
};
