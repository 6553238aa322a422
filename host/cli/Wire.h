#pragma once

#include <forme/document/EditableDocumentBuffer.h>
#include <forme/editing/lists/ListBuffer.h>
#include <forme/foundation/Encoder.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

/// How the values of the library's operations travel as JSON. For each type: what it is called,
/// whether a JSON value is one, and the ways there and back.
template <typename T>
struct Wire;

using Json = nlohmann::json;

template <>
struct Wire<bool> {
    static constexpr const char* name = "bool";
    static bool matches(const Json& value) { return value.is_boolean(); }
    static bool read(const Json& value) { return value.get<bool>(); }
    static Json write(bool value) { return value; }
};

template <>
struct Wire<int> {
    static constexpr const char* name = "int";
    static bool matches(const Json& value) {
        if (value.is_number_unsigned())
            return value.get<std::uint64_t>() <= std::numeric_limits<int>::max();
        return value.is_number_integer() &&
               value.get<std::int64_t>() >= std::numeric_limits<int>::min();
    }
    static int read(const Json& value) { return value.get<int>(); }
    static Json write(int value) { return value; }
};

template <>
struct Wire<std::uint64_t> {
    static constexpr const char* name = "int from 0";
    static bool matches(const Json& value) {
        return value.is_number_integer() &&
               (value.is_number_unsigned() || value.get<std::int64_t>() >= 0);
    }
    static std::uint64_t read(const Json& value) { return value.get<std::uint64_t>(); }
    static Json write(std::uint64_t value) { return value; }
};

template <>
struct Wire<Core::String> {
    static constexpr const char* name = "string";
    static bool matches(const Json& value) { return value.is_string(); }
    static Core::String read(const Json& value) {
        return Core::Encoder::convertUTF8ToString(value.get_ref<const std::string&>());
    }
    static Json write(const Core::String& value) {
        return std::string(Core::Encoder::convertStringToUTF8(value).view());
    }
};

template <>
struct Wire<DocumentEncoding> {
    static constexpr const char* name = "encoding (1 UTF-8, 2 with mark, 3 UTF-16 with mark)";
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 1 && value.get<int>() <= 3;
    }
    static DocumentEncoding read(const Json& value) {
        return static_cast<DocumentEncoding>(value.get<int>());
    }
};

template <>
struct Wire<Xml::PDFConformance> {
    static constexpr const char* name =
        "PDF conformance (0 default, 1 X-1a:2003, 2 A-1a:2005, 3 A-1b:2005, 4 508)";
    static Json write(Xml::PDFConformance value) { return static_cast<int>(value); }
};

template <>
struct Wire<TextFormat> {
    static constexpr const char* name = "text format (0 plain, 2 native)";
    static bool matches(const Json& value) { return Wire<int>::matches(value); }
    static TextFormat read(const Json& value) { return static_cast<TextFormat>(value.get<int>()); }
};

template <>
struct Wire<Direction> {
    static constexpr const char* name = "direction (0 forward, 2 backward)";
    static bool matches(const Json& value) { return Wire<int>::matches(value); }
    static Direction read(const Json& value) { return static_cast<Direction>(value.get<int>()); }
};

template <>
struct Wire<Core::StringArray> {
    static Json write(const Core::StringArray& value) {
        Json strings = Json::array();
        for (const Core::String& string : value)
            strings.push_back(Wire<Core::String>::write(string));
        return strings;
    }
};

template <>
struct Wire<SmartPtr<Drawing::SpellingError>> {
    static constexpr const char* name =
        "spelling error {start, end, dictionaries, suggestions} or null";
    static Json write(const SmartPtr<Drawing::SpellingError>& value) {
        if (!value)
            return nullptr;
        return {{"start", value->start},
                {"end", value->end},
                {"dictionaries", Wire<Core::StringArray>::write(value->dictionaries)},
                {"suggestions", Wire<Core::StringArray>::write(value->suggestions)}};
    }
};

template <>
struct Wire<std::vector<SmartPtr<Drawing::SpellingError>>> {
    static constexpr const char* name = "array of spelling errors";
    static Json write(const std::vector<SmartPtr<Drawing::SpellingError>>& value) {
        Json errors = Json::array();
        for (const auto& error : value)
            errors.push_back(Wire<SmartPtr<Drawing::SpellingError>>::write(error));
        return errors;
    }
};

template <>
struct Wire<TextUnit> {
    static constexpr const char* name =
        "unit of text (0 character, 1 word, 2 sentence, 3 paragraph)";
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= 3;
    }
    static TextUnit read(const Json& value) { return static_cast<TextUnit>(value.get<int>()); }
};

