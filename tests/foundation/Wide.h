#pragma once

#include "foundation/String.h"
#include "foundation/Vector.h"

#include <string>

/// A text as GoogleTest can show it.
inline std::wstring wide(const Core::String& text) {
    return std::wstring(text.view());
}

/// The words of a list with one blank between two.
inline Core::StringArray words(const wchar_t* list) {
    return Core::String(list).split(L' ');
}
