#pragma once

#include "foundation/values/QFDAttributeCollection.h"

namespace Xml {
class Element;
}

/// The entries of a template that give attributes their values.
namespace AttributeEntries {

QFDAttributeCollection of(const Xml::Element& root);
QFDAttribute read(const Xml::Element& element);
/// Nothing for an entry without an object id.
void append(Xml::Element& root, const QFDAttribute& entry);
/// Puts these in the place of all. Throws Core::Exception, and changes nothing, where XML has no
/// way to write one.
void override(Xml::Element& root, const QFDAttributeCollection& entries);
/// Gives the entries of an object another id; answers whether there are any.
bool changeId(Xml::Element& root, const Core::String& from, const Core::String& to);

} // namespace AttributeEntries
