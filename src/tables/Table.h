#pragma once

#include "tables/BorderInfo.h"
#include "tables/CellSpans.h"
#include "tables/TableModel.h"
#include "trees/Fragment.h"

#include <optional>

class Document;

/// A table of a document while it is edited as a tree: the fragment, its model, and where caret and
/// selection stand in it. What commands change in the tree reaches the document by commit().
class Table {
public:
    /// Reads the table that begins at the position.
    Table(Document& document, Fragment& fragment, int table);

    /// Brings everything in step with the document's text, and the caret into a table. False, and
    /// nothing done, where the table is gone and the caret stands in no other.
    bool update();
    /// Carries out a command on the table as the document has it now.
    template <typename Command>
    void changeFresh(Command command) {
        if (!update())
            return;
        command();
        rebuild();
    }
    /// Whether a table still begins where this one was read.
    bool stands() const;
    /// Looks at the tree again, which a command has changed.
    void rebuild() { model_.emplace(*fragment_.root()); }
    void rebuild(TableRowGroupType group) { model_->rebuild(group); }
    /// Writes the tree back; caret and selection go with their cells.
    void commit();

    Document& document() const { return document_; }
    const Fragment& fragment() const { return fragment_; }
    Xml::Element& root() const { return *fragment_.root(); }
    const TableModel& model() const { return *model_; }
    /// The caret's row, null where it is in none.
    Xml::Element* caretRow() const { return model_->rowAt(caret.caret.group, caret.caret.row); }
    /// The row of the place; null where there is none. Cells that stand in their group directly
    /// are put into a row first, since commands add, move and rename rows.
    Xml::Element* rowOfItsOwn(const CellPlace& place);

    /// The logical column of a position in the document that stands in that row; 0 where no cell of
    /// the row begins.
    int columnAt(int position, TableRowGroupType group, int row) const;

    /// The `<` in the document of the cell that begins at a place; -1 where none begins.
    /// Deliberate: which columns are taken from above is asked of the group of the caret, up to but
    /// excluding `rows` and `columns`.
    int cellPosition(int table, const CellPlace& place, int rows, int columns) const;
    /// Whether the coordinate is taken by a cell that begins elsewhere.
    bool isCovered(const CellPlace& place) const;

    // What the caches of the document refresh

    void findEnd() { fragment_.findEnd(); }
    void findCaret();
    void findSelectionEnd();

    TableCaret caret;
    int columnCount = 0;
    BorderInfo borderInfo; ///< what borders that are set get besides their style

private:
    void read(int table);
    CellPlace placeAt(int position) const;
    CellPlace endPlace(TableRowGroupType groupBehind) const;
    std::optional<CaretPlace> caretAfterCommit() const;
    int cellPosition(const CellPlace& place) const;

    Document& document_;
    Fragment& fragment_;
    std::optional<TableModel> model_;
};
