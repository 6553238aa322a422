#include "html/HtmlTable.h"

#include <algorithm>
#include <cstddef>

namespace {

/// As many columns as spans may make; cells alone may make more.
constexpr std::size_t mostSpanned = 1000;

constexpr std::wstring_view emptyBlock = L"<fo:block>&#x00A0;</fo:block>";

std::wstring number(std::size_t value) {
    return std::to_wstring(value);
}

/// Which columns of a row are taken by cells of the rows above.
class Grid {
public:
    std::size_t columns() const { return left_.size(); }
    bool isTaken(std::size_t column) const { return column < left_.size() && left_[column] > 0; }
    std::size_t firstFree(std::size_t column) const {
        while (isTaken(column))
            ++column;
        return column;
    }
    /// How many of so many columns are free from one that is.
    std::size_t freeFrom(std::size_t column, std::size_t most) const {
        std::size_t count = 1;
        while (count < most && !isTaken(column + count))
            ++count;
        return count;
    }
    void take(std::size_t column, std::size_t count, int rows) {
        left_.resize(std::max(left_.size(), column + count), 0);
        std::fill_n(left_.begin() + static_cast<std::ptrdiff_t>(column), count, rows);
    }
    void nextRow() {
        for (int& rows : left_)
            rows -= rows > 0;
    }

private:
    std::vector<int> left_; // how many rows each column is taken for, from this one on
};

/// Clips the spans to what is there, and takes out rows without a cell of their own, which the
/// cells above then span no more.
class SpanFitting {
public:
    using Rows = std::vector<std::vector<HtmlTable::Cell>>;

    explicit SpanFitting(Rows& rows) : rows_(rows) {}

    /// Answers how many columns there are.
    std::size_t run() {
        for (std::size_t row = 0; row < rows_.size(); ++row) {
            if (rows_[row].empty())
                shortenSpans();
            rowsLeft_ = static_cast<int>(std::min<std::size_t>(rows_.size() - row, 65534));
            placeCells(rows_[row]);
            endRow();
            if (!rows_[row].empty())
                kept_.push_back(std::move(rows_[row]));
        }
        rows_ = std::move(kept_);
        return grid_.columns();
    }

private:
    /// A cell that goes on below its row.
    struct Spanning {
        std::size_t row;
        std::size_t cell;
        int rowsLeft;
    };

    void shortenSpans() {
        for (const Spanning& cell : spanning_)
            --kept_[cell.row][cell.cell].rows;
    }

    void placeCells(std::vector<HtmlTable::Cell>& row) {
        std::size_t column = 0;
        for (HtmlTable::Cell& cell : row) {
            column = grid_.firstFree(column);
            const auto asked = static_cast<std::size_t>(std::max(cell.columns, 1));
            const std::size_t count =
                grid_.freeFrom(column, column + asked > mostSpanned ? 1 : asked);
            cell.columns = static_cast<int>(count);
            cell.rows = cell.rows == 0 ? rowsLeft_ : std::clamp(cell.rows, 1, rowsLeft_);
            grid_.take(column, count, cell.rows);
            column += count;
            if (cell.rows > 1)
                spanning_.push_back(
                    {kept_.size(), static_cast<std::size_t>(&cell - row.data()), cell.rows});
        }
    }

    void endRow() {
        grid_.nextRow();
        for (Spanning& cell : spanning_)
            --cell.rowsLeft;
        std::erase_if(spanning_, [](const Spanning& cell) { return cell.rowsLeft == 0; });
    }

    Rows& rows_;
    Rows kept_;
    std::vector<Spanning> spanning_;
    Grid grid_;
    int rowsLeft_ = 0; // in the group, from this one on
};

std::wstring spans(std::size_t columns, std::size_t rows) {
    std::wstring attributes;
    if (columns > 1)
        attributes += L" number-columns-spanned=\"" + number(columns) + L"\"";
    if (rows > 1)
        attributes += L" number-rows-spanned=\"" + number(rows) + L"\"";
    return attributes;
}

template <typename Cell>
void appendCell(std::wstring& markup, const Cell& cell) {
    markup.append(L"<fo:table-cell").append(cell.attributes);
    markup += spans(static_cast<std::size_t>(cell.columns), static_cast<std::size_t>(cell.rows));
    markup.append(L">").append(cell.content.empty() ? emptyBlock : cell.content);
    markup += L"</fo:table-cell>";
}

/// The rows, in which cells are put where columns are left over.
template <typename Rows>
void appendRows(std::wstring& markup, const Rows& rows, std::size_t columns) {
    Grid grid;
    for (const auto& row : rows) {
        markup += L"<fo:table-row>";
        auto cell = row.begin();
        for (std::size_t column = grid.firstFree(0); column < columns;
             column = grid.firstFree(column)) {
            typename Rows::value_type::value_type filler;
            const bool isOwn = cell != row.end();
            filler.columns = static_cast<int>(grid.freeFrom(column, columns - column));
            const auto& placed = isOwn ? *cell++ : filler;
            appendCell(markup, placed);
            grid.take(column, static_cast<std::size_t>(placed.columns), placed.rows);
            column += static_cast<std::size_t>(placed.columns);
        }
        grid.nextRow();
        markup += L"</fo:table-row>";
    }
}

} // namespace

void HtmlTable::beginColumn(int width, int count) {
    const std::size_t room = mostSpanned - std::min(mostSpanned, widths_.size());
    widths_.insert(widths_.end(), std::min(static_cast<std::size_t>(count), room), width);
}

void HtmlTable::add(Cell cell) {
    if (rowsOf(group_).empty())
        beginRow();
    rowsOf(group_).back().push_back(std::move(cell));
}

std::wstring HtmlTable::markup() {
    std::size_t columns = 0;
    for (Rows& rows : groups_)
        columns = std::max(columns, SpanFitting(rows).run());
    if (columns == 0)
        return caption_;
    // Rows stand in the body if nowhere else, for a table has one.
    for (const Group other : {Group::Header, Group::Footer})
        if (rowsOf(Group::Body).empty())
            rowsOf(Group::Body).swap(rowsOf(other));
    std::wstring markup = std::move(caption_);
    markup += L"<fo:table table-layout=\"fixed\" width=\"100%\">" + columnsMarkup(columns);
    for (const auto& [group, name] :
         {std::pair(Group::Header, L"fo:table-header"),
          std::pair(Group::Footer, L"fo:table-footer"), std::pair(Group::Body, L"fo:table-body")}) {
        if (rowsOf(group).empty())
            continue;
        markup.append(L"<").append(name).append(L">");
        appendRows(markup, rowsOf(group), columns);
        markup.append(L"</").append(name).append(L">");
    }
    return markup += L"</fo:table>";
}

/// Widths count in proportion; a column without one has that of the mean of the others.
std::wstring HtmlTable::columnsMarkup(std::size_t count) const {
    int sum = 0;
    int told = 0;
    for (const int width : widths_) {
        sum += width;
        told += width > 0;
    }
    const int mean = told > 0 ? sum / told : 1;
    std::wstring markup;
    for (std::size_t i = 0; i < count; ++i) {
        const int width = i < widths_.size() && widths_[i] > 0 ? widths_[i] : mean;
        markup += L"<fo:table-column column-width=\"proportional-column-width(" +
                  std::to_wstring(width) + L")\"/>";
    }
    return markup;
}
