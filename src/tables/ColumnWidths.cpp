#include "tables/ColumnWidths.h"

#include "foundation/Format.h"
#include "foundation/StringFormatStream.h"
#include "foundation/values/ColumnWidth.h"
#include "tables/CellContent.h"
#include "tables/EditableTableBuffer.h"
#include "tables/RowMarks.h"

#include <algorithm>
#include <map>
#include <optional>

using Core::String;
using Xml::Element;
using Xml::LengthOrPercent;

namespace {

constexpr float smallestShare = 0.01F;
const String attribute = L"column-width";

std::optional<LengthOrPercent> parsed(const String& width) {
    Xml::ColumnWidth result;
    if (!Xml::ColumnWidth::parseColumnWidth(width, result))
        return std::nullopt;
    return result.getLengthOrPercent();
}

std::optional<float> percentOf(const String& width) {
    const std::optional<LengthOrPercent> value = parsed(width);
    return value && value->isPercent() ? std::optional(value->getPercent()) : std::nullopt;
}

/// A share, a percentage or a number alone.
std::optional<float> shareOf(const String& width) {
    float number = 0;
    return Core::Format::parseFloat(width, number) ? std::optional(number) : percentOf(width);
}

String asPercent(float percent) {
    LengthOrPercent value;
    value.setPercent(percent);
    return value.getValueAsString();
}

bool canStandInXml(int unit) {
    return unit == 0x9 || unit == 0xA || unit == 0xD || (unit >= 0x20 && unit < 0xD800) ||
           (unit >= 0xE000 && unit < 0xFFFE);
}

std::map<int, Element*> columnsByNumber(const Element& table) {
    std::map<int, Element*> columns;
    int free = 0;
    for (Element* column : TableTree::columnsOf(table)) {
        const String number = RowMarks::valueOf(*column, L"column-number");
        while (columns.contains(free))
            ++free;
        columns[number.empty() ? free : Core::Format::parseInt(number)] = column;
    }
    return columns;
}

void makeColumns(Element& table, int count) {
    const auto children = table.get_children();
    const auto first = std::find_if(children.begin(), children.end(),
                                    [](const Xml::Node* child) { return child->is_element(); });
    for (; first != children.end() && count > 0; --count)
        table.add_node_as_prev_sibling(*first, L"table-column", L"fo");
}

/// A copy of the column before, for that number. Deliberate: it is the column copied that is told
/// a number, and that is one character of that code.
Element& splitFor(int number, Element& column) {
    auto& copy =
        static_cast<Element&>(*column.get_parent()->import_node_as_sibling(&column, &column, true));
    CellContent::removeIds(copy);
    if (canStandInXml(number))
        column.set_attribute(L"column-number", String(static_cast<wchar_t>(number), 1));
    else
        copy.set_attribute(L"column-number", String::formatS(number));
    return copy;
}

} // namespace

Element* ColumnWidths::element(int column) const {
    const TableTree::Elements columns = TableTree::columnsOf(table_.root());
    return column >= 0 && column < static_cast<int>(columns.size())
               ? columns[static_cast<std::size_t>(column)]
               : nullptr;
}

String ColumnWidths::of(int column) const {
    const Element* found = element(column);
    return found ? RowMarks::valueOf(*found, attribute) : String();
}

void ColumnWidths::set(int column, const String& width) {
    Element* found = element(column);
    const int sign = width.length() - 1;
    float percent = 0;
    if (!found)
        return;
    if (sign < 0 || width.view()[static_cast<std::size_t>(sign)] != L'%')
        found->set_attribute(attribute, width);
    else if (Core::Format::parseFloat(
                 String(width.view().substr(0, static_cast<std::size_t>(sign))), percent))
        found->set_attribute(attribute, Xml::ColumnWidth::formatShare(percent));
}

void ColumnWidths::remove(int column) {
    if (Element* found = element(column))
        found->remove_attribute(attribute);
}

void ColumnWidths::setByNumber(int number, const String& width) {
    if (TableTree::columnsOf(table_.root()).empty())
        makeColumns(table_.root(), table_.columnCount);
    const std::map<int, Element*> columns = columnsByNumber(table_.root());
    auto found = columns.upper_bound(number);
    if (found == columns.begin())
        return;
    --found;
    if (found->first != number && found->first < 1)
        return;
    Element& column = found->first == number ? *found->second : splitFor(number, *found->second);
    Core::StringFormatStream share(L"proportional-column-width({0})");
    share << width;
    column.set_attribute(attribute, share.getString());
}

