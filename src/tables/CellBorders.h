#pragma once

#include "foundation/values/PropertyCollection.h"
#include "foundation/xml/Element.h"
#include "tables/BorderInfo.h"
#include "tables/CellBorderType.h"

/// The borders of one cell, which are attributes of it. They are read with those shorthands written
/// out that can be, `border-top` for one; `border` and `border-style` stand for themselves. A
/// border is there if its value is neither empty nor "none".
///
/// What is changed here reaches the cell by write(); what the cell holds is left alone.
class CellBorders {
public:
    explicit CellBorders(Xml::Element& cell);

    // The attributes of an edge or a shorthand, without prefix; empty for None and All.
    static Core::String styleName(CellBorderType type);
    static Core::String colorName(CellBorderType type);
    static Core::String widthName(CellBorderType type);

    /// Whether the attribute for the type, and no other, says that there is a border.
    bool has(CellBorderType type) const;
    /// The style for all edges if there is one, else that of the type; empty without one.
    Core::String styleOf(CellBorderType type) const;

    /// Nothing where the cell has a style for all edges.
    void set(CellBorderType type, const Core::String& style, const BorderInfo& info);
    /// Removes the style of the type; its colour and width stay.
    void remove(CellBorderType type);
    /// Removes all styles, and `border`.
    void removeAll();
    /// Writes what speaks for all edges as single ones: `border-style` without the edge given,
    /// `border` with it, though not with its own width and colour.
    void dissolve(CellBorderType edge, const BorderInfo& info);

    /// Shorthands are written where they say the same if the last change was a border set.
    void write();

private:
    void put(const Core::String& name, const Core::String& value);
    void collapse();

    Xml::Element* cell_;
    PropertyCollection properties_; // those of the cell's own prefix without it
    bool isChanged_ = false;
    bool isToCollapse_ = false;
};
