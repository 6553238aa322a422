#pragma once

#include "CallTable.h"

#include <vector>

/// The requests, a table for each room, in the order in which a host meets them. A new operation is
/// a row in one of them.
namespace Calls {

using Table = std::vector<Operation> (*)();

/// The tables of what a program answers. Each program has its own choice; that of `forme` is all.
std::vector<Table> served();

/// What this program itself does for a host.
std::vector<Operation> session();
/// The names that a host registers, loading and saving, and the large parts of the text.
std::vector<Operation> document();
/// Undo and redo, groups of changes, and the changes of the text that a host makes itself.
std::vector<Operation> history();
/// Where the caret is and where it goes.
std::vector<Operation> caret();
/// Finding and replacing, and spelling.
std::vector<Operation> search();
/// What is selected.
std::vector<Operation> selection();
/// Insertion of text and markup.
std::vector<Operation> typing();
/// What is copied and pasted.
std::vector<Operation> clipboard();
/// Backspace, Delete and what goes with them.
std::vector<Operation> deletion();
/// Breaks of lines, pages and columns.
std::vector<Operation> breaks();
/// Properties and styles.
std::vector<Operation> formatting();
/// Objects, conditional and repeating sections, autotext.
std::vector<Operation> objects();
/// Lists.
std::vector<Operation> lists();
/// Forms and their controls.
std::vector<Operation> forms();
/// Modes of editing and what the document's head says.
std::vector<Operation> settings();
/// What is in the document: flows, components, identified elements.
std::vector<Operation> content();
/// Page sequences and what stands in their place.
std::vector<Operation> pageSequences();
/// The page sequences that are edited as a tree.
std::vector<Operation> pageSequenceTree();
/// Pages on which headers, footers and side regions are edited.
std::vector<Operation> detachedPages();
/// The cache for a host's view of the table around the caret.
std::vector<Operation> tables();
/// The page masters of the document.
std::vector<Operation> masters();
/// What a template says ahead of its page masters.
std::vector<Operation> templateData();
/// Values of attributes that may be computed.
std::vector<Operation> values();
/// Who may edit the document.
std::vector<Operation> security();
/// The promo places of a page sequence.
std::vector<Operation> promoPlaces();
/// Bookmarks, annotations with the signature, and sections with conditions.
std::vector<Operation> channels();
/// What is drawn and where, and what a toolbar shows.
std::vector<Operation> view();
/// The document in other languages.
std::vector<Operation> exports();

} // namespace Calls
