#include "channels/AnnotationBuffer.h"

#include "channels/AnnotationArea.h"
#include "channels/Annotations.h"
#include "channels/Signatures.h"
#include "document/Document.h"
#include "foundation/ObjectId.h"
#include "trees/Fragment.h"

using Core::String;
using Xml::Element;
using Xml::Node;

AnnotationBuffer::AnnotationBuffer(EditableDocumentBuffer* document)
    : DOMBasedBuffer(Document::of(document)),
      area_(std::make_unique<AnnotationArea>(Document::of(document), fragment())) {}

AnnotationBuffer::AnnotationBuffer(const AnnotationBuffer& other)
    : DOMBasedBuffer(other), area_(std::make_unique<AnnotationArea>(*other.area_)) {}

AnnotationBuffer& AnnotationBuffer::operator=(const AnnotationBuffer& other) {
    DOMBasedBuffer::operator=(other);
    area_ = std::make_unique<AnnotationArea>(*other.area_);
    return *this;
}

AnnotationBuffer::~AnnotationBuffer() = default;

void AnnotationBuffer::commitChangesToEditableBuffer() {
    area_->commit(fragment());
}

// The annotations

std::list<Node*> AnnotationBuffer::getAnnotationNodes() const {
    return Annotations::in(*fragment().root());
}

Element* AnnotationBuffer::getAnnotation(const String& id) const {
    return Annotations::find(*fragment().root(), id);
}

String AnnotationBuffer::generateAnnotationId() const {
    String id = ObjectId::generate();
    while (getAnnotation(id))
        id = ObjectId::generate();
    return id;
}

// Scripts

void AnnotationBuffer::addJavaScriptToAnnotation(const String& id, const String& script,
                                                 const String& outputType) {
    Annotations::addScript(*fragment().root(), id, script, outputType);
}

std::list<Node*> AnnotationBuffer::getJSElementsFromAnnotation(const String& id) const {
    return Annotations::scripts(getAnnotation(id));
}

// The signature

bool AnnotationBuffer::hasDocumentSignature() const {
    const String id = getDocumentSignatureID();
    return !id.empty() && annotationHasSignature(getAnnotation(id));
}

String AnnotationBuffer::getDocumentSignatureID() const {
    return Signatures::reference(*fragment().root());
}

DocumentSignature AnnotationBuffer::getDocumentSignature() const {
    return Signatures::get(*fragment().root());
}

void AnnotationBuffer::setDocumentSignature(const DocumentSignature& signature, const String& id) {
    Signatures::set(*fragment().root(), signature, id);
}

void AnnotationBuffer::removeDocumentSignature(const String& id) {
    Signatures::remove(*fragment().root(), id);
}

bool AnnotationBuffer::annotationHasSignature(const Element* annotation) const {
    return Signatures::lastIn(annotation) != nullptr;
}

Element* AnnotationBuffer::getLastSignatureInAnnotation(const Element* annotation) const {
    return Signatures::lastIn(annotation);
}

DocumentSignature
AnnotationBuffer::getDocumentSignatureFromElement(const Element* signature) const {
    return Signatures::read(signature);
}
