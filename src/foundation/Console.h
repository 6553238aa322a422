#pragma once

#include "foundation/Api.h"

namespace Core {

/// Where diagnostics go. Standard error, so that a host may talk a protocol on its standard output.
class FORME_API Console {
public:
    /// Prints the text as a line of UTF-8.
    static void writeLine(const wchar_t* text);
};

} // namespace Core
