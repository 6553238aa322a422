#pragma once

#include "foundation/String.h"

#include <string>

/// A text as GoogleTest can show it.
inline std::wstring wide(const Core::String& text) {
    return std::wstring(text.view());
}
