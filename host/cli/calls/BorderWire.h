#pragma once

#include "calls/RecordWire.h"

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
inline const std::vector<RecordField<BorderInfo>>& fieldsOf<BorderInfo>() {
    static const std::vector<RecordField<BorderInfo>> fields{field<&BorderInfo::width>("width"),
                                                             field<&BorderInfo::color>("color"),
                                                             field<&BorderInfo::style>("style")};
    return fields;
}
template <>
struct Wire<BorderInfo> : RecordWire<BorderInfo> {
    static inline const std::string name = describe("border info");
};
