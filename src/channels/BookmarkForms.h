#pragma once

#include "foundation/SmartPtr.h"
#include "foundation/xml/XmlDocument.h"

/// Bookmarks in the two forms they have: that of the document, fo:bookmark and
/// qfd:dynamic-bookmark, and that of a host's control, plain elements with plain attributes.
namespace BookmarkForms {

/// The control form of the bookmark trees in a root of a document.
SmartPtr<Xml::XmlDocument> forControl(const Xml::Element& root);
/// Makes the bookmarks of a control all that is in the root of `tree`. Whatever is no "bookmark"
/// becomes a dynamic one. Throws Core::NullPointerException, and changes nothing, where either or
/// its root is null.
void takeFromControl(const SmartPtr<Xml::XmlDocument>& control,
                     const SmartPtr<Xml::XmlDocument>& tree);

} // namespace BookmarkForms
