#pragma once

#include "foundation/String.h"

#include <vector>

namespace Xml {
class Element;
}

/// The page masters in the tree of a whole document: the children of the root's layout-master-set.
/// A name that is empty names none.
namespace PageMasters {

inline constexpr const wchar_t* simpleMaster = L"simple-page-master";
inline constexpr const wchar_t* complexMaster = L"page-sequence-master";

/// Those of a kind, one of these, in their order.
std::vector<Xml::Element*> of(const Xml::Element& root, const Core::String& kind);
/// The first of these with the name; null if there is none.
Xml::Element* named(const std::vector<Xml::Element*>& masters, const Core::String& name);
/// Their names, empty for one that has none.
std::vector<Core::String> namesOf(const std::vector<Xml::Element*>& masters);

/// The masters that a page-sequence-master refers to, in their order.
std::vector<Core::String> referencesOf(const Xml::Element& complexMaster);
/// Whether the page-sequence-master of that name refers to the simple one.
bool refersTo(const Xml::Element& root, const Core::String& complexName,
              const Core::String& simple);

} // namespace PageMasters
