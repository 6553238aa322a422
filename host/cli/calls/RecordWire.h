#pragma once

#include "Wire.h"

#include <algorithm>
#include <string>
#include <vector>

// How records travel: as an object with the names of their fields. What a request leaves out keeps
// the value of a default record.

template <typename Record>
struct RecordField {
    const char* name;
    bool (*matches)(const Json&);
    void (*read)(const Json&, Record&);
    Json (*write)(const Record&);
};

/// The row of a field: field<&PageSize::width>("width").
template <auto member>
auto field(const char* name) {
    return []<typename Record, typename T>(T Record::*, const char* fieldName) {
        return RecordField<Record>{
            fieldName, &Wire<T>::matches,
            [](const Json& value, Record& record) { record.*member = Wire<T>::read(value); },
            [](const Record& record) { return Json(Wire<T>::write(record.*member)); }};
    }(member, name);
}

/// The fields of a record in their order; each record has its own.
template <typename Record>
const std::vector<RecordField<Record>>& fieldsOf();

template <typename Record>
struct RecordWire {
    static std::string describe(const std::string& kind) {
        std::string names;
        for (const auto& field : fieldsOf<Record>())
            names += (names.empty() ? "" : ", ") + std::string(field.name);
        return kind + " {" + names + "}";
    }
    static bool matches(const Json& value) {
        if (!value.is_object())
            return false;
        const auto& fields = fieldsOf<Record>();
        const auto items = value.items();
        return std::all_of(items.begin(), items.end(), [&](const auto& item) {
            return std::any_of(fields.begin(), fields.end(), [&](const auto& field) {
                return item.key() == field.name && field.matches(item.value());
            });
        });
    }
    static Record read(const Json& value) {
        Record record{};
        for (const auto& field : fieldsOf<Record>())
            if (value.contains(field.name))
                field.read(value[field.name], record);
        return record;
    }
    static Json write(const Record& record) {
        Json value = Json::object();
        for (const auto& field : fieldsOf<Record>())
            value[field.name] = field.write(record);
        return value;
    }
};
