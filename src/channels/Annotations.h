#pragma once

#include "foundation/String.h"

#include <list>

namespace Xml {
class Element;
class Node;
} // namespace Xml

/// The annotations that are children of a document's root, and the scripts in them.
namespace Annotations {

/// The prefix of what is in an annotation.
inline constexpr const wchar_t* qf = L"qf";

std::list<Xml::Node*> in(const Xml::Element& root);
/// The first that has the id, under whatever prefix; null without one.
Xml::Element* find(const Xml::Element& root, const Core::String& id);
/// Adds one behind all that is in the root, its id under that prefix.
Xml::Element& add(Xml::Element& root, const Core::String& id, const Core::String& prefix);

/// None for null.
std::list<Xml::Node*> scripts(const Xml::Element* annotation);
/// Adds one to the annotation of that id, or to a new one. Throws Core::Exception, and changes
/// nothing, where a text cannot be written in XML.
void addScript(Xml::Element& root, const Core::String& id, const Core::String& script,
               const Core::String& outputType);

} // namespace Annotations
