#pragma once

#include "foundation/xml/Element.h"
#include "tables/TableRowGroupType.h"

#include <vector>

/// What the elements of a table are. Nothing is remembered: every answer is of the tree as it
/// stands.
namespace TableTree {

using Elements = std::vector<Xml::Element*>;

/// The largest number of columns that a cell counts as taking.
inline constexpr int widestSpan = 1000;
/// The most rows behind the last of its group that a cell counts as reaching into.
inline constexpr int longestOverhang = 1000;

/// The elements of a group in their order: several bodies together are the body.
Elements groupsOf(const Xml::Element& table, TableRowGroupType type);

/// Whether the element is a row of its own, be it one that is written for each node of the data.
bool isRow(const Xml::Element& element);

/// The rows of one group element: those that are written once for each node of the data count as
/// one. Cells that stand directly in a header or footer are one row, the group element itself, and
/// nothing behind the first of them is looked at.
Elements rowsOf(Xml::Element& group);
/// Those of all elements of the group.
Elements rowsOf(const Xml::Element& table, TableRowGroupType type);

/// The table's fo:table-column elements.
Elements columnsOf(const Xml::Element& table);
/// Those of them with the numbers, counted from 0, each once and in their own order.
Elements columnsAt(const Xml::Element& table, const std::vector<int>& numbers);

/// Puts the cells that stand in the group directly into a row of their own.
void putCellsIntoRow(Xml::Element& group);

/// The row's own cells.
Elements cellsOf(const Xml::Element& row);

/// How many columns or rows the cell says that it takes: 1 where it says nothing that can be read,
/// never below 0, and no more columns than counts.
int columnSpanOf(const Xml::Element& cell);
int rowSpanOf(const Xml::Element& cell);
void setColumnSpan(Xml::Element& cell, int span);
void setRowSpan(Xml::Element& cell, int span);

/// The sum of the spans of the row's own cells, which is less than the table's columns where a cell
/// of a row above reaches into this one.
int countColumns(const Xml::Element& row);
/// The largest such sum of the table.
int countTableColumns(const Xml::Element& table);

/// The row's own cell that begins in that column, counting the spans of its own cells only; null
/// if none does.
Xml::Element* cellBeginningAt(const Xml::Element& row, int column);
/// The place of the cell among those of the row; -1 where it is none of them.
int indexOf(const Xml::Element& cell, const Xml::Element& row);

} // namespace TableTree
