#pragma once

#include "foundation/String.h"

#include <initializer_list>
#include <vector>

namespace Xml {
class Element;
}

/// What the kinds of a template's data have in common as elements of its root.
namespace TemplateElements {

/// The attribute of that name, whatever its prefix; empty without one.
Core::String valueOf(const Xml::Element& element, const wchar_t* name);
/// The children of that local name in their order, without those of a namespace that is not the
/// template's.
std::vector<Xml::Element*> childrenOf(const Xml::Element& parent, const Core::String& name);
/// Removes all these.
void removeAll(Xml::Element& parent, const Core::String& name);
/// Appends an element of the template's own.
Xml::Element& append(Xml::Element& parent, const wchar_t* name);
/// Throws Core::Exception where XML has no way to write one of them.
void requireText(std::initializer_list<Core::String> values);

} // namespace TemplateElements