template <>
struct Wire<std::optional<TextRange>> {
    static constexpr const char* name = "[start, end] or null";
    static Json write(const std::optional<TextRange>& value) {
        return value ? Json{value->start, value->end} : Json();
    }
};

template <>
struct Wire<ListType> {
    static constexpr const char* name = "list type (0 numbering, 1 bullets, 2 none)";
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= 2;
    }
    static ListType read(const Json& value) { return static_cast<ListType>(value.get<int>()); }
    static Json write(ListType value) { return static_cast<int>(value); }
};

/// The results of an operation that gives several.
template <typename... T>
struct Wire<std::tuple<T...>> {
    static inline const std::string name = [] {
        std::string names;
        ((names += (names.empty() ? "" : ", ") + std::string(Wire<T>::name)), ...);
        return "[" + names + "]";
    }();
    static Json write(const std::tuple<T...>& values) {
        return std::apply([](const T&... value) { return Json::array({Wire<T>::write(value)...}); },
                          values);
    }
};

template <>
struct Wire<BreakType> {
    static constexpr const char* name =
        "break type (0 page, 1 column, 2 soft, 3 odd page, 4 even page, 5 hard, 6 list)";
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= 6;
    }
    static BreakType read(const Json& value) { return static_cast<BreakType>(value.get<int>()); }
};

template <>
struct Wire<TextChange> {
    static Json write(const TextChange& value) {
        return {{"start", value.start}, {"removed", value.removed}, {"inserted", value.inserted}};
    }
};

template <>
struct Wire<std::optional<TextChange>> {
    static constexpr const char* name = "change {start, removed, inserted} or null";
    static Json write(const std::optional<TextChange>& value) {
        return value ? Wire<TextChange>::write(*value) : Json();
    }
};

template <>
struct Wire<EditableProperty> {
    static constexpr const char* name = "property [name, value]";
    static bool matches(const Json& value) {
        return value.is_array() && value.size() == 2 && value[0].is_string() &&
               value[1].is_string();
    }
    static EditableProperty read(const Json& value) {
        return {Wire<Core::String>::read(value[0]), Wire<Core::String>::read(value[1])};
    }
    static Json write(const EditableProperty& value) {
        return Json::array({Wire<Core::String>::write(value.getName()),
                            Wire<Core::String>::write(value.getValue())});
    }
};

template <>
struct Wire<PropertyCollection> {
    static constexpr const char* name = "properties [[name, value], ...]";
    static bool matches(const Json& value) {
        return value.is_array() &&
               std::all_of(value.begin(), value.end(), Wire<EditableProperty>::matches);
    }
    static PropertyCollection read(const Json& value) {
        PropertyCollection properties;
        for (const Json& property : value)
            properties.addProperty(Wire<EditableProperty>::read(property), true);
        return properties;
    }
    static Json write(const PropertyCollection& value) {
        Json properties = Json::array();
        for (const EditableProperty& property : value.getPropertyList())
            properties.push_back(Wire<EditableProperty>::write(property));
        return properties;
    }
};

template <>
struct Wire<ElementInfo> {
    static constexpr const char* name = "element {name, id, repeats, xpath, sort}";
    static Json write(const ElementInfo& value) {
        return {{"name", Wire<Core::String>::write(value.name)},
                {"id", Wire<Core::String>::write(value.id)},
                {"repeats", value.repeats},
                {"xpath", Wire<Core::String>::write(value.xpath)},
                {"sort", Wire<Core::String>::write(value.sort)}};
    }
};

/// Lists. They are arguments only where their values can be.
template <typename List>
struct ListWire {
    using Value = typename List::value_type;
    static inline const std::string name = std::string("list of ") + Wire<Value>::name;
    static bool matches(const Json& value) {
        return value.is_array() && std::all_of(value.begin(), value.end(), Wire<Value>::matches);
    }
    static List read(const Json& value) {
        List values;
        for (const Json& each : value)
            values.insert(values.end(), Wire<Value>::read(each));
        return values;
    }
    static Json write(const List& values) {
        Json list = Json::array();
        for (const Value& value : values)
            list.push_back(Wire<Value>::write(value));
        return list;
    }
};

template <typename T>
struct Wire<Core::Vector<T>> : ListWire<Core::Vector<T>> {};
template <typename T>
struct Wire<std::vector<T>> : ListWire<std::vector<T>> {};
template <typename T>
struct Wire<std::set<T>> : ListWire<std::set<T>> {};
