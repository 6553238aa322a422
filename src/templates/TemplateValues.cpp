#include "templates/TemplateValues.h"

#include "document/Document.h"
#include "foundation/xml/Element.h"
#include "templates/AttributeEntries.h"
#include "templates/TemplateData.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>
#include <vector>

using Core::String;
using Xml::Element;

namespace {

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

using Entries = TemplateEntries::Entries;

/// What a value needs.
Entries entriesFor(const PropertyValueEx& value) {
    if (value.isDynamic())
        return {entryFor(value, {}, {}, value.getDynamicValue())};
    Entries entries;
    if (!value.isStatic())
        for (const ConditionalValue& row : value.getConditionalValues())
            entries.push_back(entryFor(value, row.condition,
                                       row.isDynamic ? String() : row.staticValue,
                                       row.isDynamic ? row.dynamicValue : String()));
    return entries;
}

/// The first entry decides of what type the value is. Behind one with a condition every further one
/// is a row, so that one that says what holds otherwise does not hide those before it.
void readInto(PropertyValueEx& value, const Entries& entries) {
    Core::Vector<ConditionalValue> rows;
    value.setType(PropertyValueType::Static);
    for (const QFDAttribute& entry : entries) {
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

/// Whether the value is a list of rows that was read from these entries, which may say more than
/// the rows do.
bool areRowsOf(const PropertyValueEx& value, const Entries& entries) {
    PropertyValueEx read(value.getPropertyName(), value.getObjectID());
    readInto(read, entries);
    return read.getType() == PropertyValueType::Conditional && read.getType() == value.getType() &&
           read.getConditionalValues() == value.getConditionalValues();
}

/// The entries of a tree by the attributes that they are for, to be changed one value at a time.
class WrittenEntries {
public:
    explicit WrittenEntries(Element& root) : root_(root) {
        for (Element* element : AttributeEntries::elementsOf(root)) {
            const QFDAttribute entry = AttributeEntries::read(*element);
            elements_[{entry.getObjectID(), entry.getAttributeName()}].push_back(element);
        }
    }

    /// Answers whether that takes a change.
    bool put(const PropertyValueEx& value) {
        std::vector<Element*>& own = elements_[{value.getObjectID(), value.getPropertyName()}];
        Entries present;
        for (const Element* element : own)
            present.push_back(AttributeEntries::read(*element));
        const Entries wanted = entriesFor(value);
        if (present == wanted || areRowsOf(value, present))
            return false;
        // One that is computed takes the place of the first.
        const std::size_t kept = value.isDynamic() && !own.empty() ? 1 : 0;
        if (kept == 1)
            AttributeEntries::write(*own.front(), wanted.front());
        for (; own.size() > kept; own.pop_back())
            root_.remove_child(own.back());
        for (std::size_t i = kept; i < wanted.size(); ++i)
            own.push_back(&AttributeEntries::append(root_, wanted[i]));
        return true;
    }

private:
    Element& root_;
    std::map<std::pair<String, String>, std::vector<Element*>> elements_;
};

} // namespace

bool TemplateValues::mayBeIn(const Document& document) {
    return document.text().rootName() == L"qfd:document";
}

TemplateEntries TemplateValues::entriesOf(Document& document) {
    if (!mayBeIn(document))
        return {};
    const TemplateData data(document);
    return data.hasTree() ? TemplateEntries(data.root()) : TemplateEntries();
}

void TemplateValues::complete(PropertyValueEx& value, const TemplateEntries& entries) {
    readInto(value, entries.of(value.getObjectID(), value.getPropertyName()));
}

bool TemplateValues::isLink(const String& property) {
    static constexpr const wchar_t* links[] = {L"fo:src", L"qf:src", L"qfd:src", L"qf:preview-src",
                                               L"fo:background-image"};
    return std::any_of(std::begin(links), std::end(links),
                       [&](const wchar_t* link) { return property == link; });
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
    WrittenEntries entries(data.root());
    bool isChanged = false;
    for (const PropertyValueEx& value : values)
        if (!value.getObjectID().empty())
            isChanged = entries.put(value) || isChanged;
    return !isChanged || data.commit();
}
