#include "tables/RepeatRows.h"

#include "tables/EditableTableBuffer.h"
#include "tables/RowMarks.h"

using Core::String;
using Xml::Element;

bool RepeatRows::isRepeated() const {
    const Element* row = table_.caretRow();
    return row && RowMarks::isRepeated(*row);
}

void RepeatRows::repeat(const String& path) {
    const CellPlace& caret = table_.caret.caret;
    Element* row = table_.model().cellAt(caret) ? table_.rowOfItsOwn(caret) : nullptr;
    if (!row)
        return;
    RowMarks::makeRepeated(*row);
    RowMarks::set(*row, L"xpath", path, {});
}

void RepeatRows::setPath(const String& path) {
    if (Element* row = rowToChange())
        RowMarks::set(*row, L"xpath", path, {});
}

void RepeatRows::makeStatic() {
    Element* row = rowToChange();
    if (!row)
        return;
    RowMarks::remove(*row, L"xpath");
    row->set_name(L"table-row");
    row->set_namespace(L"fo");
}

/// Null where the caret has no cell or its cell stands in no row.
Element* RepeatRows::rowToChange() const {
    Element* row = table_.caretRow();
    return row && TableTree::isRow(*row) && table_.model().cellAt(table_.caret.caret) ? row
                                                                                      : nullptr;
}

bool EditableTableBuffer::caretIsInRepeatingTableRow() const {
    return currentRowIsRepeatingRow();
}

bool EditableTableBuffer::currentRowIsRepeatingRow() const {
    return RepeatRows(*table_).isRepeated();
}

void EditableTableBuffer::convertCurrentRowToRepeatingRow(const String& xpath) {
    table_->changeFresh([&] { RepeatRows(*table_).repeat(xpath); });
}

void EditableTableBuffer::setRepeatingRowPath(const String& xpath) {
    table_->changeFresh([&] { RepeatRows(*table_).setPath(xpath); });
}

void EditableTableBuffer::convertToStaticRow() {
    table_->changeFresh([&] { RepeatRows(*table_).makeStatic(); });
}
