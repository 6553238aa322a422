#pragma once

#include <forme/foundation/String.h>

#include <string>
#include <vector>

/// The document's flows and static contents as a person reads them, a line for each block and for
/// each row of a table, in UTF-8: without markup, with white space collapsed, a placeholder as "·",
/// a "│" behind each cell and a "|" at each of the marked offsets, which are in ascending order.
std::string readableText(const Core::String& content, const std::vector<int>& marked);
