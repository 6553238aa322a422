#pragma once

class Document;

/// What inserted markup needs so that its names mean something.
namespace NamespaceBinding {

/// Binds the prefixes of the names of elements and attributes in a range, its end excluded: one of
/// the standard namespaces that nothing around declares is declared on the root, which is recorded.
/// Answers whether all are bound then.
bool bind(Document& document, int start, int end);

} // namespace NamespaceBinding
