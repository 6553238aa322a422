#pragma once

#include "foundation/String.h"

#include <string>

/// What an XML parser that is not ours has against the text: "line:column: reason"; empty if it
/// accepts it.
std::string xmlError(const Core::String& text);
