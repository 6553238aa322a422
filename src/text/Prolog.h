#pragma once

#include "text/XmlScan.h"

namespace XmlScan {

/// What stands before the root element of a text.
struct Prolog {
    Text documentType; ///< "<!DOCTYPE ...>", a view into the text; empty without one
    int root = -1;     ///< the `<` of the root element; -1 without one
};

Prolog prologOf(Text text);

} // namespace XmlScan
