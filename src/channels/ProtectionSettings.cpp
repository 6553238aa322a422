#include "channels/ProtectionSettings.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/Protection.h"
#include "foundation/Exception.h"
#include "foundation/xml/QualifiedName.h"

using Core::String;

ProtectionSettings::ProtectionSettings(Document& document) : document_(document) {
    read();
}

void ProtectionSettings::read() {
    settings_ = Protection::settingsOf(document_.text());
    source_ = startTag();
}

bool ProtectionSettings::refuseEditing() const {
    return Protection::refusesEditing(settings_);
}

void ProtectionSettings::setRefuseEditing(bool refuse) {
    if (refuse && refuseEditing())
        return; // as it is spelt
    PropertyCollection settings = settings_;
    settings.removePropertyByName(Protection::editing);
    if (refuse)
        settings.addProperty({Protection::editing, L"true"}, true);
    replace(settings);
}

void ProtectionSettings::replace(const PropertyCollection& settings) {
    if (source_.empty())
        return;
    PropertyCollection taken;
    for (const EditableProperty& property : settings.getPropertyList()) {
        if (!Protection::isSetting(property.getName()))
            continue;
        Xml::QualifiedName::checked(property.getName(), String());
        Xml::requireXmlText(property.getValue());
        taken.addProperty(property, true);
    }
    settings_ = taken;
}

String ProtectionSettings::startTag() const {
    const XmlText& text = document_.text();
    const int root = Protection::bearer(text);
    const int end = root < 0 ? -1 : text.tagEnd(root);
    return end < 0 ? String() : text.slice(root, end + 1);
}

void ProtectionSettings::commit() {
    if (source_.empty())
        return;
    if (startTag() != source_)
        throw Core::Exception(
            L"the root's start tag has changed since it was read, so it is not overwritten");
    const CommandScope scope(document_, CommandScope::Protection::PassedOver);
    if (Protection::write(document_, settings_))
        read();
}
