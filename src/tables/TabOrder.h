#pragma once

#include "text/XmlText.h"

/// The order in which a reader meets a table's cells: the header, the body and then the footer,
/// which in the text stands before the body. Cells are given and answered by their `<`; -1 stands
/// for none. What is passed is the way to the neighbour and not the table, so that each step costs
/// the same wherever the cell stands.
namespace TabOrder {

int next(const XmlText& text, int cell);
int previous(const XmlText& text, int cell);
/// The neighbours in the same row.
int nextInRow(const XmlText& text, int cell);
int previousInRow(const XmlText& text, int cell);

} // namespace TabOrder
