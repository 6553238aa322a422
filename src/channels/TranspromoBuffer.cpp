#include "channels/TranspromoBuffer.h"

#include "channels/PromoPlaces.h"
#include "document/Document.h"
#include "trees/Fragment.h"

using Core::String;

TranspromoBuffer::TranspromoBuffer(EditableDocumentBuffer* document, const String& master)
    : DOMBasedBuffer(Document::of(document)),
      places_(std::make_unique<PromoPlaces>(Document::of(document), master, fragment())) {}

TranspromoBuffer::TranspromoBuffer(const TranspromoBuffer& other)
    : DOMBasedBuffer(other), places_(std::make_unique<PromoPlaces>(*other.places_)) {}

TranspromoBuffer& TranspromoBuffer::operator=(const TranspromoBuffer& other) {
    DOMBasedBuffer::operator=(other);
    places_ = std::make_unique<PromoPlaces>(*other.places_);
    return *this;
}

TranspromoBuffer::~TranspromoBuffer() = default;

Core::Vector<TranspromoInfo> TranspromoBuffer::getTranspromoList() const {
    return places_->list(fragment());
}

void TranspromoBuffer::overrideTranspromoList(const Core::Vector<TranspromoInfo>& places) {
    places_->override(fragment(), places);
}

void TranspromoBuffer::commitChangesToEditableBuffer() {
    places_->commit(fragment());
}

void TranspromoBuffer::deleteExistingTranspromo(int sequencePosition) {
    places_->deleteIn(sequencePosition);
}

String TranspromoBuffer::getRegionTypeAsString(Xml::PageRegionConstraint region) {
    return PromoElement::nameOf(region);
}

Xml::PageRegionConstraint TranspromoBuffer::getRegionType(const String& text) {
    return PromoElement::regionNamed(text);
}
