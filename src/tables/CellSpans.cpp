#include "tables/CellSpans.h"

#include "foundation/Format.h"
#include "tables/CellContent.h"
#include "tables/RowMarks.h"

#include <algorithm>
#include <climits>
#include <cstdint>

using Core::String;
using Xml::Element;

namespace {

/// A span in one direction.
struct Span {
    const wchar_t* attribute;
    int (*of)(const Element& cell);

    String textOn(const Element& cell) const { return RowMarks::valueOf(cell, attribute); }
    bool isToldOn(const Element& cell) const { return !textOn(cell).empty(); }
    void set(Element& cell, int span) const {
        cell.set_attribute(attribute, String::formatS(span));
    }
};

constexpr Span columnSpan{L"number-columns-spanned", TableTree::columnSpanOf};
constexpr Span rowSpan{L"number-rows-spanned", TableTree::rowSpanOf};

std::int64_t sumOfTold(const Span& span, const Element& a, const Element& b) {
    return std::int64_t{span.isToldOn(a) ? span.of(a) : 0} + (span.isToldOn(b) ? span.of(b) : 0);
}

int limited(std::int64_t span) {
    return static_cast<int>(std::min<std::int64_t>(span, INT_MAX));
}

/// The span of two cells merged.
int together(const Span& span, const Element& cell, const Element& neighbour) {
    const bool both = span.isToldOn(cell) && span.isToldOn(neighbour);
    const bool neither = !span.isToldOn(cell) && !span.isToldOn(neighbour);
    return neither ? 2 : limited(sumOfTold(span, cell, neighbour) + (both ? 0 : 1));
}

/// Deliberate: at an edge two spans that are both told make one more than their sum.
int togetherAtEdge(const Span& span, const Element& cell, const Element& neighbour) {
    return limited(std::max<std::int64_t>(sumOfTold(span, cell, neighbour), 1) + 1);
}

bool canSplit(const Span& span, const Element* cell) {
    int told = 0;
    return cell && Core::Format::parseInt(span.textOn(*cell), told) && told > 1;
}

const Element* groupOf(const Element& cell) {
    const Element* row = cell.get_parent();
    return TableTree::isRow(*row) ? row->get_parent() : row;
}

void removeCell(Element& cell) {
    cell.get_parent()->remove_child(&cell);
}

} // namespace

CellSpans::CellSpans(const TableModel& model, TableCaret& caret)
    : model_(model), caret_(caret),
      cell_(model.hasPlacedCells() ? nullptr : model.cellAt(caret.caret)) {}

Element* CellSpans::cellOf(int row, int column) const {
    return model_.cellAt({caret_.caret.group, row, column});
}

void CellSpans::mergeColumns() {
    if (!cell_)
        return;
    const int column = caret_.caret.column;
    Element* right = cellOf(caret_.caret.row, column + columnSpan.of(*cell_));
    if (!right) {
        if (column > 0 && column == model_.columnCount() - 1)
            mergeWithLeft();
    } else if (rowSpan.of(*right) <= 1 && right != cell_) {
        columnSpan.set(*cell_, together(columnSpan, *cell_, *right));
        CellContent::importBlocks(*cell_, *right);
        removeCell(*right);
    }
}

void CellSpans::mergeWithLeft() {
    Element* left = cellOf(caret_.caret.row, caret_.caret.column - 1);
    if (!left || left == cell_ || rowSpan.of(*left) > 1)
        return;
    columnSpan.set(*cell_, togetherAtEdge(columnSpan, *cell_, *left));
    CellContent::importBlocks(*cell_, *left);
    removeCell(*left);
    --caret_.caret.column;
}

void CellSpans::mergeRows() {
    if (!cell_)
        return;
    Element* lower = below();
    if (!lower) {
        if (caret_.caret.row > 0 && caret_.caret.row == rowCount() - 1)
            mergeWithAbove();
    } else if (columnSpan.of(*lower) <= 1 && lower != cell_) {
        rowSpan.set(*cell_, together(rowSpan, *cell_, *lower));
        CellContent::importBlocks(*cell_, *lower);
        removeCell(*lower);
    }
}

