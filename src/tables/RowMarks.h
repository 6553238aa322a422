#pragma once

#include "foundation/xml/Element.h"

/// What rows of a template say of being repeated and grouped. A group of rows is a heading, which
/// is repeated and has an id, and the members that stand behind it and name that id. What a row
/// says is read and changed whatever prefix it stands under.
namespace RowMarks {

bool isRepeated(const Xml::Element& row);
bool isHeading(const Xml::Element& row);
bool isMember(const Xml::Element& row);

/// Empty where the row does not say it.
Core::String valueOf(const Xml::Element& row, const Core::String& name);
/// Gives what stands there a new value, or adds it under the prefix.
void set(Xml::Element& row, const Core::String& name, const Core::String& value,
         const Core::String& prefix);
void remove(Xml::Element& row, const Core::String& name);

/// The neighbouring elements; null at the ends of the row group.
Xml::Element* next(const Xml::Element& row);
Xml::Element* previous(const Xml::Element& row);

/// Makes the row a repeated one. What a plain row says without a prefix gets its prefix, since it
/// would count as the repeated row's own otherwise.
void makeRepeated(Xml::Element& row);
/// Makes the row a plain one, which is not repeated and heads no group.
void makePlain(Xml::Element& row);
/// Lets the members of the heading's group name it no more.
void freeMembers(const Xml::Element& heading);

} // namespace RowMarks
