#include "tables/RowContent.h"

#include "tables/CellContent.h"
#include "tables/TableTree.h"

using Xml::Element;

Element& RowContent::copyBehind(Element& row) {
    return static_cast<Element&>(*row.get_parent()->import_node_as_sibling(&row, &row, true));
}

void RowContent::renew(Element& row) {
    CellContent::removeIds(row);
    for (Element* cell : TableTree::cellsOf(row)) {
        if (TableTree::rowSpanOf(*cell) > 1)
            TableTree::setRowSpan(*cell, 1);
        CellContent::renew(*cell);
    }
}
