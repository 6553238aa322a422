#pragma once

#include "foundation/xml/Element.h"

/// Rows as commands make new ones of them.
namespace RowContent {

/// A copy with all that is in it, directly behind the row.
Xml::Element& copyBehind(Xml::Element& row);

/// Makes the row a new one: its cells are empty and one row high, and nothing in it has an id.
void renew(Xml::Element& row);

} // namespace RowContent
