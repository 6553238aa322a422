#include "document/Protection.h"

#include "text/XmlText.h"

using Core::String;

bool Protection::isSetting(const String& name) {
    return name.startsWith(L"qf:protect-");
}

int Protection::bearer(const XmlText& text) {
    const int root = text.root();
    const XmlText::View name = text.tagName(root);
    return name == L"qfd:document" || name == L"fo:root" ? root : -1;
}

PropertyCollection Protection::settingsOf(const XmlText& text) {
    PropertyCollection settings;
    const int root = bearer(text);
    if (root < 0)
        return settings;
    for (int at = text.nextAttribute(root + 1); at >= 0; at = text.nextAttribute(at)) {
        const String name(text.attributeName(at));
        if (isSetting(name))
            settings.addProperty({name, String(text.attributeValue(at))}, false);
    }
    return settings;
}

bool Protection::refusesEditing(const PropertyCollection& settings) {
    return settings.getPropertyValue(editing).toLower() == L"true";
}