void ColumnWidths::resize(const String& width) {
    const int column = table_.caret.caret.column;
    const std::optional<LengthOrPercent> value = parsed(withUnit(width));
    if (!value || !table_.model().cellAt(table_.caret.caret))
        return;
    const std::optional<float> old = percentOf(of(column));
    if (value->isPercent() && old) {
        const bool isLast = column == table_.columnCount - 1;
        const int partner = isLast ? previousShare(column) : nextShare(column);
        if (value->getPercent() < smallestShare)
            return;
        if (const std::optional<float> other = percentOf(of(partner)); partner >= 0 && other) {
            const float left = *other - (value->getPercent() - *old);
            if (left < smallestShare)
                return;
            set(partner, asPercent(left));
        }
    }
    set(column, value->getValueAsString());
}

void ColumnWidths::resize(const String& width, float delta) {
    std::optional<LengthOrPercent> value = parsed(width);
    if (!value)
        return;
    Xml::Length length = value->getLength();
    const float sum = (value->isPercent() ? value->getPercent() : length.getSize()) + delta;
    if (delta != 0 && sum < 0)
        return;
    if (delta != 0 && value->isPercent()) {
        value->setPercent(sum);
    } else if (delta != 0) {
        length.setSize(sum);
        value->setLength(length);
    }
    resize(value->getValueAsString());
}

void ColumnWidths::normalise() {
    std::vector<float> shares;
    float total = 0;
    for (int column = 0; column < table_.columnCount; ++column) {
        const std::optional<float> share = shareOf(of(column));
        if (!share)
            return;
        shares.push_back(*share);
        total += *share;
    }
    for (int column = 0; total > 0 && column < table_.columnCount; ++column) {
        const double share = shares[static_cast<std::size_t>(column)];
        set(column, Core::Format::formatValue(static_cast<float>(share / total * 100.0), L""));
    }
}

bool ColumnWidths::isShare(int column) const {
    return Xml::ColumnWidth::isShare(of(column));
}

int ColumnWidths::nextShare(int column) const {
    const int count = table_.columnCount;
    const int behind = column >= -1 && column < count - 1 ? column + 1 : 0;
    for (int step = 0; step < count; ++step) {
        const int at = (behind + step) % count;
        if (at != column && isShare(at))
            return at;
    }
    return -1;
}

int ColumnWidths::previousShare(int column) const {
    int at = column;
    for (int step = 1; step < table_.columnCount; ++step) {
        at = at > 1 ? at - 1 : table_.columnCount - 1;
        if (at == column)
            break;
        if (isShare(at))
            return at;
    }
    return -1;
}

String ColumnWidths::withUnit(const String& text) {
    constexpr std::wstring_view units[] = {L"%",  L"px", L"pt", L"pc", L"cm",
                                           L"mm", L"in", L"em", L"ex"};
    const bool hasUnit = std::any_of(std::begin(units), std::end(units), [&](auto unit) {
        return std::wstring_view(text.view()).ends_with(unit);
    });
    return text.empty() || hasUnit ? text : text + L"in";
}

String EditableTableBuffer::getColumnWidth(int column) const {
    return ColumnWidths(*table_).of(column);
}

void EditableTableBuffer::setColumnWidth(int column, const String& width, bool update) {
    if (!update || table_->update())
        ColumnWidths(*table_).set(column, width);
}

void EditableTableBuffer::removeColumnWidth(int column, bool update) {
    if (!update || table_->update())
        ColumnWidths(*table_).remove(column);
}

void EditableTableBuffer::setWidthAtColNo(int columnNumber, const String& width, bool update) {
    if (!update || table_->update())
        ColumnWidths(*table_).setByNumber(columnNumber, width);
}

String EditableTableBuffer::getCrtColumnWidth() const {
    return getColumnWidth(getCaretCol());
}

void EditableTableBuffer::setCrtColumnWidth(const String& width) {
    setColumnWidth(getCaretCol(), width, true);
}

void EditableTableBuffer::removeCrtColumnWidth() {
    removeColumnWidth(getCaretCol(), true);
}

void EditableTableBuffer::changeTableColWidth(const String& width) {
    table_->changeFresh([&] { ColumnWidths(*table_).resize(width); });
}

void EditableTableBuffer::changeTableColWidth(const String& width, float delta) {
    table_->changeFresh([&] { ColumnWidths(*table_).resize(width, delta); });
}

void EditableTableBuffer::updateColumnWidths() {
    table_->changeFresh([&] { ColumnWidths(*table_).normalise(); });
}

bool EditableTableBuffer::columnHasProportionalValSize(int column) const {
    return ColumnWidths(*table_).isShare(column);
}

int EditableTableBuffer::getNextProportionalWithCol(int column) const {
    return ColumnWidths(*table_).nextShare(column);
}

int EditableTableBuffer::getPrevProportionalWithCol(int column) const {
    return ColumnWidths(*table_).previousShare(column);
}
