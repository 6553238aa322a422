#pragma once

#include "foundation/Wide.h"
#include "foundation/values/PropertyCollection.h"
#include "support/Table.h"

#include <gtest/gtest.h>

#include <string>

/// Reads `name=value; name=value`.
inline PropertyCollection properties(const wchar_t* list) {
    PropertyCollection result;
    for (const Core::String& piece : Core::String(list).split(L';')) {
        const Core::String name = piece.substringBefore(L"=").trim();
        result.addProperty(EditableProperty(name, piece.substringAfter(L"=")), false);
    }
    return result;
}

/// The same form.
inline std::wstring shown(const PropertyCollection& properties) {
    std::wstring list;
    for (const EditableProperty& each : properties.getPropertyList())
        list += (list.empty() ? L"" : L"; ") + wide(each.getName() + L"=" + each.getValue());
    return list;
}

/// Checks what a change makes of lists of properties, a line each: `before -> after`.
template <typename Change>
void expectChanges(Change change, const wchar_t* table) {
    for (const auto& [before, after] : rows(table)) {
        PropertyCollection collection = properties(before.c_str());
        change(collection);
        EXPECT_EQ(shown(collection), after == L"same" ? before : after) << before;
    }
}
