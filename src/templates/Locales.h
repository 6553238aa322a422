#pragma once

#include "foundation/Vector.h"
#include "foundation/values/QFDTemplateLocale.h"

namespace Xml {
class Element;
}

/// The languages that a template can be produced in.
namespace Locales {

/// Those that have an id.
Core::Vector<QFDTemplateLocale> of(const Xml::Element& root);
/// The first one without a file of its own; an empty one where there is none.
QFDTemplateLocale defaultOf(const Xml::Element& root);
/// Gives the locale of that id, or a new one, the name and, unless it is empty, the file. Throws
/// Core::Exception, and changes nothing, where XML has no way to write one.
void set(Xml::Element& root, const QFDTemplateLocale& locale);
/// The first one of that id.
void remove(Xml::Element& root, const Core::String& id);

} // namespace Locales
