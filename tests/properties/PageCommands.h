#pragma once

#include "properties/RandomCommands.h"

#include <string>

/// A document with simple and complex page masters, sequences, repeats and inserted documents, with
/// names that need escaping, comments and quotes of either kind.
std::string documentWithPages(Random& random);

/// Tries random commands on the pages of a document, each committed, with typing, undo and redo
/// between them. Answers which promise was broken and the shrunk script, or nothing.
std::string pageFailureOn(const std::string& document, Random& random, std::size_t count);

/// The document after some commands on its pages that a formatter has nothing against.
std::string withPagesEdited(const std::string& document, Random& random, std::size_t count);
