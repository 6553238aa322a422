#pragma once

#include "foundation/values/QFDAttributeCollection.h"

#include <vector>

namespace Xml {
class Element;
}

/// The entries of a template that give attributes their values.
namespace AttributeEntries {

QFDAttributeCollection of(const Xml::Element& root);
std::vector<Xml::Element*> elementsOf(const Xml::Element& root);
QFDAttribute read(const Xml::Element& element);
/// Gives an element the texts of the entry and leaves alone what else it says. Throws
/// Core::Exception where XML has no way to write one.
void write(Xml::Element& element, const QFDAttribute& entry);
/// Throws as write() does, and then appends nothing.
Xml::Element& append(Xml::Element& root, const QFDAttribute& entry);
/// Puts these in the place of all; those without an object id are left out. Throws Core::Exception,
/// and changes nothing, where XML has no way to write one.
void override(Xml::Element& root, const QFDAttributeCollection& entries);
/// Gives the entries of an object another id; answers whether there are any.
bool changeId(Xml::Element& root, const Core::String& from, const Core::String& to);

} // namespace AttributeEntries
