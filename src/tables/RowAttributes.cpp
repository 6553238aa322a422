#include "tables/RowAttributes.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/RecordedCommand.h"
#include "foundation/Exception.h"
#include "tables/EditableTableBuffer.h"
#include "tables/RowMarks.h"
#include "tables/TablePlaces.h"

#include <algorithm>

using Core::String;

namespace {

/// The name under which the row has the property, whatever its prefix.
String nameOn(const Document& document, int row, const String& name) {
    const auto properties = Attributes::of(document, row).getPropertyList();
    const auto found =
        std::find_if(properties.begin(), properties.end(), [&](const EditableProperty& property) {
            return property.getName().substringAfter(L":") == name;
        });
    return found == properties.end() ? L"fo:" + name : found->getName();
}

} // namespace

void RowAttributes::write(TableRowGroupType group, int row, const String& name,
                          const String& value) {
    Document& document = table_.document();
    if (!table_.stands() && !table_.update())
        return;
    const int position = positionOf(group, row);
    if (position < 0)
        return;
    const CommandScope scope(document);
    PropertyCollection properties;
    properties.addProperty({nameOn(document, position, name), value}, true);
    if (carryOut(document, [&] { Attributes::merge(document, position, properties); }))
        table_.update();
}

/// The row's `<` in the document; -1 where there is none.
int RowAttributes::positionOf(TableRowGroupType group, int row) const {
    const XmlText& text = table_.document().text();
    std::vector<int> rows = TablePlaces::rowsOf(text, table_.fragment().start(), group);
    const bool endsInCells = !rows.empty() && !TablePlaces::isRow(text, rows.back());
    if (endsInCells)
        rows.pop_back();
    const int count = static_cast<int>(rows.size());
    if (row == count && !endsInCells)
        throw Core::Exception(L"invalid vector<T> subscript");
    return row >= 0 && row < count ? rows[static_cast<std::size_t>(row)] : -1;
}

void EditableTableBuffer::setRowHeight(int row, const String& height, TableRowGroupType group) {
    RowAttributes(*table_).write(group, row, L"height", height);
}

void EditableTableBuffer::setOverFlowHidden(int row, const String& value, TableRowGroupType group) {
    RowAttributes(*table_).write(group, row, L"overflow", value);
}

String EditableTableBuffer::getRowHeight(int row, TableRowGroupType group) const {
    const Xml::Element* element = table_->model().rowAt(group, row);
    return element ? RowMarks::valueOf(*element, L"height") : String();
}

void EditableTableBuffer::removeRowHeight(int row, TableRowGroupType group) {
    if (Xml::Element* element = table_->update() ? table_->model().rowAt(group, row) : nullptr)
        RowMarks::remove(*element, L"height");
}

String EditableTableBuffer::getCrtRowHeight() const {
    return getRowHeight(getCaretRow(), table_->caret.caret.group);
}

void EditableTableBuffer::setCrtRowHeight(const String& height) {
    setRowHeight(getCaretRow(), height, table_->caret.caret.group);
}

void EditableTableBuffer::removeCrtRowHeight() {
    removeRowHeight(getCaretRow(), table_->caret.caret.group);
}
