#pragma once

#include "foundation/String.h"
#include "foundation/Vector.h"
#include "foundation/values/ComplexPageMasterEntry.h"
#include "foundation/values/ReferenceInfo.h"

#include <vector>

namespace Xml {
class Element;
}

/// A complex page master: references to simple ones, by which it picks a page for each place of a
/// sequence. The conditional ones stand together in the first element of alternatives.
namespace ComplexMasters {

/// Throws Core::Exception where the name or a reference is what XML cannot hold, or a condition is
/// none: it must be the name of an attribute whose prefix, if it has one, the set declares.
void check(const Core::String& name, const Core::Vector<ReferenceInfo>& references,
           const Xml::Element& set);

// Each of these checks what it is given first, and adds nothing when it throws.

void addSingle(Xml::Element& master, const Core::String& reference);
void addRepeating(Xml::Element& master, const Core::String& reference,
                  const Core::String& maximumRepeats);
/// An empty condition is always met.
void addConditional(Xml::Element& master, const Core::String& reference,
                    const Core::String& condition, const Core::String& value);
/// By its kind; nothing for an unknown one. The reference has been checked.
void add(Xml::Element& master, const ReferenceInfo& reference);

/// The masters that it refers to in whatever element within, in their order.
std::vector<Core::String> mastersOf(const Xml::Element& master);
bool refersTo(const Xml::Element& master, const Core::String& simpleMaster);
/// Makes each reference to one master refer to the other.
void changeReferences(Xml::Element& master, const Core::String& from, const Core::String& to);
Core::Vector<ComplexPageMasterEntry> entriesOf(const Xml::Element& master);

} // namespace ComplexMasters
