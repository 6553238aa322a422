#include "foundation/values/EditableProperty.h"

#include "foundation/values/FormattingProperties.h"

EditableProperty::EditableProperty(const Core::String& name, const Core::String& value)
    : name_(name), value_(value) {}

void EditableProperty::removeNamespaceFromName() {
    name_ = name_.substringAfter(L":");
}

bool EditableProperty::isFormatting(const Core::String& name) {
    std::wstring_view local = name.view();
    if (local.starts_with(L"fo:"))
        local.remove_prefix(3);
    return FormattingProperties::contains(local);
}
