#pragma once

#include "foundation/String.h"
#include "foundation/values/PropertyCollection.h"

class Document;

namespace Typing {

/// What was inserted, the end excluded.
struct InsertedRange {
    int start;
    int end;
};

enum class Insertion { None, Done, RolledBack };

/// Inserts text at the caret in the place of what is selected: plain text, which is escaped and
/// whose control characters but for the tab, line feeds too, become blanks, or markup. A run of
/// plain insertions is one undo step. With `selectInserted` it is selected. False where nothing
/// can go: no caret, a list label, an empty text; and plain text only goes where the caret can
/// stand.
bool insertText(Document& document, const Core::String& text, bool isXml, bool selectInserted);
/// Inserts text at the caret in the place of what is selected: plain text, which is escaped and
/// whose control characters but for the tab, line feeds too, become blanks, or markup. A run of
/// plain insertions is one undo step. With `selectInserted` it is selected. False where nothing
/// can go: no caret, a list label, an empty text; and plain text only goes where the caret can
/// stand.
void insertText(Document& document, const Core::String& text, const PropertyCollection& properties,
                bool isXml, bool selectInserted);
/// Replaces the markup from `start` through `end`, both included. One undo step.
void replace(Document& document, int start, int end, const Core::String& xml);
bool canInsert(const Document& document, const Core::String& text);
Insertion insert(Document& document, const Core::String& text, bool isXml, bool selectInserted);
InsertedRange insertTextAt(Document& document, int position, Core::String& text);
InsertedRange insertMarkupAt(Document& document, int position, const Core::String& xml);
/// A blank typed at the caret, kept visible: blanks alternate with non-breaking spaces.
InsertedRange insertSpace(Document& document, const Core::String& text);
/// Removes the placeholder of an element that something is being typed into.
void removePlaceholder(Document& document, int position);

} // namespace Typing
