#pragma once

class Document;

/// Words, and the steps of the caret from one to the next. A word is a run of units that separate
/// no words, and each punctuation mark is a word of its own.
namespace Words {

bool isSeparator(wchar_t unit);
/// Where the word around or before the position begins: the stop to which a step by words to the
/// left would lead, except that it stops before the start tag of an inline. The position itself
/// where no word can be reached; -1 outside the text and at a table that opens a flow.
int startBefore(const Document& document, int position);

// Steps. With `extend` the pivot stays. They end a run of typing.

/// To the start of the next word, over the edges of inlines around the caret; at any other tag,
/// and directly behind a table, one move to the right.
void stepRight(Document& document, bool extend);
/// To the start of the word around or before the caret, in the same way; before a table one move to
/// the left.
void stepLeft(Document& document, bool extend);

} // namespace Words
