#pragma once

class Document;

namespace Breaks {

/// Enter in a list.
void insertListBreak(Document& document);
/// A break at the caret, hard or soft, where it can stand and nothing is selected. Answers
/// where the block begins that a hard break made; -1 if it made none by splitting.
int insertLineBreak(Document& document, bool hard);
/// The same for a hard break right at the caret, whatever table or form is around it.
int insertHardBreak(Document& document);
/// A line that has nothing but soft breaks around it keeps a placeholder.
void insertSoftBreak(Document& document);
/// Where nothing shows right at the caret, the caret goes on over white space, and back from a tag
/// on the same line, to the next stop of its block.
void leaveSkippedPlace(Document& document);

} // namespace Breaks
