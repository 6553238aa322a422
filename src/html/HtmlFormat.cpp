#include "html/HtmlFormat.h"

#include "text/Markup.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

using Core::String;
using Units = std::wstring_view;

namespace {

constexpr Units monospace = L"monospace";

bool isOneOf(Units name, std::initializer_list<Units> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isDigit(wchar_t unit) {
    return String::isDigit(unit);
}

bool isHexDigit(wchar_t unit) {
    return isDigit(unit) || (unit >= L'a' && unit <= L'f') || (unit >= L'A' && unit <= L'F');
}

bool isSmallLetter(wchar_t unit) {
    return unit >= L'a' && unit <= L'z';
}

/// The number at the start of a text, which is cut off from it; in every locale with a point.
double takeNumber(Units& text) {
    double number = 0;
    double place = 0; // of the next digit behind the point
    for (; !text.empty() && (isDigit(text[0]) || text[0] == L'.'); text.remove_prefix(1)) {
        if (text[0] == L'.')
            place = 0.1;
        else if (place > 0)
            number += std::exchange(place, place / 10) * (text[0] - L'0');
        else
            number = number * 10 + (text[0] - L'0');
    }
    return number;
}

/// The first four numbers of a text such as "rgb(1, 2, 3)".
std::vector<double> numbersIn(Units text) {
    std::vector<double> numbers;
    while (!text.empty() && numbers.size() < 4) {
        if (isDigit(text[0]) || text[0] == L'.')
            numbers.push_back(takeNumber(text));
        else
            text.remove_prefix(1);
    }
    return numbers;
}

String hexColor(const std::vector<double>& parts) {
    constexpr Units digits = L"0123456789abcdef";
    std::wstring color = L"#";
    for (std::size_t i = 0; i < 3; ++i) {
        const auto value = static_cast<std::size_t>(std::clamp(parts[i], 0.0, 255.0));
        color += digits[value / 16];
        color += digits[value % 16];
    }
    return String(std::move(color));
}

/// The size of text in points or relative to what is around; empty for what tells none.
String fontSize(const String& value) {
    String small = value.toLower();
    const Units text = small.view();
    if (isOneOf(text, {L"xx-small", L"x-small", L"small", L"medium", L"large", L"x-large",
                       L"xx-large", L"smaller", L"larger"}))
        return small;
    Units unit = text;
    const double number = takeNumber(unit);
    if (number <= 0 || number > 1000)
        return {};
    if (unit == L"px") { // of which an inch has 96
        const auto tenths = static_cast<int>(std::lround(number * 7.5));
        String points = String::formatS(tenths / 10);
        if (tenths % 10 != 0)
            points += L"." + String::formatS(tenths % 10);
        return points + L"pt";
    }
    return isOneOf(unit, {L"pt", L"em", L"%", L"mm", L"cm", L"in", L"pc"}) ? small : String();
}

/// The size that <font size> asks for, from 1 to 7.
String numberedSize(const String& value) {
    static constexpr std::array<const wchar_t*, 7> sizes{L"8pt",  L"10pt", L"12pt", L"14pt",
                                                         L"18pt", L"24pt", L"36pt"};
    const int number = HtmlValues::count(value, 7);
    return !value.empty() && isDigit(value[0]) ? String(sizes[static_cast<std::size_t>(number) - 1])
                                               : String();
}

/// Names of fonts with single quotes, which can stand in an attribute; empty for what names none.
String fontFamily(const String& value) {
    String family = value;
    family.replaceAll(L"\"", L"'");
    const auto isAllowed = [](wchar_t unit) {
        return isDigit(unit) || isSmallLetter(unit | L' ') || unit > 0x7F ||
               Units(L" ,'-_").find(unit) != Units::npos;
    };
    const bool isName = std::all_of(family.view().begin(), family.view().end(), isAllowed);
    return isName && !isOneOf(family.toLower().view(), {L"inherit", L"initial", L"unset"})
               ? family.trim()
               : String();
}

/// Where a link leads, unless it would run a program or stays in the page.
String address(const String& href) {
    String link = href;
    link.trim();
    const Units units = link.view();
    const std::size_t end = std::min(units.find_first_of(L":/?#"), units.size());
    const bool hasScheme = end < units.size() && units[end] == L':';
    std::wstring scheme(hasScheme ? units.substr(0, end) : Units());
    for (wchar_t& unit : scheme)
        unit |= unit >= L'A' && unit <= L'Z' ? L' ' : 0;
    const bool isUsual =
        !hasScheme || isOneOf(scheme, {L"http", L"https", L"mailto", L"ftp", L"tel", L"file"});
    const bool isClean =
        std::none_of(units.begin(), units.end(), [](wchar_t unit) { return unit < L' '; });
    if (link.empty() || units.front() == L'#' || !isUsual || !isClean)
        return {};
    link.replaceAll(L"'", L"%27");
    return link;
}

void addProperty(String& properties, const wchar_t* name, String value) {
    if (value.empty())
        return;
    Markup::escape(value);
    properties += L" " + String(name) + L"=\"" + value + L"\"";
}

} // namespace

void HtmlFormat::apply(const String& element, const HtmlEvents::Attributes& attributes) {
    applyElement(element.view());
    if (element == L"a")
        if (const String to = address(HtmlValues::attribute(attributes, L"href")); !to.empty())
            link = to;
    if (element == L"font") {
        applyStyle(L"color", HtmlValues::attribute(attributes, L"color"));
        applyStyle(L"font-family", HtmlValues::attribute(attributes, L"face"));
        if (const String to = numberedSize(HtmlValues::attribute(attributes, L"size")); !to.empty())
            size = to;
    }
    HtmlValues::forEachDeclaration(
        HtmlValues::attribute(attributes, L"style"),
        [&](const String& name, const String& value) { applyStyle(name.view(), value); });
}

void HtmlFormat::applyElement(Units element) {
    isBold = isBold || isOneOf(element, {L"b", L"strong"});
    isItalic = isItalic || isOneOf(element, {L"i", L"em", L"cite", L"var", L"dfn"});
    isUnderlined = isUnderlined || isOneOf(element, {L"u", L"ins"});
    isStruck = isStruck || isOneOf(element, {L"s", L"strike", L"del"});
    if (element == L"sup")
        shift = Shift::Super;
    if (element == L"sub")
        shift = Shift::Sub;
    if (isOneOf(element, {L"code", L"tt", L"kbd", L"samp", L"pre", L"listing", L"plaintext"}))
        family = String(monospace);
    if (isOneOf(element, {L"pre", L"listing", L"plaintext"}))
        keepsBlanks = true;
    if (element == L"mark")
        background = L"yellow";
    if (element == L"small")
        size = L"smaller";
    if (element == L"big")
        size = L"larger";
}

void HtmlFormat::applyStyle(Units name, const String& value) {
    const String small = value.toLower();
    const Units said = small.view();
    const auto take = [](String& field, const String& with) {
        if (!with.empty())
            field = with;
    };
    if (name == L"font-weight" && !said.empty())
        isBold = said.starts_with(L"bold") || (isDigit(said[0]) && numbersIn(said).front() >= 600);
    else if (name == L"font-style")
        isItalic = said == L"italic" || said == L"oblique";
    else if (name == L"text-decoration" || name == L"text-decoration-line")
        applyDecoration(said);
    else if (name == L"vertical-align")
        shift = said == L"super" ? Shift::Super : said == L"sub" ? Shift::Sub : shift;
    else if (name == L"color")
        take(color, HtmlValues::color(value));
    else if (name == L"background-color" || name == L"background")
        take(background, HtmlValues::color(value));
    else if (name == L"font-size")
        take(size, fontSize(value));
    else if (name == L"font-family")
        take(family, fontFamily(value));
    else if (name == L"white-space")
        keepsBlanks = said.starts_with(L"pre") && said != L"pre-line";
}

void HtmlFormat::applyDecoration(Units value) {
    const bool isNone = value.find(L"none") != Units::npos;
    isUnderlined = !isNone && (isUnderlined || value.find(L"underline") != Units::npos);
    isStruck = !isNone && (isStruck || value.find(L"line-through") != Units::npos);
}

String HtmlFormat::properties() const {
    String all;
    addProperty(all, L"font-weight", isBold ? L"bold" : L"");
    addProperty(all, L"font-style", isItalic ? L"italic" : L"");
    const wchar_t* const both = isStruck ? L"underline line-through" : L"underline";
    addProperty(all, L"text-decoration", isUnderlined ? both : isStruck ? L"line-through" : L"");
    addProperty(all, L"baseline-shift",
                shift == Shift::Super ? L"super"
                : shift == Shift::Sub ? L"sub"
                                      : L"");
    addProperty(all, L"color", color);
    addProperty(all, L"background-color", background);
    addProperty(all, L"font-size", size.empty() && shift != Shift::None ? String(L"70%") : size);
    addProperty(all, L"font-family", family);
    return all;
}

String HtmlFormat::linkTag() const {
    String destination;
    addProperty(destination, L"external-destination",
                link.empty() ? String() : L"url('" + link + L"')");
    return link.empty() ? String() : L"<fo:basic-link" + destination + L">";
}

String HtmlValues::attribute(const HtmlEvents::Attributes& attributes, const wchar_t* name) {
    for (const auto& [attribute, value] : attributes)
        if (attribute == name)
            return value;
    return {};
}

String HtmlValues::styleValue(const String& style, const wchar_t* name) {
    String found;
    forEachDeclaration(style, [&](const String& declared, const String& value) {
        if (declared == name)
            found = value;
    });
    return found;
}

String HtmlValues::color(const String& value) {
    String small = value.toLower();
    const Units text = small.view();
    const bool isHex =
        text.size() > 1 && text[0] == L'#' && std::all_of(text.begin() + 1, text.end(), isHexDigit);
    if (isHex && (text.size() == 4 || text.size() == 7))
        return small;
    if (text.starts_with(L"rgb")) {
        const std::vector<double> parts = numbersIn(text);
        const bool isSeen = parts.size() == 3 || (parts.size() == 4 && parts[3] > 0);
        return isSeen && text.find(L'%') == Units::npos ? hexColor(parts) : String();
    }
    static constexpr std::array<Units, 16> named{
        L"black", L"silver", L"gray",  L"white",  L"maroon", L"red",  L"purple", L"fuchsia",
        L"green", L"lime",   L"olive", L"yellow", L"navy",   L"blue", L"teal",   L"aqua"};
    return std::find(named.begin(), named.end(), text) != named.end() ? small : String();
}

int HtmlValues::count(const String& value, int most) {
    Units digits = value.view().substr(0, 9);
    return std::clamp(static_cast<int>(takeNumber(digits)), 1, most);
}
