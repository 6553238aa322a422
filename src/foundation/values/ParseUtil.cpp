#include "foundation/values/ParseUtil.h"

#include <string_view>

using Core::String;

namespace Xml {

namespace {

/// The offset of the first unit at or behind `position` that ends a piece and stands in no
/// parentheses; the length of the text if there is none.
template <typename EndsPiece>
std::size_t pieceEnd(std::wstring_view text, std::size_t position, EndsPiece endsPiece) {
    int depth = 0;
    for (; position < text.size(); ++position) {
        const wchar_t unit = text[position];
        if (depth == 0 && endsPiece(unit))
            break;
        if (unit == L'(')
            ++depth;
        else if (unit == L')' && depth > 0)
            --depth;
    }
    return position;
}

} // namespace

String ParseUtil::extractWordOrFunction(const String& text, int& position) {
    if (position < 0 || position >= text.length())
        return {};
    const std::wstring_view units = text.view();
    std::size_t start = static_cast<std::size_t>(position);
    while (start < units.size() && String::isSpace(units[start]))
        ++start;
    const std::size_t end = pieceEnd(units, start, String::isSpace);
    position = static_cast<int>(end);
    return String(units.substr(start, end - start));
}

Core::StringArray ParseUtil::extractArguments(const String& function, const String& text) {
    const String opening = function + L"(";
    if (!text.startsWith(opening) || !text.endsIn(L")"))
        return {};
    std::wstring_view inside = text.view().substr(opening.view().size());
    inside.remove_suffix(1);
    Core::StringArray arguments;
    for (std::size_t start = 0; start <= inside.size();) {
        const std::size_t end = pieceEnd(inside, start, [](wchar_t unit) { return unit == L','; });
        arguments.push_back(String(inside.substr(start, end - start)).trim());
        start = end + 1;
    }
    return arguments;
}

} // namespace Xml
