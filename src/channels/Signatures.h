#pragma once

#include "foundation/values/DocumentSignature.h"

namespace Xml {
class Element;
}

/// The document's signature: a record in one of the annotations, to which the root refers.
namespace Signatures {

/// The id of the annotation; empty where the root refers to none.
Core::String reference(const Xml::Element& root);

/// The last in the annotation; null without one, and for null.
Xml::Element* lastIn(const Xml::Element* annotation);
/// What the element says; all empty for null.
DocumentSignature read(const Xml::Element* signature);

/// What the signature of the document says; all empty without one.
DocumentSignature get(const Xml::Element& root);
/// Throws Core::Exception, and changes nothing, where a text cannot be written in XML.
void set(Xml::Element& root, const DocumentSignature& signature, const Core::String& id);
/// Removes the annotation and the reference, whatever that refers to. Throws
/// Core::NullPointerException, and changes nothing, without such an annotation.
void remove(Xml::Element& root, const Core::String& id);

} // namespace Signatures
