#pragma once

#include "foundation/Api.h"

// Whether the library that a host has loaded works: each function carries out commands on small
// documents of its own and compares what comes out. It tells its verdicts on the console, a line
// for each check and one with the counts at the end, and answers whether all passed. Whatever goes
// wrong is a failed check; nothing is raised. Nothing of the host's is touched, neither files nor
// documents nor settings, and all five together take a fraction of a second.

/// Loading, the caret, typing, deletion, Enter, formatting.
FORME_API bool testBuffer();
/// Forms and what happens at their edges, groups of radio buttons, skins.
FORME_API bool testFormBuffer();
/// Lists: making, numbering, breaking, joining and leaving them.
FORME_API bool testListBuffer();
/// Rows, columns and spans of tables.
FORME_API bool testTableBuffer();
/// What counts as a text whose markup is complete.
FORME_API bool testXmlValidator();
