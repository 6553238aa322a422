#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

/// The styles of borders by number, as dialogs list them: 0 none, 1 hidden, 2 dotted, 3 dashed,
/// 4 solid, 5 double, 6 groove, 7 ridge, 8 inset, 9 outset.
class FORME_API BordersAndBackgroundData {
public:
    /// The number of a style; 0 for any other word.
    static int getStyleIdx(const Core::String& name);
    /// "none" for any other number.
    static Core::String getStyleName(int index);
};
