#pragma once

#include "foundation/String.h"

#include <set>

class XmlText;

/// Elements that are taken to another document, where their names are to mean the same.
namespace BroughtMarkup {

/// The element as it stands, and in its start tag the declarations of the prefixes that it uses,
/// has from the elements around it and does not find among those in force at its new place, given
/// as xmlns:x="uri". The standard prefixes are left to the document that takes it.
Core::String take(const XmlText& source, int element, const std::set<Core::String>& inForce);

} // namespace BroughtMarkup
