#include "templates/TemplateValues.h"

#include "document/Document.h"
#include "templates/AttributeEntries.h"
#include "templates/TemplateData.h"

#include <algorithm>
#include <iterator>

using Core::String;

namespace {

bool isLink(const String& property) {
    static constexpr const wchar_t* links[] = {L"fo:src", L"qf:src", L"qfd:src", L"qf:preview-src",
                                               L"fo:background-image"};
    return std::any_of(std::begin(links), std::end(links),
                       [&](const wchar_t* link) { return property == link; });
}

bool isAroundLink(wchar_t unit) {
    return String::isSpace(unit) || unit == L'\'' || unit == L'"';
}

String linkIn(const String& value) {
    const std::wstring_view text = value.view();
    const std::size_t open = text.find(L'(');
    const std::size_t close = text.rfind(L')');
    if (!text.starts_with(L"url") || open == text.npos || close == text.npos || close < open)
        return value;
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(close);
    const auto start =
        std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(open) + 1, end, isAroundLink);
    const auto behind = std::find_if_not(std::make_reverse_iterator(end),
                                         std::make_reverse_iterator(start), isAroundLink);
    return String(std::wstring(start, behind.base()));
}

QFDAttribute entryFor(const PropertyValueEx& value, const String& condition,
                      const String& staticValue, const String& dynamicValue) {
    return {value.getObjectID(), value.getPropertyName(), String(), condition, staticValue,
            dynamicValue};
}

void put(const PropertyValueEx& value, TemplateEntries& entries) {
    if (value.isDynamic()) {
        entries.set(entryFor(value, {}, {}, value.getDynamicValue()));
        return;
    }
    entries.remove(value.getObjectID(), value.getPropertyName());
    if (value.isStatic())
        return;
    for (const ConditionalValue& row : value.getConditionalValues())
        entries.add(entryFor(value, row.condition, row.isDynamic ? String() : row.staticValue,
                             row.isDynamic ? row.dynamicValue : String()));
}

} // namespace

bool TemplateValues::mayBeIn(const Document& document) {
    return document.text().rootName() == L"qfd:document";
}

TemplateEntries TemplateValues::entriesOf(Document& document) {
    if (!mayBeIn(document))
        return {};
    const TemplateData data(document);
    return data.hasTree() ? TemplateEntries(AttributeEntries::of(data.root())) : TemplateEntries();
}

// The first entry decides of what type the value is. Behind one with a condition every further one
// is a row, so that one that says what holds otherwise does not hide those before it.
void TemplateValues::complete(PropertyValueEx& value, const TemplateEntries& entries) {
    Core::Vector<ConditionalValue> rows;
    value.setType(PropertyValueType::Static);
    for (const QFDAttribute& entry : entries.of(value.getObjectID(), value.getPropertyName())) {
        const bool mayDecideAlone = rows.empty() && entry.getCondition().empty();
        if (mayDecideAlone && !entry.getDynamicValue().empty()) {
            value.setType(PropertyValueType::Dynamic);
            value.setDynamicValue(entry.getDynamicValue());
            break;
        }
        if (mayDecideAlone && entry.getValue().empty())
            break;
        rows.emplace_back().read(entry);
    }
    value.setConditionalValues(rows);
    if (rows.empty())
        return;
    value.setType(PropertyValueType::Conditional);
    value.setDynamicValue(String());
}

void TemplateValues::unwrapLink(PropertyValueEx& value) {
    if (isLink(value.getPropertyName()))
        value.setStaticValue(linkIn(value.getStaticValue()));
}

bool TemplateValues::write(Document& document, std::span<const PropertyValueEx> values) {
    if (values.empty() || !mayBeIn(document))
        return true;
    TemplateData data(document);
    if (!data.hasTree())
        return true;
    const QFDAttributeCollection before = AttributeEntries::of(data.root());
    TemplateEntries entries(before);
    for (const PropertyValueEx& value : values)
        if (!value.getObjectID().empty())
            put(value, entries);
    const QFDAttributeCollection after = entries.all();
    if (after == before)
        return true;
    AttributeEntries::override(data.root(), after);
    return data.commit();
}