/// No merge goes from one body into the next.
Element* CellSpans::below() const {
    const int row = caret_.caret.row;
    Element* cell = cellOf(row + std::min(rowSpan.of(*cell_), INT_MAX - row), caret_.caret.column);
    return cell && groupOf(*cell) == groupOf(*cell_) ? cell : nullptr;
}

void CellSpans::mergeWithAbove() {
    Element* upper = cellOf(caret_.caret.row - 1, caret_.caret.column);
    if (!upper || upper == cell_ || columnSpan.of(*upper) > 1 || groupOf(*upper) != groupOf(*cell_))
        return;
    auto* merged =
        static_cast<Element*>(upper->get_parent()->import_node_as_sibling(cell_, upper, true));
    CellContent::importBlocks(*merged, *upper);
    rowSpan.set(*merged, togetherAtEdge(rowSpan, *cell_, *upper));
    removeCell(*upper);
    removeCell(*cell_);
    cell_ = merged;
    --caret_.caret.row;
    --caret_.end.row;
}

void CellSpans::splitColumn() {
    const int span = cell_ ? columnSpan.of(*cell_) : 0;
    if (span < 2)
        return;
    cell_->remove_attribute(columnSpan.attribute);
    CellContent::addLike(*cell_, false);
    if (span > 2)
        columnSpan.set(*cell_, span - 1);
}

void CellSpans::splitRow() {
    const int span = cell_ ? rowSpan.of(*cell_) : 0;
    if (span < 2)
        return;
    const int bottom = std::min(span - 1, rowCount()) + caret_.caret.row;
    const Element* row = model_.rowAt(caret_.caret.group, bottom);
    if (row && row->get_parent() == groupOf(*cell_))
        makeCellIn(bottom);
    rowSpan.set(*cell_, span - 1);
}

void CellSpans::makeCellIn(int row) {
    const auto isOnlyThere = [&](int column) {
        const Element* cell = cellOf(row, column);
        return cell && rowSpan.of(*cell) == 1;
    };
    const int own = caret_.caret.column;
    int place = own;
    while (place < model_.columnCount() && !isOnlyThere(place))
        ++place;
    if (place == model_.columnCount()) // Deliberate: then in front of the next one to the left.
        for (place = own - 1; place >= 0 && !isOnlyThere(place);)
            --place;
    if (place >= 0) {
        CellContent::addLike(*cellOf(row, place), true);
        return;
    }
    // Deliberate: it stands in the caret's row and keeps the whole span.
    CellContent::renew(static_cast<Element&>(*cell_->get_parent()->import_node(cell_, true)));
}

bool CellSpans::canMergeColumns() const {
    if (!cell_ || rowSpan.of(*cell_) != 1 || columnSpan.of(*cell_) == model_.columnCount())
        return false;
    const Element* row = model_.rowAt(caret_.caret.group, caret_.caret.row);
    if (!row || TableTree::cellsOf(*row).size() == 1)
        return false;
    const Element* right = cellOf(caret_.caret.row, caret_.caret.column + columnSpan.of(*cell_));
    return right && rowSpan.of(*right) == 1;
}

bool CellSpans::canMergeRows() const {
    const Element* row = model_.rowAt(caret_.caret.group, caret_.caret.row);
    if (!cell_ || !row || RowMarks::isMember(*row) || columnSpan.of(*cell_) != 1)
        return false;
    const bool isHeading = RowMarks::isHeading(*row);
    if (RowMarks::isRepeated(*row) && !isHeading)
        return false;
    const Element* lower = below();
    const int height = std::min(rowSpan.of(*cell_), rowCount());
    const Element* next = model_.rowAt(caret_.caret.group, caret_.caret.row + height);
    if (!lower || !next || columnSpan.of(*lower) != 1 || RowMarks::isHeading(*next))
        return false;
    const String id = RowMarks::valueOf(*row, L"id");
    return !isHeading || (!id.empty() && RowMarks::valueOf(*next, L"parent-group") == id);
}

bool CellSpans::canSplitColumn() const {
    return canSplit(columnSpan, cell_);
}

bool CellSpans::canSplitRow() const {
    return canSplit(rowSpan, cell_);
}
