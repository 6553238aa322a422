#pragma once

class Document;

namespace Typing {

/// Binds the prefixes of the names of elements and attributes in a range, its end excluded: one of
/// the standard namespaces that nothing around declares is declared on the root, which is recorded.
/// Answers whether all are bound then; otherwise some may have been declared.
bool bindPrefixes(Document& document, int start, int end);

} // namespace Typing
