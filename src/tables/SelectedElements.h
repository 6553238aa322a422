#pragma once

#include "foundation/values/PropertyCollection.h"
#include "tables/Table.h"
#include "tables/TableElements.h"

#include <vector>

/// The attributes of those elements of a table that are selected, or of the table itself. Names may
/// have a prefix. What a row says that is written for each node of the data is found under
/// whatever prefix it stands; it gets new attributes under "fo", since the prefix of such a row is
/// no property's.
class SelectedElements {
public:
    SelectedElements(const Table& table, TableElements kind);

    /// The value that all have, upper and lower case aside, as it stands on the first that has one.
    /// Empty where they differ or one has not the attribute.
    Core::String common(const Core::String& name) const;
    /// An alignment of columns or the table takes those of single cells away, which would hide it.
    void set(const PropertyCollection& properties);
    void remove(const std::vector<Core::String>& names);

private:
    void removeAlignmentOfCells() const;

    const Table& table_;
    TableTree::Elements elements_;
    std::vector<int> columns_; // which an alignment concerns
};
