#pragma once

#include "foundation/xml/Element.h"

/// What stands in the cells of a table, as far as commands on cells look at it. An empty cell holds
/// one block whose text is a no-break space, so that the caret has a place in it.
namespace CellContent {

/// Takes text and elements out of the element and leaves the placeholder.
void leavePlaceholder(Xml::Element& element);

/// Empties a cell: its first block keeps its attributes and holds the placeholder, the other blocks
/// and the lists go. Anything else in the cell stays.
void removeText(Xml::Element& cell);

/// Makes a cell that is a copy a new one: empty, whatever it holds, and without ids.
void renew(Xml::Element& cell);

/// A new cell like the given one beside it: empty, whatever that holds, and without its ids.
Xml::Element& addLike(Xml::Element& cell, bool before);

/// Whether a block, or another element, shows nothing: no element, and no text but white space
/// around one placeholder at most.
bool isWithoutText(const Xml::Element& block);
/// Whether the placeholder is all that an element holds, white space included.
bool isJustPlaceholder(const Xml::Element& block);

/// Puts copies of what the source holds, but for blocks without text, behind what the target holds.
/// If something shows in them, a placeholder that was all the text of the target's blocks goes.
void importBlocks(Xml::Element& target, const Xml::Element& source);

/// Takes the ids off the element and all within it, since a copy must not repeat them.
void removeIds(Xml::Element& element);

} // namespace CellContent
