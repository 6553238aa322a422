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

/// Each between two blanks.
constexpr std::wstring_view names =
    L" aliceblue antiquewhite aqua aquamarine azure beige bisque black blanchedalmond blue"
    L" blueviolet brown burlywood cadetblue chartreuse chocolate coral cornflowerblue"
    L" cornsilk crimson cyan darkblue darkcyan darkgoldenrod darkgray darkgreen darkgrey"
    L" darkkhaki darkmagenta darkolivegreen darkorange darkorchid darkred darksalmon"
    L" darkseagreen darkslateblue darkslategray darkslategrey darkturquoise darkviolet"
    L" deeppink deepskyblue dimgray dimgrey dodgerblue firebrick floralwhite forestgreen"
    L" fuchsia gainsboro ghostwhite gold goldenrod gray green greenyellow grey honeydew"
    L" hotpink indianred indigo ivory khaki lavender lavenderblush lawngreen lemonchiffon"
    L" lightblue lightcoral lightcyan lightgoldenrodyellow lightgray lightgreen lightgrey"
    L" lightpink lightsalmon lightseagreen lightskyblue lightslategray lightslategrey"
    L" lightsteelblue lightyellow lime limegreen linen magenta maroon mediumaquamarine"
    L" mediumblue mediumorchid mediumpurple mediumseagreen mediumslateblue mediumspringgreen"
    L" mediumturquoise mediumvioletred midnightblue mintcream mistyrose moccasin navajowhite"
    L" navy oldlace olive olivedrab orange orangered orchid palegoldenrod palegreen"
    L" paleturquoise palevioletred papayawhip peachpuff peru pink plum powderblue purple red"
    L" rosybrown royalblue saddlebrown salmon sandybrown seagreen seashell sienna silver"
    L" skyblue slateblue slategray slategrey snow springgreen steelblue tan teal thistle"
    L" tomato transparent turquoise violet wheat white whitesmoke yellow yellowgreen"
    L" ";

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
    const String name = L" " + text.toLower() + L" ";
    const bool isOneWord = !text.empty() && text.find(L' ', 0) < 0;
    return isOneWord && names.find(name.view()) != std::wstring_view::npos;
}

} // namespace Xml
