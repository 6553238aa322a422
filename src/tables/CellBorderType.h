#pragma once

/// What a command on a cell's borders is about: one of its edges, or several.
enum class CellBorderType {
    Bottom = 0,
    Top = 1,
    Left = 2,
    Right = 3,
    None = 4,  ///< no border; a command, and no edge
    All = 5,   ///< all four edges; a command, and no edge
    Style = 6, ///< `border-style`, which speaks for all edges
    Border = 7 ///< `border`, which speaks for all edges
};
