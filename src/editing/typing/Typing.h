#pragma once

#include "foundation/String.h"
#include "foundation/values/PropertyCollection.h"

class Document;

/// Text that is typed or pasted: escaped or as markup, in the place of what is selected.
namespace Typing {

// Commands

/// Inserts text at the caret in the place of what is selected: plain text, which is escaped and
/// whose control characters but for the tab, line feeds too, become blanks, or markup. A run of
/// plain insertions is one undo step. With `selectInserted` it is selected. False where nothing can
/// go: no caret, a list label, an empty text; and plain text only goes where the caret can stand.
bool insertText(Document& document, const Core::String& text, bool isXml, bool selectInserted);
/// The same, with the properties given to what was inserted. One undo step.
void insertText(Document& document, const Core::String& text, const PropertyCollection& properties,
                bool isXml, bool selectInserted);

// Parts of a command

/// What was inserted, the end excluded.
struct InsertedRange {
    int start;
    int end;
};

enum class Insertion { None, Done, RolledBack };

bool canInsert(const Document& document, const Core::String& text);
/// The insertion at the caret, and whether it was made, refused or taken back.
Insertion insert(Document& document, const Core::String& text, bool isXml, bool selectInserted);
/// Insert at a position and record it. The text is escaped, and one blank becomes a non-breaking
/// space.
InsertedRange insertTextAt(Document& document, int position, Core::String& text);
InsertedRange insertMarkupAt(Document& document, int position, const Core::String& xml);
/// A blank typed at the caret, kept visible: blanks alternate with non-breaking spaces.
InsertedRange insertSpace(Document& document, const Core::String& text);
/// Removes the placeholder of an element that something is being typed into.
void removePlaceholder(Document& document, int position);

} // namespace Typing
