#pragma once

#include "foundation/String.h"
#include "foundation/values/MsxslAssembly.h"
#include "foundation/values/MsxslUsing.h"

/// What a script uses, as its author writes it in the script's text.
namespace MsxslMarkup {

/// Empty where nothing is said.
Core::String of(const MsxslAssembly& assembly);
Core::String of(const MsxslUsing& used);

} // namespace MsxslMarkup
