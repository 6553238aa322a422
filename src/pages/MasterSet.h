#pragma once

#include "foundation/String.h"

class Document;
class Fragment;

/// The way of the page masters out of the text and back.
namespace MasterSet {

/// Where the element is in the document; throws Core::Exception where it has none.
int elementIn(const Document& document);

/// Writes `edited`, which the tree has become, in the place of what the document has now. The
/// element's start tag stays as it is there. Answers whether the document has changed.
bool commit(Document& document, const Fragment& read, const Core::String& edited);

/// A tree's text without its root's attributes.
Core::String withoutAttributes(const Core::String& element);

} // namespace MasterSet
