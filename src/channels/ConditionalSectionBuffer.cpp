#include "channels/ConditionalSectionBuffer.h"

#include "channels/ConditionalSections.h"
#include "document/Document.h"
#include "trees/Fragment.h"

using Core::String;
using Xml::Element;

ConditionalSectionBuffer::ConditionalSectionBuffer(EditableDocumentBuffer* document, Type type)
    : DOMBasedBuffer(Document::of(document)),
      sections_(std::make_unique<ConditionalSections>(Document::of(document), type, fragment())) {}

ConditionalSectionBuffer::ConditionalSectionBuffer(const ConditionalSectionBuffer& other)
    : DOMBasedBuffer(other), sections_(std::make_unique<ConditionalSections>(*other.sections_)) {}

ConditionalSectionBuffer&
ConditionalSectionBuffer::operator=(const ConditionalSectionBuffer& other) {
    DOMBasedBuffer::operator=(other);
    sections_ = std::make_unique<ConditionalSections>(*other.sections_);
    return *this;
}

ConditionalSectionBuffer::~ConditionalSectionBuffer() = default;

bool ConditionalSectionBuffer::hasFallbackSection() const {
    return getFallbackSection() != nullptr;
}

bool ConditionalSectionBuffer::canDeleteSection() const {
    return sections_->in(*fragment().root()).size() > 1;
}

Element* ConditionalSectionBuffer::getConditionalBlockAtIndex(int index) const {
    return sections_->at(*fragment().root(), index);
}

Element* ConditionalSectionBuffer::getFallbackSection() const {
    return sections_->fallback(*fragment().root());
}

void ConditionalSectionBuffer::insertConditionalSection(const String& condition) {
    sections_->insert(*fragment().root(), condition);
}

void ConditionalSectionBuffer::insertFallbackSection() {
    sections_->appendFallback(*fragment().root());
}

void ConditionalSectionBuffer::deleteCurrentConditionalSection() {
    Element& sequence = *fragment().root();
    sequence.remove_child(sections_->current(sequence));
}

void ConditionalSectionBuffer::deleteFallbackSection() {
    fragment().root()->remove_child(getFallbackSection());
}

void ConditionalSectionBuffer::commitChangesToEditableBuffer() {
    sections_->commit(fragment());
}
