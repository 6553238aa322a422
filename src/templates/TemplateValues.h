#pragma once

#include "foundation/values/PropertyValueEx.h"
#include "templates/TemplateEntries.h"

#include <span>

class Document;

/// Values of attributes, and the entries in the template's data that say what the elements do not.
namespace TemplateValues {

/// Whether the document is one that can have entries.
bool mayBeIn(const Document& document);
/// The document's; none where it has no template data. Throws ParseException where these are not
/// well formed.
TemplateEntries entriesOf(Document& document);

/// Completes a value from the entries of its object and name.
void complete(PropertyValueEx& value, const TemplateEntries& entries);
/// Whether the values of that property are links.
bool isLink(const Core::String& property);
/// Takes the link out of a value that is one: "a.png" of "url('a.png')".
void unwrapLink(PropertyValueEx& value);

/// Gives the document the entries that the values need, and takes those away that they do not. One
/// undo step; nothing where the entries are so already, or are those that its rows were read from.
/// All other entries stay as they stand. A value without an object id has none.
/// False, and no trace, where no parser would take the document with them.
bool write(Document& document, std::span<const PropertyValueEx> values);

} // namespace TemplateValues
