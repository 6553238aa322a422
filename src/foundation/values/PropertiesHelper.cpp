#include "foundation/values/PropertiesHelper.h"

#include "foundation/values/BorderStyle.h"
#include "foundation/values/OneOf.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

using Core::String;

namespace {

using Words = std::vector<std::wstring_view>;

constexpr std::array<const wchar_t*, 4> sides = {L"-top", L"-right", L"-bottom", L"-left"};

/// A property's name, taken apart; `prefix` holds its ":".
struct Name {
    String prefix;
    String local;
};

Name takeApart(const String& name) {
    if (name.startsWith(L"fo:"))
        return {L"fo:", name.substringAfter(L":")};
    return {L"", name};
}

/// The length of the word that `text` begins with. White space in parentheses is part of the word,
/// as in "rgb(0, 0, 0)".
std::size_t wordLength(std::wstring_view text) {
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (depth == 0 && String::isSpace(text[i]))
            return i;
        if (text[i] == L'(')
            ++depth;
        else if (text[i] == L')' && depth > 0)
            --depth;
    }
    return text.size();
}

Words wordsOf(std::wstring_view value) {
    Words words;
    while (!value.empty()) {
        const std::size_t length = wordLength(value);
        if (length > 0)
            words.push_back(value.substr(0, length));
        value.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return words;
}

/// Only the whole of a shorthand can be inherited, not one value of several.
bool inheritsInPart(const Words& words) {
    return words.size() > 1 && std::find(words.begin(), words.end(), L"inherit") != words.end();
}

// Expanding

/// Adds `name-top` and so on; the values that are left out are those of the opposite side.
void addSides(const String& name, const Words& words, PropertyCollection& longForms) {
    if (words.empty() || words.size() > 4 || inheritsInPart(words))
        return;
    const std::wstring_view top = words[0];
    const std::wstring_view right = words.size() > 1 ? words[1] : top;
    const std::wstring_view bottom = words.size() > 2 ? words[2] : top;
    const std::wstring_view left = words.size() > 3 ? words[3] : right;
    const std::array<std::wstring_view, 4> values = {top, right, bottom, left};
    for (std::size_t i = 0; i < sides.size(); ++i)
        longForms.addProperty(EditableProperty(name + sides[i], String(values[i])), false);
}

bool isBorderWidth(std::wstring_view word) {
    return isOneOf(word, {L"thin", L"medium", L"thick"}) || String::isDigit(word.front()) ||
           isOneOf(word.substr(0, 1), {L".", L"+", L"-"});
}

const wchar_t* borderPartOf(std::wstring_view word) {
    if (BorderStyle::contains(word))
        return L"-style";
    return isBorderWidth(word) ? L"-width" : L"-color";
}

void addBorderParts(const String& name, const Words& words, PropertyCollection& longForms) {
    if (words.empty() || inheritsInPart(words))
        return;
    if (words[0] == L"inherit") {
        for (const wchar_t* part : {L"-width", L"-style", L"-color"})
            longForms.addProperty(EditableProperty(name + part, L"inherit"), false);
        return;
    }
    PropertyCollection parts;
    for (std::wstring_view word : words) {
        const String part = name + borderPartOf(word);
        if (parts.containsProperty(part))
            return; // two of a kind: no border
        parts.addProperty(EditableProperty(part, String(word)), false);
    }
    longForms = parts;
}

/// The single properties that `shorthand` stands for; none if it is no shorthand.
PropertyCollection longFormsOf(const EditableProperty& shorthand) {
    const String name = shorthand.getName();
    const String local = takeApart(name).local;
    const String value = shorthand.getValue();
    PropertyCollection longForms;
    if (isOneOf(local.view(), {L"margin", L"padding"}))
        addSides(name, wordsOf(value.view()), longForms);
    else if (isOneOf(local.view(),
                     {L"border-top", L"border-right", L"border-bottom", L"border-left"}))
        addBorderParts(name, wordsOf(value.view()), longForms);
    return longForms;
}

// Collapsing

String joined(const Words& words) {
    String text;
    for (std::wstring_view word : words) {
        if (!text.empty())
            text += L' ';
        text += String(word);
    }
    return text;
}

/// The shortest shorthand value for four sides; empty where there is none.
String shortestValue(Words fourSides) {
    if (fourSides[3] == fourSides[1])
        fourSides.pop_back();
    if (fourSides.size() == 3 && fourSides[2] == fourSides[0])
        fourSides.pop_back();
    if (fourSides.size() == 2 && fourSides[1] == fourSides[0])
        fourSides.pop_back();
    return inheritsInPart(fourSides) ? String() : joined(fourSides);
}

void collapseSides(PropertyCollection& properties, const String& name) {
    std::array<String, 4> values;
    Words words;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        values[i] = properties.getPropertyValue(name + sides[i]);
        const Words single = wordsOf(values[i].view());
        if (single.size() != 1)
            return;
        words.push_back(single.front());
    }
    const String value = shortestValue(words);
    if (value.empty())
        return;
    PropertyCollection collapsed;
    for (const EditableProperty& property : properties.getPropertyList()) {
        const bool isSide = std::any_of(sides.begin(), sides.end(), [&](const wchar_t* side) {
            return property.getName() == name + side;
        });
        if (isSide)
            collapsed.addProperty(EditableProperty(name, value), false);
        else if (property.getName() != name)
            collapsed.addProperty(property, false);
    }
    properties = collapsed;
}

