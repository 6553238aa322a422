#pragma once

class Document;

/// Lines as a reader sees them: where one begins and ends in the markup, what white space around it
/// is layout that does not show, and what lies between two places.
namespace Lines {

// The ends of a line

/// Whether nothing shows between the start of a line and the position.
bool isStart(const Document& document, int position);
/// Whether nothing shows between the position and the end of a line.
bool isEnd(const Document& document, int position);
bool isBehindBlockLevelTag(const Document& document, int position);
/// Whether a line break ends right before the position and nothing of the next line shows behind
/// it.
bool isEmptyBehindLineBreak(const Document& document, int position);
/// Whether a placeholder stands at the position that is all of its line.
bool isPlaceholderLine(const Document& document, int position);

// White space that does not show

/// Back over the white space before the position that does not show.
int startOfSkipped(const Document& document, int position);
/// On over the white space at the position that does not show.
int endOfSkipped(const Document& document, int position);
/// The same, but blanks alone beside text are not passed over: they are no layout of the markup,
/// somebody typed them, and they show again when the break beside which they do not is deleted.
int startOfLayout(const Document& document, int position);
int endOfLayout(const Document& document, int position);
/// Moves a position back over the indentation before it: tabs, and then one line feed.
void startOfIndentation(const Document& document, int& position);
/// Whether a blank stands there that shows and belongs to the element. Beside a character that is
/// deleted it must be kept from collapsing.
bool isKeptBlank(const Document& document, int position, int element);

// Markup in a line, and between two

/// Whether the start tag or the closing tag of an inline stands at the position.
bool isInlineEdge(const Document& document, int position);
bool closesInline(const Document& document, int position);
/// Where the edge of an inline, the comment or the instruction begins that ends at the position; -1
/// if none does.
int startOfHidden(const Document& document, int position);
/// Whether the same block is around both; false where none is.
bool areInOneBlock(const Document& document, int position, int other);
/// Whether a tag of a block stands in the range, its end excluded.
bool blockTagLiesBetween(const Document& document, int start, int end);
/// Whether a block begins at the position that stands directly in a block.
bool isNestedBlock(const Document& document, int position);

} // namespace Lines
