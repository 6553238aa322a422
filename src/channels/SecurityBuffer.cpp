#include "channels/SecurityBuffer.h"

#include "channels/ProtectionSettings.h"
#include "document/Document.h"

SecurityBuffer::SecurityBuffer(EditableDocumentBuffer* document)
    : settings_(std::make_unique<ProtectionSettings>(Document::of(document))) {}

SecurityBuffer::~SecurityBuffer() = default;

bool SecurityBuffer::isProtectedFromEditing() const {
    return settings_->refuseEditing();
}

void SecurityBuffer::setProtectedFromEditing(bool isProtected) {
    settings_->setRefuseEditing(isProtected);
}

PropertyCollection SecurityBuffer::getSettings() const {
    return settings_->all();
}

void SecurityBuffer::setSettings(const PropertyCollection& settings) {
    settings_->replace(settings);
}

void SecurityBuffer::commitChangesToEditableBuffer() {
    settings_->commit();
}
