#pragma once

#include "foundation/String.h"

namespace EntityText {

/// What a reference stands for, "&amp;" or "&#x2022;"; the text itself where that is none, or one
/// that only a document type could tell.
Core::String of(const Core::String& reference);

} // namespace EntityText
