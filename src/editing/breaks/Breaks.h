#pragma once

class Document;

/// Enter: new blocks and new lines at the caret. A hard break splits the block, a soft one is a
/// line break within it, and in a list an item is split.
namespace Breaks {

/// A break at the caret, hard or soft, where it can stand and nothing is selected. Answers where
/// the block begins that a hard break made; -1 if it made none by splitting.
int insertLineBreak(Document& document, bool hard);
/// A new item, where the caret stands in a list.
void insertListBreak(Document& document);

// Parts of a break

/// A hard break right at the caret, whatever table or form is around it. Answers as
/// insertLineBreak() does.
int insertHardBreak(Document& document);
/// A soft break right at the caret. A line that has nothing but soft breaks around it keeps a
/// placeholder.
void insertSoftBreak(Document& document);
/// Where nothing shows right at the caret, the caret goes on over white space, and back from a tag
/// on the same line, to the next stop of its block.
void leaveSkippedPlace(Document& document);

} // namespace Breaks
