#pragma once

#include "tables/Table.h"

/// Groups of rows in a template: a heading, which is repeated for each group that the data form,
/// and the members behind it, which name its id. The tree changes and the caret goes along; the
/// model stays as it was. What is asked of and done to a group concerns the caret's row; where the
/// caret has no cell nothing happens.
class RowGroups {
public:
    /// What a heading says of its group.
    struct Group {
        Core::String xpath;
        Core::String groupBy;
        bool merge = false;
    };

    explicit RowGroups(Table& table) : table_(table), model_(table.model()), caret_(table.caret) {}

    /// The heading of the group that the row belongs to, or the row if it is one; null without.
    Xml::Element* heading() const;
    /// The nearest heading before the row, whether the row belongs to its group or not.
    Xml::Element* headingBefore() const;
    /// The path of the heading that the row belongs to; "/" without one.
    Core::String path() const;
    /// What the row, or else the nearest heading before it, says; nothing without any.
    std::optional<Group> group() const;
    bool isLastMember() const;

    /// Adds a heading and a member, both empty above the row, both copies of the row below it.
    void insert(bool above, const Group& group);
    /// Puts the row, with that path of its own, under a new heading that looks like it.
    void convert(const Group& group, const Core::String& rowPath);
    /// Puts the row at the end of the group that stands before it. A path of its own, which like
    /// the group's counts from `groupPath`, then counts from the group's.
    void join(const Core::String& groupPath);
    /// Takes the row out of its group. A path of its own that counted from `from` then counts from
    /// `to`.
    void leave(const Core::String& from, const Core::String& to);
    void edit(const Group& group);
    /// Removes the heading; the members stay as rows of their own.
    void remove();

    /// Whether a host may offer to let the row join a group, or to insert one.
    bool canJoin() const;
    bool canInsertAbove() const;
    bool canInsertBelow() const;

private:
    Xml::Element* row() const;
    Xml::Element* rowToChange() const;
    Core::String groupBefore(const Xml::Element& row) const;
    bool reachIntoOthers(int row) const;
    void moveCaretDown(int rows);
    void removeHeading(Xml::Element& heading);

    Table& table_;
    const TableModel& model_;
    TableCaret& caret_;
};
