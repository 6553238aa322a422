#include "foundation/values/ColorParse.h"

#include "foundation/Format.h"
#include "foundation/values/LengthOrPercent.h"
#include "foundation/values/ParseUtil.h"

#include <algorithm>
#include <array>
#include <string_view>

using Core::String;
using Core::StringArray;

namespace Xml {

namespace {

struct Form {
    const wchar_t* beginning;
    bool (*parse)(const String&);
};

/// In the order tried: the first beginning that fits decides.
constexpr std::array<Form, 6> forms{{
    {L"rgb-icc", ColorParse::parseICCColor},
    {L"spot-color", ColorParse::parseSpotColor},
    {L"rgb", ColorParse::parseRGB},
    {L"cmyk", ColorParse::parseCMYKString},
    {L"#", ColorParse::parseHexaColor},
    {L"", ColorParse::parseColorName},
}};

constexpr std::array<std::wstring_view, 148> names = {L"aliceblue",
                                                      L"antiquewhite",
                                                      L"aqua",
                                                      L"aquamarine",
                                                      L"azure",
                                                      L"beige",
                                                      L"bisque",
                                                      L"black",
                                                      L"blanchedalmond",
                                                      L"blue",
                                                      L"blueviolet",
                                                      L"brown",
                                                      L"burlywood",
                                                      L"cadetblue",
                                                      L"chartreuse",
                                                      L"chocolate",
                                                      L"coral",
                                                      L"cornflowerblue",
                                                      L"cornsilk",
                                                      L"crimson",
                                                      L"cyan",
                                                      L"darkblue",
                                                      L"darkcyan",
                                                      L"darkgoldenrod",
                                                      L"darkgray",
                                                      L"darkgreen",
                                                      L"darkgrey",
                                                      L"darkkhaki",
                                                      L"darkmagenta",
                                                      L"darkolivegreen",
                                                      L"darkorange",
                                                      L"darkorchid",
                                                      L"darkred",
                                                      L"darksalmon",
                                                      L"darkseagreen",
                                                      L"darkslateblue",
                                                      L"darkslategray",
                                                      L"darkslategrey",
                                                      L"darkturquoise",
                                                      L"darkviolet",
                                                      L"deeppink",
                                                      L"deepskyblue",
                                                      L"dimgray",
                                                      L"dimgrey",
                                                      L"dodgerblue",
                                                      L"firebrick",
                                                      L"floralwhite",
                                                      L"forestgreen",
                                                      L"fuchsia",
                                                      L"gainsboro",
                                                      L"ghostwhite",
                                                      L"gold",
                                                      L"goldenrod",
                                                      L"gray",
                                                      L"green",
                                                      L"greenyellow",
                                                      L"grey",
                                                      L"honeydew",
                                                      L"hotpink",
                                                      L"indianred",
                                                      L"indigo",
                                                      L"ivory",
                                                      L"khaki",
                                                      L"lavender",
                                                      L"lavenderblush",
                                                      L"lawngreen",
                                                      L"lemonchiffon",
                                                      L"lightblue",
                                                      L"lightcoral",
                                                      L"lightcyan",
                                                      L"lightgoldenrodyellow",
                                                      L"lightgray",
                                                      L"lightgreen",
                                                      L"lightgrey",
                                                      L"lightpink",
                                                      L"lightsalmon",
                                                      L"lightseagreen",
                                                      L"lightskyblue",
                                                      L"lightslategray",
                                                      L"lightslategrey",
                                                      L"lightsteelblue",
                                                      L"lightyellow",
                                                      L"lime",
                                                      L"limegreen",
                                                      L"linen",
                                                      L"magenta",
                                                      L"maroon",
                                                      L"mediumaquamarine",
                                                      L"mediumblue",
                                                      L"mediumorchid",
                                                      L"mediumpurple",
                                                      L"mediumseagreen",
                                                      L"mediumslateblue",
                                                      L"mediumspringgreen",
                                                      L"mediumturquoise",
                                                      L"mediumvioletred",
                                                      L"midnightblue",
                                                      L"mintcream",
                                                      L"mistyrose",
                                                      L"moccasin",
                                                      L"navajowhite",
                                                      L"navy",
                                                      L"oldlace",
                                                      L"olive",
                                                      L"olivedrab",
                                                      L"orange",
                                                      L"orangered",
                                                      L"orchid",
                                                      L"palegoldenrod",
                                                      L"palegreen",
                                                      L"paleturquoise",
                                                      L"palevioletred",
                                                      L"papayawhip",
                                                      L"peachpuff",
                                                      L"peru",
                                                      L"pink",
                                                      L"plum",
                                                      L"powderblue",
                                                      L"purple",
                                                      L"red",
                                                      L"rosybrown",
                                                      L"royalblue",
                                                      L"saddlebrown",
                                                      L"salmon",
                                                      L"sandybrown",
                                                      L"seagreen",
                                                      L"seashell",
                                                      L"sienna",
                                                      L"silver",
                                                      L"skyblue",
                                                      L"slateblue",
                                                      L"slategray",
                                                      L"slategrey",
                                                      L"snow",
                                                      L"springgreen",
                                                      L"steelblue",
                                                      L"tan",
                                                      L"teal",
                                                      L"thistle",
                                                      L"tomato",
                                                      L"transparent",
                                                      L"turquoise",
                                                      L"violet",
                                                      L"wheat",
                                                      L"white",
                                                      L"whitesmoke",
                                                      L"yellow",
                                                      L"yellowgreen"};
static_assert(std::is_sorted(names.begin(), names.end()));

bool isComponent(const String& text) {
    float number = 0;
    LengthOrPercent percentage;
    return Core::Format::parseFloat(text, number) ||
           (LengthOrPercent::parseLengthOrPercent(text, percentage) && percentage.isPercent());
}

/// Whether all arguments from `first` up to but excluding `end` are components.
bool areComponents(const StringArray& arguments, std::size_t first, std::size_t end) {
    const auto offset = [&](std::size_t at) {
        return arguments.begin() + static_cast<StringArray::difference_type>(at);
    };
    return end <= arguments.size() && first <= end &&
           std::all_of(offset(first), offset(end), isComponent);
}

bool isOnlyComponents(const wchar_t* function, const String& text, std::size_t count) {
    const StringArray arguments = ParseUtil::extractArguments(function, text);
    return arguments.size() == count && areComponents(arguments, 0, count);
}

/// A name stands behind so many components, and only components behind the name.
bool isNamedColor(const wchar_t* function, const String& text, std::size_t before) {
    const StringArray arguments = ParseUtil::extractArguments(function, text);
    return arguments.size() > before && !arguments[before].empty() &&
           areComponents(arguments, 0, before) &&
           areComponents(arguments, before + 1, arguments.size());
}

} // namespace

bool ColorParse::parseColor(const String& text) {
    const auto form = std::find_if(forms.begin(), forms.end(), [&text](const Form& form) {
        return text.startsWith(form.beginning);
    });
    return form->parse(text);
}

bool ColorParse::parseICCColor(const String& text) {
    return isNamedColor(L"rgb-icc", text, 3);
}

bool ColorParse::parseSpotColor(const String& text) {
    return isNamedColor(L"spot-color", text, 0);
}

bool ColorParse::parseRGB(const String& text) {
    return isOnlyComponents(L"rgb", text, 3);
}

bool ColorParse::parseCMYKString(const String& text) {
    return isOnlyComponents(L"cmyk", text, 4);
}

bool ColorParse::parseHexaColor(const String& text) {
    const bool isOfSize = text.length() == 4 || text.length() == 7;
    return isOfSize && text[0] == L'#' &&
           text.view().find_first_not_of(L"0123456789abcdefABCDEF", 1) == std::wstring_view::npos;
}

bool ColorParse::parseColorName(const String& text) {
    return std::binary_search(names.begin(), names.end(), text.toLower().view());
}

} // namespace Xml
