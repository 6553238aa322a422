#pragma once

#include "pages/DetachedText.h"

/// What stands in the flow of a text.
namespace FlowContent {

/// In the first fo:flow with a fo:block, from the child on that is or holds the first one, up to
/// the flow's closing tag. The text can be a part of a document.
DetachedText::Range find(const Core::String& text);

} // namespace FlowContent
