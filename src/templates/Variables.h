#pragma once

#include "foundation/Vector.h"
#include "foundation/values/QFDVariable.h"

namespace Xml {
class Element;
}

/// The variables of a template.
namespace Variables {

Core::Vector<QFDVariable> of(const Xml::Element& root);
/// Puts these in the place of all. Throws Core::Exception, and changes nothing, where XML has no
/// way to write one.
void override(Xml::Element& root, const Core::Vector<QFDVariable>& variables);

} // namespace Variables
