#pragma once

#include "foundation/SmartPtr.h"
#include "foundation/xml/XmlDocument.h"
#include "tables/TableRowGroupType.h"

#include <array>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// A table of a document, read from its text in the simplest way: every coordinate is written down.
/// Commands are judged by comparing two of them.
class PlainTable {
public:
    struct Cell {
        const Xml::Element* element;
        int row; ///< where it begins, in its group
        int column;
        int columns; ///< that it takes
        int rows;
        std::multiset<std::wstring> words;
        std::wstring content; ///< its markup behind the start tag
    };
    using Cells = std::vector<const Cell*>;

    struct Group {
        std::vector<const Xml::Element*> rows;
        std::vector<int> bodyEnds; ///< for each row the one behind the last of its body
        std::vector<std::unique_ptr<Cell>> cells;
        std::map<std::pair<int, int>, const Cell*> matrix;
        bool isBalanced = true; ///< each coordinate is covered once, and nothing else is

        Cells ownCells(int row) const;
        /// Those that cover something of the column, each once.
        Cells cellsIn(int column) const;
    };

    /// Of the document's text, whose table begins at the `<`.
    PlainTable(const Core::String& document, int table);

    const Group& group(TableRowGroupType type) const {
        return groups_[static_cast<std::size_t>(type)];
    }
    int columns() const { return columns_; }
    int rows(TableRowGroupType type) const { return static_cast<int>(group(type).rows.size()); }
    /// All groups are, no cell tells its column or row by itself, and all spans count.
    bool isBalanced() const;
    /// Whether a cell takes more than one column or row.
    bool hasSpans() const;
    /// Of its text in the document.
    std::size_t length() const { return length_; }
    /// Of header, body and footer, which is a reader's order.
    Cells cells() const;

private:
    void readRows(TableRowGroupType type);
    void fill(Group& group);
    void place(Group& group, std::unique_ptr<Cell> cell);

    std::size_t length_;
    SmartPtr<Xml::XmlDocument> tree_;
    std::array<Group, 4> groups_;
    int columns_ = 0;
    bool isStrange_ = false; // a cell tells its place, or spans more columns than count
};

/// The words of an element and of all in it.
std::multiset<std::wstring> wordsOf(const Xml::Node& node);
/// Those of several cells together.
std::multiset<std::wstring> wordsOf(const PlainTable::Cells& cells);
