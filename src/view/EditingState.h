#pragma once

#include "editing/lists/ListType.h"
#include "foundation/String.h"
#include "tables/TableRowGroupType.h"

#include <algorithm>
#include <optional>
#include <vector>

/// What a toolbar shows of one property.
struct Format {
    Core::String name;    ///< "fo:font-size"
    Core::String value;   ///< "12pt"; of what is selected the value at its beginning
    bool isMixed = false; ///< whether what is selected has other values too
};

/// What the table that the document keeps answers, as it was last brought up to date.
struct TableState {
    bool canDeleteRow = false;
    bool canDeleteColumn = false;
    bool canIncreaseColSpan = false;
    bool canIncreaseRowSpan = false;
    bool canDecreaseColSpan = false;
    bool canDecreaseRowSpan = false;
    bool canGroupCurrentRow = false;
    bool canInsertGroupAbove = false;
    bool canInsertGroupBelow = false;
};

/// What a toolbar and the menus show, for the caret or for what is selected.
struct EditingState {
    /// The computed values of what a toolbar has buttons for, at the caret or of the selected text;
    /// none without a caret. These are, in this order, fo:font-family, fo:font-size,
    /// fo:font-weight, fo:font-style, fo:text-underline-style, fo:text-overline-style,
    /// fo:text-line-through-style, fo:baseline-shift, fo:color, fo:background-color, fo:text-align,
    /// fo:line-height, fo:start-indent and fo:end-indent.
    ///
    /// Bold is the weight "bold" and italic the style "italic". A line that fo:text-decoration
    /// draws has the style "solid". The shift and the background are those of the nearest element
    /// in the block that has one, or of the block, since they show through.
    std::vector<Format> formats;

    /// Of the list around the caret.
    ListType list = ListType::None;
    bool isInTable = false;
    /// The rows of the table that the caret is in.
    TableRowGroupType rowGroup = TableRowGroupType::None;
    /// In the header or footer of a page, or another region at its side.
    bool isInStaticContent = false;
    /// In what is written once for each node of the data.
    bool isInRepeat = false;

    bool hasSelection = false;
    bool isProtected = false;

    bool canUndo = false;
    bool canRedo = false;
    bool canCut = false;   ///< whether something is selected, where it can be deleted
    bool canPaste = false; ///< whether text can be inserted at the caret
    /// As canDeleteListItem() answers for the item around the caret.
    bool canDeleteListItem = false;
    /// Whether the sequence of conditions around the caret would keep a section without one.
    bool canDeleteSection = false;
    /// Nothing where no table is kept, or another than the one around the caret.
    std::optional<TableState> table;

    /// The format of that name; null if there is none.
    const Format* format(const Core::String& name) const {
        const auto found = std::find_if(formats.begin(), formats.end(),
                                        [&](const Format& each) { return each.name == name; });
        return found == formats.end() ? nullptr : &*found;
    }
};
