#pragma once

#include "foundation/xml/Element.h"

/// Makes a table look like another, the template. What cells hold and span stays.
namespace TableFormat {

/// The table of a small document that serves as a template: the first in its first block. Null
/// where there is none.
const Xml::Element* templateIn(const Xml::Element& document);

/// The table, and each of its row groups that the template has too.
void apply(Xml::Element& table, const Xml::Element& pattern);
/// All rows take the format of the template's first row.
void applyToGroup(Xml::Element& group, const Xml::Element& pattern);
/// The first three cells of the template are for those at the left end of a row, in its middle and
/// at its right end; with fewer the cells stay as they are. A cell that is several of these, being
/// alone or wide, takes the format of one after the other.
void applyToRow(Xml::Element& row, const Xml::Element& pattern);

} // namespace TableFormat
