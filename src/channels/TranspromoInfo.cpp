#include "channels/TranspromoInfo.h"

#include <algorithm>
#include <iterator>

using Core::String;

namespace {

/// The texts of an enumeration, by its numbers.
constexpr const wchar_t* pageTexts[] = {L"", L"first", L"last", L"odd", L"even", L"blank"};
constexpr const wchar_t* alignmentTexts[] = {L"", L"left", L"center", L"right"};

template <typename Enum, std::size_t Count>
Enum parse(const wchar_t* const (&texts)[Count], const String& text) {
    const auto* const found = std::find_if(std::begin(texts), std::end(texts),
                                           [&](const wchar_t* known) { return text == known; });
    return static_cast<Enum>(found == std::end(texts) ? 0 : found - std::begin(texts));
}

template <typename Enum, std::size_t Count>
String textOf(const wchar_t* const (&texts)[Count], Enum value) {
    const auto index = static_cast<std::size_t>(value);
    return index < Count ? texts[index] : L"";
}

} // namespace

Xml::PageConstraint TranspromoInfo::parsePageContraint(const String& text) {
    return parse<Xml::PageConstraint>(pageTexts, text);
}

String TranspromoInfo::getPageConstraintAsString(Xml::PageConstraint constraint) {
    return textOf(pageTexts, constraint);
}

Xml::AlignmentConstraint TranspromoInfo::parseAlignmentConstraint(const String& text) {
    return parse<Xml::AlignmentConstraint>(alignmentTexts, text);
}

String TranspromoInfo::getAlignmentConstraintAsString(Xml::AlignmentConstraint constraint) {
    return textOf(alignmentTexts, constraint);
}

Xml::TPRule TranspromoInfo::parseTPRuleType(const String& text) {
    const std::size_t open = text.view().find(L'(');
    const std::size_t close = text.view().rfind(L')');
    const bool isCall =
        open != std::wstring_view::npos && close != std::wstring_view::npos && open < close;
    if (isCall)
        return Xml::TPRule(String(text.view().substr(open + 1, close - open - 1)));
    String keyword = text;
    return Xml::TPRule(keyword.trim());
}
