#pragma once

#include "foundation/Api.h"
#include "foundation/ByteArray.h"
#include "foundation/String.h"

#include <string>
#include <string_view>

namespace Core {

/// Turns text into UTF-8 and back. Surrogate pairs in the text are one character in the bytes.
class FORME_API Encoder {
public:
    /// Throws Core::Exception with the offset of the code unit when the text holds a lone
    /// surrogate.
    static ByteArray convertStringToUTF8(const String& text);

    /// Throws Core::Exception with the byte offset and the reason when the bytes are no UTF-8.
    static String convertUTF8ToString(std::string_view bytes);

    /// UTF-8 for a person to read: a lone surrogate comes out as U+FFFD. Never throws for content;
    /// not for anything that is saved.
    static std::string toDisplayText(const String& text);
};

} // namespace Core
