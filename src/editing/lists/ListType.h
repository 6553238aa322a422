#pragma once

/// What the labels of a list are.
enum class ListType {
    Numbering = 0, ///< "1)", "2)" and so on
    Bullets = 1,   ///< "&#x2022;"
    None = 2       ///< nothing, or something else
};
