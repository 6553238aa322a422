#pragma once

#include "foundation/String.h"

#include <set>

class Document;
class XmlText;

/// What inserted markup needs so that its names mean something.
namespace NamespaceBinding {

/// Binds the prefixes of the names of elements and attributes in a range, its end excluded: one of
/// the standard namespaces that nothing around declares is declared on the root, which is recorded.
/// Answers whether all are bound then.
bool bind(Document& document, int start, int end);

/// The prefixes that such names have in a range where no element around them declares them.
std::set<Core::String> unbound(const XmlText& text, int start, int end);

} // namespace NamespaceBinding
