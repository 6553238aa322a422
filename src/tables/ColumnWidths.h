#pragma once

#include "tables/Table.h"

/// The widths of a table's columns, as its fo:table-column elements tell them: a length, a
/// percentage, or a share of what the other columns leave. Percentages are written as shares. The
/// tree changes; columns are numbered from 0, and one that the table has no element for has no
/// width and gets none.
class ColumnWidths {
public:
    explicit ColumnWidths(Table& table) : table_(table) {}

    /// Empty where the column has none.
    Core::String of(int column) const;
    void set(int column, const Core::String& width);
    void remove(int column);
    /// Gives the column of that column-number the width as a share, whatever it is. Columns are
    /// made where the table has none, and one is split where none has the number.
    void setByNumber(int number, const Core::String& width);

    /// Gives the caret's column a width; a number alone counts inches. Of two shares the next
    /// column's, or the one before the last, makes up for it, so that the sum stays; nothing
    /// happens where that would leave it none. Nor for what is no width.
    void resize(const Core::String& width);
    /// The same with a width that is larger by `delta`; not below 0.
    void resize(const Core::String& width, float delta);
    /// Writes shares and percentages as plain numbers of which the sum is 100. Nothing happens
    /// where a column has something else.
    void normalise();

    bool isShare(int column) const;
    /// The nearest column with a share behind or before the column, once around the table; -1 if
    /// there is none. Deliberate: going back, the first column is not looked at.
    int nextShare(int column) const;
    int previousShare(int column) const;

    /// The text, with "in" added where it names no unit.
    static Core::String withUnit(const Core::String& text);

private:
    Xml::Element* element(int column) const;

    Table& table_;
};
