#pragma once

#include "calls/RecordWire.h"

#include <forme/foundation/values/ComplexPageMasterEntry.h>
#include <forme/foundation/values/PageMasterData.h>
#include <forme/foundation/values/PageSequenceInfo.h>
#include <forme/foundation/values/PrintingAttributes.h>
#include <forme/pages/RegionType.h>

#include <map>

// The records that more than one of the objects on pages takes or gives.

template <>
struct Wire<RegionType> {
    static constexpr const char* name = "region type (0 before, 1 after, 2 start, 3 end, 4 body)";
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= 4;
    }
    static RegionType read(const Json& value) { return static_cast<RegionType>(value.get<int>()); }
    static Json write(RegionType value) { return static_cast<int>(value); }
};

template <>
inline const std::vector<RecordField<ConditionalValue>>& fieldsOf<ConditionalValue>() {
    using C = ConditionalValue;
    static const std::vector<RecordField<C>> fields{
        field<&C::staticValue>("static"), field<&C::dynamicValue>("dynamic"),
        field<&C::condition>("condition"), field<&C::isDynamic>("isDynamic")};
    return fields;
}
template <>
struct Wire<ConditionalValue> : RecordWire<ConditionalValue> {
    static inline const std::string name = describe("row");
};

template <>
struct Wire<PropertyValueEx> {
    using Rows = Wire<Core::Vector<ConditionalValue>>;
    static constexpr const char* name =
        "value {name, id, type (0 static, 1 dynamic, 2 conditional), static, dynamic, rows "
        "[{static, dynamic, condition, isDynamic}, ...]}";
    static bool matches(const Json& value) {
        if (!value.is_object())
            return false;
        const auto items = value.items();
        return std::all_of(items.begin(), items.end(), [](const auto& item) {
            if (item.key() == "type")
                return Wire<int>::matches(item.value()) && item.value() >= 0 && item.value() <= 2;
            if (item.key() == "rows")
                return Rows::matches(item.value());
            return item.value().is_string() && (item.key() == "name" || item.key() == "id" ||
                                                item.key() == "static" || item.key() == "dynamic");
        });
    }
    static PropertyValueEx read(const Json& value) {
        const auto text = [&](const char* key) {
            return value.contains(key) ? Wire<Core::String>::read(value[key]) : Core::String();
        };
        PropertyValueEx read(text("name"), text("id"));
        read.setType(static_cast<PropertyValueType>(value.value("type", 0)));
        read.setStaticValue(text("static"));
        read.setDynamicValue(text("dynamic"));
        if (value.contains("rows"))
            read.setConditionalValues(Rows::read(value["rows"]));
        return read;
    }
    static Json write(const PropertyValueEx& value) {
        return {{"name", Wire<Core::String>::write(value.getPropertyName())},
                {"id", Wire<Core::String>::write(value.getObjectID())},
                {"type", static_cast<int>(value.getType())},
                {"static", Wire<Core::String>::write(value.getStaticValue())},
                {"dynamic", Wire<Core::String>::write(value.getDynamicValue())},
                {"rows", Rows::write(value.getConditionalValues())}};
    }
};

template <>
inline const std::vector<RecordField<PrintingAttributes>>& fieldsOf<PrintingAttributes>() {
    using P = PrintingAttributes;
    static const std::vector<RecordField<P>> fields{
        field<&P::inputTray>("inputTray"),   field<&P::outputTray>("outputTray"),
        field<&P::duplex>("duplex"),         field<&P::copyCount>("copyCount"),
        field<&P::mediaColor>("mediaColor"), field<&P::psPrinterCode>("psPrinterCode")};
    return fields;
}
template <>
struct Wire<PrintingAttributes> : RecordWire<PrintingAttributes> {
    static inline const std::string name = describe("printing options");
};

/// A reference of a complex page master.
template <>
struct Wire<ReferenceInfo> {
    static constexpr const char* name =
        "reference {kind (1 single, 2 repeating, 3 conditional), master, maximumRepeat, condition, "
        "conditionValue}";
    static bool matches(const Json& value) {
        if (!value.is_object())
            return false;
        const auto items = value.items();
        return std::all_of(items.begin(), items.end(), [](const auto& item) {
            return item.key() == "kind"
                       ? Wire<int>::matches(item.value())
                       : item.value().is_string() &&
                             (item.key() == "master" || item.key() == "maximumRepeat" ||
                              item.key() == "condition" || item.key() == "conditionValue");
        });
    }
    static ReferenceInfo read(const Json& value) {
        const auto text = [&](const char* key) {
            return value.contains(key) ? Wire<Core::String>::read(value[key]) : Core::String();
        };
        ReferenceInfo reference(value.value("kind", ReferenceInfo::single), text("master"));
        reference.setMaximumRepeat(text("maximumRepeat"));
        reference.setCondition(text("condition"), text("conditionValue"));
        return reference;
    }
};

/// A simple page master by its name alone; one with references, be they none, is complex.
template <>
struct Wire<PageMasterData> {
    static inline const std::string name =
        std::string("page master {name, references: [") + Wire<ReferenceInfo>::name + ", ...]}";
    static bool matches(const Json& value) {
        if (!value.is_object() || !value.contains("name") || !value["name"].is_string())
            return false;
        if (!value.contains("references"))
            return value.size() == 1;
        const Json& references = value["references"];
        return value.size() == 2 && references.is_array() &&
               std::all_of(references.begin(), references.end(), Wire<ReferenceInfo>::matches);
    }
    static PageMasterData read(const Json& value) {
        const Core::String name = Wire<Core::String>::read(value["name"]);
        if (!value.contains("references"))
            return PageMasterData(name);
        Core::Vector<ReferenceInfo> references;
        for (const Json& reference : value["references"])
            references.push_back(Wire<ReferenceInfo>::read(reference));
        return PageMasterData(name, references);
    }
};

/// Values by name, as an object.
template <typename T>
struct Wire<std::map<Core::String, T>> {
    using Map = std::map<Core::String, T>;
    static inline const std::string name = std::string("{name: ") + Wire<T>::name + ", ...}";
    static bool matches(const Json& value) {
        return value.is_object() && std::all_of(value.begin(), value.end(), Wire<T>::matches);
    }
    static Map read(const Json& value) {
        Map read;
        for (const auto& item : value.items())
            read[Wire<Core::String>::read(item.key())] = Wire<T>::read(item.value());
        return read;
    }
    static Json write(const Map& values) {
        Json written = Json::object();
        for (const auto& [key, value] : values)
            written[Wire<Core::String>::write(key).template get<std::string>()] =
                Wire<T>::write(value);
        return written;
    }
};
