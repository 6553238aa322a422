#pragma once

#include "foundation/String.h"

class Document;
class XmlText;

/// The simple page masters of a text, by their names, which are plain text.
namespace MasterText {

/// The `<` of the first of that name; -1 without one, and for the empty name.
int find(const XmlText& text, const Core::String& name);
/// The flow name of its body; empty without one.
Core::String bodyNameOf(const XmlText& text, int master);

/// Puts the markup, which must be one simple page master of that name and nothing else, in the
/// place of the document's. One undo step. Answers whether that was done.
bool replace(Document& document, const Core::String& name, const Core::String& markup);

} // namespace MasterText
