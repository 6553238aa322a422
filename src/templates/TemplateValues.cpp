#include "templates/TemplateValues.h"

#include "document/Document.h"
#include "templates/AttributeEntries.h"
#include "templates/TemplateData.h"

#include <algorithm>
#include <iterator>

using Core::String;
using Core::Vector;

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

void put(const PropertyValueEx& value, QFDAttributeCollection& entries) {
    if (value.isDynamic()) {
        entries.setAttribute(entryFor(value, {}, {}, value.getDynamicValue()));
        return;
    }
    entries.removeAttribute(entryFor(value, {}, {}, {}));
    if (value.isStatic())
        return;
    for (const ConditionalValue& row : value.getConditionalValues())
        entries.addAttribute(entryFor(value, row.condition,
                                      row.isDynamic ? String() : row.staticValue,
                                      row.isDynamic ? row.dynamicValue : String()));
}

} // namespace

bool TemplateValues::mayBeIn(const Document& document) {
    return document.text().rootName() == L"qfd:document";
}

Vector<QFDAttribute> TemplateValues::entriesOf(Document& document) {
    if (!mayBeIn(document))
        return {};
    const TemplateData data(document);
    return data.hasTree() ? AttributeEntries::of(data.root()).getAttributeList()
                          : Vector<QFDAttribute>();
}

// The first entry decides of what type the value is. Behind one with a condition every further one
// is a row, so that one that says what holds otherwise does not hide those before it.
void TemplateValues::complete(PropertyValueEx& value, const Vector<QFDAttribute>& entries) {
    Vector<ConditionalValue> rows;
    value.setType(PropertyValueType::Static);
    for (const QFDAttribute& entry : entries) {
        if (entry.getObjectID() != value.getObjectID() ||
            entry.getAttributeName() != value.getPropertyName())
            continue;
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

void TemplateValues::write(Document& document, std::span<const PropertyValueEx> values) {
    if (!mayBeIn(document))
        return;
    TemplateData data(document);
    if (!data.hasTree())
        return;
    const QFDAttributeCollection before = AttributeEntries::of(data.root());
    QFDAttributeCollection entries = before;
    for (const PropertyValueEx& value : values)
        if (!value.getObjectID().empty())
            put(value, entries);
    if (entries == before)
        return;
    AttributeEntries::override(data.root(), entries);
    data.commit();
}
