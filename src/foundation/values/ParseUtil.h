#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/Vector.h"

namespace Xml {

/// Takes the values of attributes apart.
class FORME_API ParseUtil {
public:
    /// The word that stands at or behind offset `position` of `text`, up to the next white space.
    /// White space between parentheses is part of a word, as in "rgb(0, 0, 0)". `position` moves
    /// behind the word. Empty when only white space is left, and outside the text.
    static Core::String extractWordOrFunction(const Core::String& text, int& position);

    /// What stands between the parentheses of `function(...)`, cut at each comma that is not in
    /// parentheses of its own, each piece trimmed. Empty when `text` is no call of that function.
    static Core::StringArray extractArguments(const Core::String& function,
                                              const Core::String& text);
};

} // namespace Xml