// Default values

/// A property's initial values, and the shorthands that it overrides.
struct Default {
    String name;
    std::vector<String> values;
    std::vector<String> shorthands;
};

std::vector<Default> makeDefaults() {
    std::vector<Default> defaults = {
        {L"background-color", {L"transparent"}, {L"background"}},
        {L"background-image", {L"none"}, {L"background"}},
        {L"background-repeat", {L"repeat"}, {L"background"}},
        {L"background-attachment", {L"scroll"}, {L"background"}},
    };
    for (const wchar_t* side :
         {L"-top", L"-right", L"-bottom", L"-left", L"-before", L"-after", L"-start", L"-end"}) {
        const String border = String(L"border") + side;
        defaults.push_back({border + L"-style", {L"none"}, {L"border", L"border-style", border}});
        defaults.push_back({String(L"padding") + side, {L"0", L"0pt"}, {L"padding"}});
    }
    for (const wchar_t* side : sides)
        defaults.push_back({String(L"margin") + side, {L"0", L"0pt"}, {L"margin"}});
    return defaults;
}

bool holds(const std::vector<String>& texts, const String& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// Whether the element looks the same without the property.
bool saysNothing(const EditableProperty& property, const PropertyCollection& beside) {
    static const std::vector<Default> defaults = makeDefaults();
    const Name name = takeApart(property.getName());
    const auto found = std::find_if(defaults.begin(), defaults.end(),
                                    [&](const Default& each) { return each.name == name.local; });
    if (found == defaults.end() || !holds(found->values, property.getValue()))
        return false;
    return std::none_of(
        found->shorthands.begin(), found->shorthands.end(),
        [&](const String& shorthand) { return beside.containsProperty(name.prefix + shorthand); });
}

} // namespace

void PropertiesHelper::collapseShorthands(PropertyCollection& properties) {
    for (const wchar_t* name : {L"margin", L"padding", L"fo:margin", L"fo:padding"})
        collapseSides(properties, name);
}

void PropertiesHelper::expandShorthands(PropertyCollection& properties) {
    PropertyCollection expanded;
    for (const EditableProperty& property : properties.getPropertyList()) {
        const PropertyCollection longForms = longFormsOf(property);
        if (longForms.isEmpty())
            expanded.addProperty(property, false);
        for (const EditableProperty& longForm : longForms.getPropertyList())
            if (!properties.containsProperty(longForm.getName()))
                expanded.addProperty(longForm, false);
    }
    properties = expanded;
}

void PropertiesHelper::removeDefaultValues(PropertyCollection& properties) {
    for (const EditableProperty& property : properties.getPropertyList())
        if (saysNothing(property, properties))
            properties.removePropertyByName(property.getName());
}
