#pragma once

#include "tables/Table.h"

/// Single rows of a template that are repeated for each node of the data that a path leads to. What
/// is done concerns the caret's row; where the caret has no cell nothing happens.
class RepeatRows {
public:
    explicit RepeatRows(Table& table) : table_(table) {}

    /// Whether the row is repeated.
    bool isRepeated() const;
    /// Makes the row a repeated one.
    void repeat(const Core::String& path);
    /// Gives the row the path, whether it is repeated or not.
    void setPath(const Core::String& path);
    /// Makes the row a plain one without path. What it says of groups stays.
    void makeStatic();

private:
    Xml::Element* rowToChange() const;

    Table& table_;
};
