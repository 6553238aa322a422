#include "tables/RepeatRows.h"

#include "tables/RowMarks.h"

using Core::String;
using Xml::Element;

bool RepeatRows::isRepeated() const {
    const CellPlace& caret = table_.caret.caret;
    const Element* row = table_.model().rowAt(caret.group, caret.row);
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
    const CellPlace& caret = table_.caret.caret;
    Element* row = table_.model().rowAt(caret.group, caret.row);
    return row && TableTree::isRow(*row) && table_.model().cellAt(caret) ? row : nullptr;
}
