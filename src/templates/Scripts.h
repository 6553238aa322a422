#pragma once

#include "foundation/Vector.h"
#include "foundation/values/ManagedScript.h"

namespace Xml {
class Element;
}

/// The scripts of a template.
namespace Scripts {

/// What a script uses is part of its text, as its author writes it. Entities have the texts that
/// the document type declares.
Core::Vector<ManagedScript> of(const Xml::Element& root, const Core::String& documentType);
/// The first one of that prefix; null without one.
Xml::Element* withPrefix(const Xml::Element& root, const Core::String& prefix);
/// Puts these in the place of all. What a script in C# uses becomes elements ahead of its text.
/// Throws Core::Exception, and changes nothing, where XML has no way to write one.
void override(Xml::Element& root, const Core::Vector<ManagedScript>& scripts);

} // namespace Scripts
