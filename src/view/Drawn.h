#pragma once

#include "foundation/String.h"

/// What a host draws, piece by piece.
enum class DrawnKind {
    Start = 0,       ///< the start tag of an element; its content follows
    End = 1,         ///< the closing tag of one
    Empty = 2,       ///< an element without content that is no object: a line break, a table column
    Text = 3,        ///< text that is drawn as it stands, unit by unit
    Character = 4,   ///< text that is drawn otherwise than it stands: an entity, a CDATA section
    Placeholder = 5, ///< the non-breaking space that keeps a place for the caret in what shows
                     ///< nothing else
    Object = 6,      ///< an element that the caret passes as one: an image, a page number, a field
    Hidden = 7 ///< a comment or an instruction: nothing is drawn, but the caret stops before it
};

/// A piece of what is drawn, which stands in the text from `start` up to but excluding `end`. What
/// lies between two pieces does not show: white space that collapses, and comments where the caret
/// does not stop.
struct Drawn {
    DrawnKind kind{};
    int start = 0;
    int end = 0;
    /// Whether the caret can stand before it, at `start`; in a Text before each of its characters.
    bool isStop = false;
    /// What is drawn; of an element its name, with prefix. The unit `i` of a Text is drawn for the
    /// one at `start + i`: white space is a blank, but where line feeds are kept it is as it
    /// stands, so that a "\n" begins a line.
    Core::String text;
};
