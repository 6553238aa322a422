#pragma once

#include "pages/DetachedText.h"

/// What stands in the flow of a text.
namespace FlowContent {

/// In the first fo:flow, from its first fo:block up to its closing tag. The text can be a part of a
/// document.
DetachedText::Range find(const Core::String& text);

} // namespace FlowContent
