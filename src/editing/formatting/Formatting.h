#pragma once

#include "foundation/String.h"
#include "foundation/values/PropertyCollection.h"

class Document;

/// Properties of text and of elements: given to what is selected, to an element that a path or a
/// name tells, and looked up among the elements around a place.
namespace Formatting {

/// Formats what is selected, or gives the properties to one element; others that it has stay. With
/// an empty path and a selection every run of text gets them, as the whole of an inline on that
/// inline and else in an inline of its own; alignment, which no inline can have, goes to the blocks
/// around. Otherwise the element that the path names gets them. One undo step.
void setProperties(Document& document, const PropertyCollection& properties,
                   const Core::String& path);
/// Gives them to the nearest element of that name around the position. One undo step.
void setProperties(Document& document, const PropertyCollection& properties,
                   const Core::String& elementName, int position);
/// The value that the nearest of the elements around the position, or with -1 the caret, has for a
/// property; empty where none has it.
Core::String inherited(const Document& document, const Core::String& name, int position);

// Properties that no inline can have

bool isBlockProperty(const EditableProperty& property);
/// Takes what cannot stand on an inline out of the collection and answers it.
PropertyCollection takeBlockProperties(PropertyCollection& properties);

// Parts of a command

void formatSelection(Document& document, const PropertyCollection& properties);
/// Formats the text from `from` up to but excluding `to`, as setProperties() does with what is
/// selected. One undo step.
void formatInline(Document& document, int from, int to, PropertyCollection properties);
/// Gives the properties to the block around the position. Answers by how much the text behind the
/// block's start tag moved.
int formatBlockAround(Document& document, int position, const PropertyCollection& properties);
/// Gives them to that element; answers whether it took them. One undo step.
bool change(Document& document, int element, const PropertyCollection& properties);
int elementNamedByPath(const Document& document, const Core::String& path);

// Runs of text: what one inline can hold

/// The first stop from the position on, and before the limit, that has text behind it; -1 if none.
int startOfTextRun(const Document& document, int position, int limit);
/// Where an inline around the text that begins at `start` has to end: at the limit or a tag before
/// it. Objects without content, such as a page number, belong to the text.
int endOfTextRun(const Document& document, int start, int limit);

} // namespace Formatting
