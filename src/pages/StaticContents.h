#pragma once

#include "foundation/String.h"

#include <vector>

namespace Xml {
class Element;
}

/// The static contents in the tree of a whole document: children of the page sequences and repeats
/// that are children of the root.
namespace StaticContents {

/// All of them, sequence by sequence.
std::vector<Xml::Element*> of(const Xml::Element& root);
/// The first of that flow name in a page sequence; null without one, and for the empty name.
Xml::Element* named(const Xml::Element& root, const Core::String& flowName);

Core::String flowNameOf(const Xml::Element& staticContent);
/// The master that its sequence refers to.
Core::String masterOf(const Xml::Element& staticContent);

/// Adds one before the sequence's flow, or without a flow last, which holds a block with that text;
/// none where one of that flow name stands already. Throws Core::Exception, and changes nothing,
/// where one of the two cannot be written in XML.
void add(Xml::Element& sequence, const Core::String& flowName, const Core::String& text);

} // namespace StaticContents
