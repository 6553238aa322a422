#include "foundation/xml/QualifiedName.h"

#include "foundation/Exception.h"

#include <algorithm>
#include <cwchar>

namespace Xml {

namespace {

struct Range {
    wchar_t first;
    wchar_t last;
};

// Surrogates stand for the characters above U+FFFF, nearly all of which are allowed.
constexpr Range kNameStart[] = {
    {L'A', L'Z'},     {L'_', L'_'},     {L'a', L'z'},     {L'\xC0', L'\xD6'}, {L'\xD8', L'\xF6'},
    {L'\xF8', 0x2FF}, {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},   {0x2070, 0x218F},
    {0x2C00, 0x2FEF}, {0x3001, 0xDFFF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD},
};
constexpr Range kNameFurther[] = {
    {L'-', L'.'}, {L'0', L'9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template <std::size_t Count>
bool isIn(const Range (&ranges)[Count], wchar_t ch) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [ch](Range range) { return range.first <= ch && ch <= range.last; });
}

bool isXmlName(std::wstring_view name) {
    return !name.empty() && isIn(kNameStart, name.front()) &&
           std::all_of(name.begin(), name.end(),
                       [](wchar_t ch) { return isIn(kNameStart, ch) || isIn(kNameFurther, ch); });
}

bool isXmlCharacter(wchar_t ch) {
    if (ch < L' ')
        return ch == L'\t' || ch == L'\n' || ch == L'\r';
    return ch != 0xFFFE && ch != 0xFFFF;
}

} // namespace

QualifiedName QualifiedName::split(const Core::String& name) {
    std::wstring_view text = name.view();
    std::size_t colon = text.find(L':');
    if (colon == std::wstring_view::npos || colon == 0 || colon + 1 == text.size())
        return {Core::String(), name};
    return {Core::String(text.substr(0, colon)), Core::String(text.substr(colon + 1))};
}

QualifiedName QualifiedName::checked(const Core::String& name, const Core::String& prefix) {
    QualifiedName result = split(name);
    if (result.prefix.empty())
        result.prefix = prefix;
    if (!isXmlName(result.local.view()))
        throw Core::Exception(L"\"" + result.local + L"\" is not an XML name");
    if (!result.prefix.empty() && !isXmlName(result.prefix.view()))
        throw Core::Exception(L"\"" + result.prefix + L"\" is not an XML prefix");
    return result;
}

bool QualifiedName::declaresNamespace() const {
    return prefix.view() == L"xmlns" || (prefix.empty() && local.view() == L"xmlns");
}

void requireXmlText(const Core::String& text) {
    for (int i = 0; i < text.length(); ++i) {
        if (isXmlCharacter(text[i]))
            continue;
        wchar_t code[5];
        std::swprintf(code, 5, L"%04X", static_cast<unsigned>(text[i]));
        throw Core::Exception(L"character " + Core::String::formatS(i) + L": U+" + code +
                              L" is not allowed in XML");
    }
}

} // namespace Xml
