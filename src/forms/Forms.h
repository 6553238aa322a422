#pragma once

#include "forms/FormControlType.h"
#include "foundation/String.h"
#include "foundation/values/PropertyCollection.h"

class Document;

/// Forms and their controls, which are named by the offset of their start tag, -1 where there is
/// none.
namespace Forms {

// Types

Core::String nameOf(Xml::FormControlType type);
Xml::FormControlType typeNamed(const Core::String& name);

// Questions

/// The nearest control before the caret, in the form around it, whose type in lower case is that.
int previousControl(const Document& document, const Core::String& typeName);
/// The one that is all of what is selected.
int selectedControl(const Document& document);
bool isFlat(const Document& document, int control);

// Commands, each one undo step

void insertEmptyForm(Document& document);
void insertControl(Document& document, Xml::FormControlType type, const Core::String& name,
                   const Core::String& dynamicValue);
/// In a form of its own, which the caret stays in.
void insertControlInForm(Document& document, Xml::FormControlType type);
void uncheckGroup(Document& document, const Core::String& name);
void applySkin(Document& document, PropertyCollection skin);
void removeSkin(Document& document);
/// Makes the selected control flat or no longer flat.
void toggleFlatStyle(Document& document);

// Markup

Core::String inForm(const Core::String& content);
/// A control, whose dynamic value is written into the template's data if it has one.
Core::String controlMarkup(Document& document, Xml::FormControlType type, const Core::String& name,
                           const Core::String& dynamicValue);

} // namespace Forms
