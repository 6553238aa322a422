#pragma once

#include "foundation/String.h"

#include <map>

namespace Xml {
class Element;
}

/// The style sheet that a template adds to the one it is produced by.
namespace GlobalXslt {

/// The element around it; null without one.
Xml::Element* holderIn(const Xml::Element& root);
/// The first one, in whichever of the elements around; null without one.
Xml::Element* in(const Xml::Element& root);
/// What it holds, as markup; empty where there is none.
Core::String textIn(const Xml::Element& root);
/// Puts the markup in the place of all there is; nothing stays if it is blank. It can use the
/// prefixes of the old style sheet and of the root, and the entities of the document type. Throws
/// Core::Exception where it is not well formed or uses a prefix that nothing declares; then the old
/// one is gone already and an empty element is in its place.
void override(Xml::Element& root, const Core::String& text, const Core::String& documentType);

/// The root of a template's data, and the document type that its entities are from.
struct Place {
    Xml::Element& root;
    Core::String documentType;
};
/// Puts the one of another template in the place of all there is, with the texts of its entities
/// and what its prefixes mean there. One that says and means the same is left alone. Throws as
/// override() does.
void takeOver(const Place& to, const Place& from);

/// The namespaces that the element declares, as attributes with a blank before each.
Core::String declarationsOf(const Xml::Element& element);

} // namespace GlobalXslt
