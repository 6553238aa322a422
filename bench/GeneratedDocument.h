#pragma once

#include "foundation/String.h"

/// A document of about `bytes` bytes in UTF-8 as people write them: one flow of blocks with bold
/// words, links, entities, lists and tables, indented. The same size always gives the same
/// document.
Core::String generatedDocument(long long bytes);
