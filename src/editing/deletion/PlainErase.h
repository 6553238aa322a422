#pragma once

class Document;

/// Nearly every Backspace and Delete takes a character from the middle of a word, where the key
/// before was. All the rules of deletion together then come to this: the character goes, the caret
/// stands where it was, and a step is recorded. So that is done at once. It is no second set of
/// rules: the same comes of going the long way.
namespace PlainErase {

/// Whether the unit behind the caret, or the one before it, can be taken so.
bool isPossible(const Document& document, bool forward);

/// Takes it if that is possible; otherwise does nothing and answers false.
bool erase(Document& document, bool forward);

} // namespace PlainErase
