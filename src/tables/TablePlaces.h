#pragma once

#include "tables/TableRowGroupType.h"
#include "text/XmlText.h"

#include <vector>

/// Where the parts of a table stand in the text. Tables, row groups, rows and cells are given and
/// answered by the `<` of their start tags; a list is empty where there is nothing.
namespace TablePlaces {

/// The innermost table around the position.
int tableAround(const XmlText& text, int position);

/// The elements of a group in their order: several bodies together are the body.
std::vector<int> groupsOf(const XmlText& text, int table, TableRowGroupType type);
/// The rows of one group element, those of all elements of the group. Cells that stand in a header
/// or footer directly are one row, the group element itself, and nothing behind it is a row.
std::vector<int> rowsOf(const XmlText& text, int group);
std::vector<int> rowsOf(const XmlText& text, int table, TableRowGroupType type);
std::vector<int> cellsOf(const XmlText& text, int row);
/// The children of that name, which is given with prefix.
std::vector<int> childrenNamed(const XmlText& text, int parent, XmlScan::Text name);

bool isRow(const XmlText& text, int element);
/// The table's own cell around the position, which may lie in a table within it; -1 if none is.
/// With a `table` of -1 that is the innermost around the position.
int cellAround(const XmlText& text, int position, int table);
/// The group that the cell's row belongs to; None for no cell.
TableRowGroupType groupOf(const XmlText& text, int cell);
/// The number of the cell's row in its group, and that of the cell in its row; -1 for no cell.
int rowNumberOf(const XmlText& text, int cell);
int cellNumberOf(const XmlText& text, int cell);

/// What the cell says that it spans; 1 where it says nothing that can be read.
int columnSpanOf(const XmlText& text, int cell);
int rowSpanOf(const XmlText& text, int cell);

} // namespace TablePlaces
