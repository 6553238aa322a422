#pragma once

#include "tables/CellBorders.h"
#include "tables/TableModel.h"

#include <unordered_map>
#include <vector>

/// The borders between the cells of a table. An edge between two cells is told by both of them, so
/// that what changes one is written on the other too. What is changed reaches the tree by write().
///
/// A cell that spans is meant at its first coordinate only, so that a walk over all coordinates
/// changes it once. A coordinate without a cell is left alone.
class TableBorders {
public:
    /// Both must outlive this. The info tells the width and colour of what is set.
    TableBorders(const TableModel& model, const BorderInfo& info) : model_(model), info_(info) {}

    /// Draws an edge, or with All or Style all four; None removes them. A cell with a style for all
    /// edges stays as it is. Deliberate: a neighbour that spans along the edge is left unmarked,
    /// since only a part of its edge is meant.
    void set(const CellPlace& place, CellBorderType type);
    /// Removes an edge, or with All or Style all four, on whichever side it is told; None draws
    /// them. What speaks for all edges is written as single ones first.
    void remove(const CellPlace& place, CellBorderType type);
    /// Whether the cell has the edge, be it told for all at once; with All all four; with None none
    /// of them. False without a cell.
    bool has(const CellPlace& place, CellBorderType type) const;

    // The same for several places, of which those without a cell are passed over. has() asks
    // whether all have it.
    void set(const std::vector<CellPlace>& places, CellBorderType type);
    void remove(const std::vector<CellPlace>& places, CellBorderType type);
    bool has(const std::vector<CellPlace>& places, CellBorderType type) const;

    void write();

private:
    void setEdge(const CellPlace& place, CellBorderType edge);
    void removeEdge(const CellPlace& place, CellBorderType edge);
    bool isFirstPlace(const CellPlace& place, const Xml::Element& cell) const;
    TableTree::Elements neighbours(const CellPlace& place, CellBorderType edge) const;
    TableTree::Elements neighboursInRow(const CellPlace& place, int row) const;
    TableTree::Elements neighboursInColumn(const CellPlace& place, int column) const;
    Xml::Element* cellAcrossGroups(const CellPlace& place, CellBorderType edge) const;
    int heightOf(const CellPlace& place, const Xml::Element& cell) const;
    CellBorders& bordersOf(Xml::Element& cell);

    const TableModel& model_;
    const BorderInfo& info_;
    std::unordered_map<Xml::Element*, CellBorders> changed_;
};
