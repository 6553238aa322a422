#pragma once

#include "Wire.h"

#include <forme/tables/EditableTableBuffer.h>

#include <algorithm>
#include <vector>

// What requests give to commands on the borders and formats of tables.

/// An enumeration by its numbers, from 0 through `last`.
template <typename Enum, int last>
struct NumberedWire {
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= last;
    }
    static Enum read(const Json& value) { return static_cast<Enum>(value.get<int>()); }
};

template <>
struct Wire<CellBorderType> : NumberedWire<CellBorderType, 7> {
    static constexpr const char* name =
        "border (0 bottom, 1 top, 2 left, 3 right, 4 none, 5 all, 6 border-style, 7 border)";
};

template <>
struct Wire<EditableTableBuffer::BordersOperation>
    : NumberedWire<EditableTableBuffer::BordersOperation, 2> {
    static constexpr const char* name = "operation (0 set, 1 remove, 2 query)";
};

template <>
struct Wire<TableElements> : NumberedWire<TableElements, 3> {
    static constexpr const char* name = "elements (0 cells, 1 rows, 2 columns, 3 table)";
};

template <>
struct Wire<BorderInfo> {
    static constexpr const char* name = "border info {width, color, style}";
    static bool matches(const Json& value) {
        const auto isField = [](const auto& field) {
            return field.value().is_string() &&
                   (field.key() == "width" || field.key() == "color" || field.key() == "style");
        };
        if (!value.is_object())
            return false;
        const auto fields = value.items();
        return std::all_of(fields.begin(), fields.end(), isField);
    }
    static BorderInfo read(const Json& value) {
        const auto field = [&](const char* key) {
            return value.contains(key) ? Wire<Core::String>::read(value[key]) : Core::String();
        };
        return {field("width"), field("color"), field("style")};
    }
    static Json write(const BorderInfo& value) {
        return {{"width", Wire<Core::String>::write(value.width)},
                {"color", Wire<Core::String>::write(value.color)},
                {"style", Wire<Core::String>::write(value.style)}};
    }
};

/// Names of attributes.
template <>
struct Wire<std::vector<Core::String>> {
    static constexpr const char* name = "names [name, ...]";
    static bool matches(const Json& value) {
        return value.is_array() &&
               std::all_of(value.begin(), value.end(), Wire<Core::String>::matches);
    }
    static std::vector<Core::String> read(const Json& value) {
        std::vector<Core::String> names;
        for (const Json& each : value)
            names.push_back(Wire<Core::String>::read(each));
        return names;
    }
};
