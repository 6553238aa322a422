#include "channels/ProtectionSettings.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/Protection.h"
#include "foundation/Exception.h"
#include "trees/DocumentSeam.h"

using Core::String;

namespace {

/// An attribute of a start tag, with the white space before it.
struct TagAttribute {
    int start;
    int name;
    int value;
    int end; ///< behind the closing quote
};

TagAttribute attributeAt(const XmlText& text, int name) {
    int start = name;
    while (start > 0 && String::isSpace(text.unitAt(start - 1)))
        --start;
    const int quote = text.findQuote(name);
    const int value = quote + 1;
    return {start, name, value, value + static_cast<int>(text.attributeValue(name).size()) + 1};
}

String asAttribute(const EditableProperty& property) {
    PropertyCollection alone;
    alone.addProperty(property, true);
    return alone.getPropertiesString();
}

} // namespace

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
    if (refuse == refuseEditing())
        return;
    PropertyCollection settings = settings_;
    settings.removePropertyByName(Protection::editing);
    if (refuse)
        settings.addProperty({Protection::editing, L"true"}, true);
    replace(settings);
}

void ProtectionSettings::replace(const PropertyCollection& settings) {
    if (source_.empty())
        return;
    settings_ = {};
    for (const EditableProperty& property : settings.getPropertyList())
        if (Protection::isSetting(property.getName()))
            settings_.addProperty(property, true);
}

String ProtectionSettings::startTag() const {
    const XmlText& text = document_.text();
    const int root = Protection::bearer(text);
    const int end = root < 0 ? -1 : text.tagEnd(root);
    return end < 0 ? String() : text.slice(root, end + 1);
}

/// What stands there already stays where it is, and what is new comes behind the last attribute.
String ProtectionSettings::startTagWithSettings() const {
    const XmlText& text = document_.text();
    const int root = Protection::bearer(text);
    PropertyCollection added = settings_;
    String tag;
    int copied = root;
    int behindLast = root + 1 + static_cast<int>(text.tagName(root).size());
    for (int at = text.nextAttribute(root + 1); at >= 0; at = text.nextAttribute(at)) {
        const TagAttribute attribute = attributeAt(text, at);
        const String name(text.attributeName(at));
        behindLast = attribute.end;
        if (!Protection::isSetting(name))
            continue;
        tag += text.slice(copied, attribute.start);
        copied = attribute.end;
        if (!added.containsProperty(name))
            continue;
        tag += text.slice(attribute.start, attribute.name);
        const String value = added.getPropertyValue(name);
        tag += value == text.attributeValue(at) ? text.slice(attribute.name, attribute.end)
                                                : asAttribute({name, value});
        added.removePropertyByName(name);
    }
    tag += text.slice(copied, behindLast);
    if (!added.isEmpty())
        tag += L" " + added.getPropertiesString();
    return tag + text.slice(behindLast, root + source_.length());
}

void ProtectionSettings::commit() {
    if (source_.empty())
        return;
    if (startTag() != source_)
        throw Core::Exception(
            L"the root's start tag has changed since it was read, so it is not overwritten");
    const String tag = startTagWithSettings();
    if (tag == source_)
        return;
    const CommandScope scope(document_, CommandScope::Protection::PassedOver);
    const int root = document_.text().root();
    const CommitCaret caret{{document_.caret(), document_.pivot()}, nullptr};
    if (DocumentSeam(&document_)
            .replace(root, root + source_.length() - 1, tag, caret, Prefixes::Declared))
        read();
}
