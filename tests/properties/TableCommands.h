#pragma once

#include "properties/PlainTable.h"
#include "properties/RandomCommands.h"

#include <string>

/// A document with tables of 1 to 12 columns, with spans, headers, footers, groups of rows, several
/// bodies and tables in cells. No two of its words are the same. One in `strangeEvery` of its
/// tables has spans that fit nowhere.
std::string documentWithTables(Random& random, std::size_t strangeEvery);

/// Where a command finds the caret.
struct TableSituation {
    const PlainTable& table;
    TableRowGroupType group;
    int row;
    int column;
    int endRow; ///< of the selection; -1 where it ends in another group
    bool isSelection;

    const PlainTable::Group& rows() const { return table.group(group); }
};

/// What a command on a table does to it. Of each it is promised that the text stays well formed,
/// what lies outside of the table and the content of cells that are not concerned stay as they are,
/// ids stay unique, groups whose cells cover all coordinates once still do where nothing spanned,
/// and undo takes it back.
struct TableCommand {
    std::size_t weight;
    /// Its name and arguments. "$" stands for a number, "~" for an edge of a cell, all or none.
    const char* request;
    /// The question that a host asks first; if it says yes the table changes.
    const char* can = "";
    /// Whose words go. Without any all stay.
    PlainTable::Cells (*takes)(const TableSituation&) = nullptr;
    /// How many more times the words of the caret's row are there.
    int copies = 0;
    /// How many cells change within.
    std::size_t touches = 0;
    /// Whether people would give it there.
    bool (*isGiven)(const TableSituation&) = nullptr;
    /// What is asked before the commit, and told.
    const char* question = "";
    const char* answer = "";
};

/// Tries random commands on the tables of a document, each committed, with typing, Tab, undo and
/// redo between them. Answers which promise was broken and the shrunk script, or nothing.
std::string tableFailureOn(const std::string& document, Random& random, std::size_t count);

/// The document after some commands on its tables, whatever they did.
std::string withTablesEdited(const std::string& document, Random& random, std::size_t count);
