#include "foundation/values/PropertyCollection.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace {

bool isHexDigit(wchar_t ch) {
    return Core::String::isDigit(ch) || (ch >= L'a' && ch <= L'f') || (ch >= L'A' && ch <= L'F');
}

bool isNameStart(wchar_t ch) {
    return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') || ch == L'_' || ch == L':' ||
           ch > 0x7F;
}

bool isNameUnit(wchar_t ch) {
    return isNameStart(ch) || Core::String::isDigit(ch) || ch == L'-' || ch == L'.';
}

/// Whether what stands between "&" and ";" names an entity or a character.
bool isReference(std::wstring_view name) {
    if (name.starts_with(L"#x"))
        return name.size() > 2 && std::all_of(name.begin() + 2, name.end(), isHexDigit);
    if (name.starts_with(L"#"))
        return name.size() > 1 && std::all_of(name.begin() + 1, name.end(), Core::String::isDigit);
    return !name.empty() && isNameStart(name.front()) &&
           std::all_of(name.begin(), name.end(), isNameUnit);
}

bool opensEntity(std::wstring_view text) {
    const std::size_t end = text.find(L';');
    return end != std::wstring_view::npos && isReference(text.substr(1, end - 1));
}

/// So many are sooner looked through than looked up.
constexpr std::size_t few = 32;

void appendAttributeValue(std::wstring& text, std::wstring_view value) {
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == L'"')
            text += L"&quot;";
        else if (value[i] == L'<')
            text += L"&lt;";
        else if (value[i] == L'&' && !opensEntity(value.substr(i)))
            text += L"&amp;";
        else
            text += value[i];
    }
}

} // namespace

const EditableProperty* PropertyCollection::find(const Core::String& name) const {
    if (!places_.empty()) {
        const auto place = places_.find(name);
        return place == places_.end() ? nullptr : &properties_[place->second];
    }
    for (const EditableProperty& property : properties_)
        if (property.getName() == name)
            return &property;
    return nullptr;
}

/// Of those that were appended since the last time.
void PropertyCollection::findPlaces() {
    if (properties_.size() > few)
        while (places_.size() < properties_.size())
            places_.emplace(properties_[places_.size()].getName(), places_.size());
}

void PropertyCollection::addProperty(const EditableProperty& property, bool replace) {
    if (!property.isValid())
        return;
    EditableProperty* const present = getProperty(property.getName());
    if (present && replace)
        *present = property;
    if (present)
        return;
    properties_.push_back(property);
    findPlaces();
}

void PropertyCollection::setProperty(const EditableProperty& property, bool) {
    addProperty(property, true);
}

void PropertyCollection::addProperties(const PropertyCollection& properties) {
    if (this == &properties)
        return;
    for (const EditableProperty& property : properties.properties_)
        addProperty(property, true);
}

EditableProperty* PropertyCollection::getProperty(const Core::String& name) {
    return const_cast<EditableProperty*>(find(name));
}

Core::String PropertyCollection::getPropertyValue(const Core::String& name) const {
    const EditableProperty* const property = find(name);
    return property ? property->getValue() : Core::String();
}

bool PropertyCollection::containsProperty(const Core::String& name) const {
    return find(name) != nullptr;
}

void PropertyCollection::removePropertyByName(const Core::String& name) {
    if (!find(name))
        return;
    std::erase_if(properties_,
                  [&name](const EditableProperty& property) { return property.getName() == name; });
    places_.clear();
    findPlaces();
}

Core::String PropertyCollection::getPropertiesString() const {
    std::wstring text;
    for (const EditableProperty& property : properties_) {
        if (!text.empty())
            text += L' ';
        text.append(property.getName().view()).append(L"=\"");
        appendAttributeValue(text, property.getValue().view());
        text += L'"';
    }
    return Core::String(std::move(text));
}

void PropertyCollection::setNamespaceForProperties(const Core::String& prefix) {
    if (prefix.empty())
        return;
    PropertyCollection renamed;
    for (const EditableProperty& property : properties_) {
        const Core::String name = property.getName();
        const Core::String full = prefix + L":" + name;
        if (name.find(L':', 0) >= 0)
            renamed.addProperty(property, false);
        else if (!containsProperty(full))
            renamed.addProperty(EditableProperty(full, property.getValue()), false);
    }
    *this = renamed;
}

void PropertyCollection::removeNamespaceForPropertiesWith(const Core::String& prefix) {
    if (prefix.empty())
        return;
    PropertyCollection renamed;
    for (const EditableProperty& property : properties_) {
        EditableProperty bare = property;
        bare.removeNamespaceFromName();
        if (property.getNamespace() != prefix)
            renamed.addProperty(property, false);
        else if (!containsProperty(bare.getName()))
            renamed.addProperty(bare, false);
    }
    *this = renamed;
}

void PropertyCollection::removeNonFormattingProperties() {
    std::erase_if(properties_, [](const EditableProperty& property) {
        return !EditableProperty::isFormatting(property.getName());
    });
    places_.clear();
    findPlaces();
}
