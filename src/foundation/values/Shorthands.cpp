#include "foundation/values/Shorthands.h"

#include "foundation/values/ColorParse.h"
#include "foundation/values/LengthOrPercent.h"
#include "foundation/values/OneOf.h"
#include "foundation/values/ParseUtil.h"
#include "foundation/values/PropertiesHelper.h"
#include "foundation/values/XslProperties.h"

#include <algorithm>
#include <array>

using Core::String;

namespace Shorthands {

namespace {

using Name = std::wstring_view;
using Words = std::vector<String>;

// Names

struct Row {
    Name property;
    Name shorthand;
};

/// In the order of how much they say. Sides are told by their names.
constexpr auto rows = std::to_array<Row>({
    {L"font-family", L"font"},
    {L"font-size", L"font"},
    {L"font-size-adjust", L"font"},
    {L"font-stretch", L"font"},
    {L"font-style", L"font"},
    {L"font-variant", L"font"},
    {L"font-weight", L"font"},
    {L"line-height", L"font"},
    {L"background-attachment", L"background"},
    {L"background-color", L"background"},
    {L"background-image", L"background"},
    {L"background-repeat", L"background"},
    {L"linefeed-treatment", L"white-space"},
    {L"white-space-collapse", L"white-space"},
    {L"white-space-treatment", L"white-space"},
    {L"wrap-option", L"white-space"},
    {L"baseline-shift", L"vertical-align"},
    {L"absolute-position", L"position"},
    {L"relative-position", L"position"},
    {L"break-after", L"page-break-after"},
    {L"break-before", L"page-break-before"},
    {L"country", L"xml:lang"},
    {L"language", L"xml:lang"},
});

constexpr std::array<Name, 4> edges{L"border-top", L"border-right", L"border-bottom",
                                    L"border-left"};

bool isSideOf(Name property, Name shorthand) {
    return property.size() > shorthand.size() && property.starts_with(shorthand) &&
           property[shorthand.size()] == L'-' &&
           isOneOf(property.substr(shorthand.size()), {L"-top", L"-right", L"-bottom", L"-left"});
}

/// The edge that the property is of; null for any other.
const Name* edgeOf(Name property) {
    const auto edge = std::find_if(edges.begin(), edges.end(),
                                   [&](Name name) { return property.starts_with(name); });
    return edge == edges.end() ? nullptr : &*edge;
}

/// "-width" in "border-top-width".
Name aspectOf(Name property) {
    return property.substr(property.rfind(L'-'));
}

Name allSides(Name aspect) {
    return aspect == L"-color"   ? L"border-color"
           : aspect == L"-style" ? L"border-style"
                                 : L"border-width";
}

// Values

String initialOf(Name property) {
    const XslProperty* const known = XslProperties::find(property);
    return known ? String(known->initial) : String();
}

Words wordsOf(const String& value) {
    Words words;
    for (int position = 0;;) {
        String word = Xml::ParseUtil::extractWordOrFunction(value, position);
        if (word.empty())
            return words;
        words.push_back(std::move(word));
    }
}

/// What becomes of a property when the shorthand is written out.
std::optional<String> writtenOut(const wchar_t* shorthand, const String& value,
                                 const String& property) {
    PropertyCollection properties;
    properties.addProperty({shorthand, value}, true);
    PropertiesHelper::expandShorthands(properties);
    if (properties.containsProperty(shorthand))
        return std::nullopt;
    return properties.getPropertyValue(property);
}

/// One to four values for the sides, whatever they are values of.
std::optional<String> valueOfSide(const String& value, Name side) {
    return writtenOut(L"margin", value, L"margin" + String(side));
}

/// Width, style and color of an edge, or of all.
std::optional<String> valueOfEdge(const String& value, Name property) {
    const auto part = writtenOut(L"border-top", value, L"border-top" + String(aspectOf(property)));
    return part && part->empty() ? initialOf(property) : part;
}

std::optional<String> borderValue(Name shorthand, const String& value, Name property) {
    if (isOneOf(shorthand, {L"border-color", L"border-style", L"border-width"}))
        return valueOfSide(value, edgeOf(property)->substr(Name(L"border").size()));
    return valueOfEdge(value, property);
}

// Font: style, variant and weight in any order, then the size, to which the height of lines can be
// tied by a "/", and the families

bool isFontSize(const String& word) {
    Xml::LengthOrPercent size;
    return Xml::LengthOrPercent::parseLengthOrPercent(word, size) ||
           isOneOf(word.view(), {L"xx-small", L"x-small", L"small", L"medium", L"large", L"x-large",
                                 L"xx-large", L"larger", L"smaller"});
}

Name propertyOfFontWord(const String& word) {
    if (isOneOf(word.view(), {L"italic", L"oblique", L"backslant"}))
        return L"font-style";
    if (word == L"small-caps")
        return L"font-variant";
    return L"font-weight";
}

bool isFontWord(const String& word) {
    return isOneOf(word.view(), {L"normal", L"italic", L"oblique", L"backslant", L"small-caps",
                                 L"bold", L"bolder", L"lighter"}) ||
           (word.length() == 3 && word.view().ends_with(L"00") && String::isDigit(word[0]));
}

String joined(Words::const_iterator first, Words::const_iterator last) {
    String text;
    for (; first != last; ++first)
        text += (text.empty() ? L"" : L" ") + *first;
    return text;
}

std::optional<String> fontValue(const String& value, Name property) {
    if (value == L"inherit")
        return value;
    const Words words = wordsOf(value);
    const auto size = std::find_if_not(words.begin(), words.end(), isFontWord);
    if (size == words.end())
        return std::nullopt;
    const bool isWithHeight = size->find(L'/', 0) >= 0;
    const String sizeAlone = isWithHeight ? size->substringBefore(L"/") : *size;
    if (!isFontSize(sizeAlone) || size + 1 == words.end())
        return std::nullopt;
    if (property == L"font-size")
        return sizeAlone;
    if (property == L"font-family")
        return joined(size + 1, words.end());
    if (property == L"line-height" && isWithHeight)
        return size->substringAfter(L"/");
    const auto word = std::find_if(words.begin(), size, [&](const String& each) {
        return each != L"normal" && propertyOfFontWord(each) == property;
    });
    return word != size ? *word : initialOf(property);
}

// Background

Name propertyOfBackgroundWord(const String& word) {
    if (word.startsWith(L"url(") || word == L"none")
        return L"background-image";
    if (isOneOf(word.view(), {L"repeat", L"repeat-x", L"repeat-y", L"no-repeat"}))
        return L"background-repeat";
    if (isOneOf(word.view(), {L"scroll", L"fixed"}))
        return L"background-attachment";
    return Xml::ColorParse::parseColor(word) ? Name(L"background-color") : Name();
}

std::optional<String> backgroundValue(const String& value, Name property) {
    if (value == L"inherit")
        return value;
    const Words words = wordsOf(value);
    const auto word = std::find_if(words.begin(), words.end(), [&](const String& each) {
        return propertyOfBackgroundWord(each) == property;
    });
    return word != words.end() ? *word : initialOf(property);
}

// Words that stand for words

struct Meaning {
    Name shorthand;
    Name value;
    Name property;
    Name meant; ///< the initial value where no row tells
};

constexpr auto meanings = std::to_array<Meaning>({
    {L"white-space", L"pre", L"linefeed-treatment", L"preserve"},
    {L"white-space", L"pre", L"white-space-collapse", L"false"},
    {L"white-space", L"pre", L"white-space-treatment", L"preserve"},
    {L"white-space", L"pre", L"wrap-option", L"no-wrap"},
    {L"white-space", L"nowrap", L"wrap-option", L"no-wrap"},
    {L"vertical-align", L"sub", L"baseline-shift", L"sub"},
    {L"vertical-align", L"super", L"baseline-shift", L"super"},
    {L"position", L"relative", L"relative-position", L"relative"},
    {L"position", L"absolute", L"absolute-position", L"absolute"},
    {L"position", L"fixed", L"absolute-position", L"fixed"},
    {L"page-break-after", L"always", L"break-after", L"page"},
    {L"page-break-after", L"left", L"break-after", L"even-page"},
    {L"page-break-after", L"right", L"break-after", L"odd-page"},
    {L"page-break-before", L"always", L"break-before", L"page"},
    {L"page-break-before", L"left", L"break-before", L"even-page"},
    {L"page-break-before", L"right", L"break-before", L"odd-page"},
});

String meaningOf(Name shorthand, const String& value, Name property) {
    if (value == L"inherit")
        return value;
    const auto row = std::find_if(meanings.begin(), meanings.end(), [&](const Meaning& each) {
        return each.shorthand == shorthand && each.value == value.view() &&
               each.property == property;
    });
    return row != meanings.end() ? String(row->meant) : initialOf(property);
}

/// "en-GB", of which the country can be left out.
String languageValue(const String& value, Name property) {
    if (value.find(L'-', 0) < 0)
        return property == L"language" ? value : initialOf(property);
    return property == L"language" ? value.substringBefore(L"-") : value.substringAfter(L"-");
}

} // namespace

std::vector<Name> of(Name property) {
    if (isSideOf(property, L"margin"))
        return {L"margin"};
    if (isSideOf(property, L"padding"))
        return {L"padding"};
    if (const Name* const edge = edgeOf(property); edge && property.size() > edge->size())
        return {*edge, allSides(aspectOf(property)), L"border"};
    std::vector<Name> shorthands;
    for (const Row& row : rows)
        if (row.property == property)
            shorthands.push_back(row.shorthand);
    return shorthands;
}

std::optional<String> valueIn(Name shorthand, const String& value, Name property) {
    if (isOneOf(shorthand, {L"margin", L"padding"}))
        return valueOfSide(value, property.substr(shorthand.size()));
    if (edgeOf(property))
        return borderValue(shorthand, value, property);
    if (shorthand == L"font")
        return fontValue(value, property);
    if (shorthand == L"background")
        return backgroundValue(value, property);
    if (shorthand == L"xml:lang")
        return languageValue(value, property);
    return meaningOf(shorthand, value, property);
}

} // namespace Shorthands
