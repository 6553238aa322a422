#pragma once

#include "foundation/SmartPtr.h"
#include "foundation/xml/XmlDocument.h"

/// The texts that a document type declares for entities.
namespace EntityTexts {

/// Reads an element with these texts in the place of the references to them. Throws ParseException,
/// also where one of them stands outside the document.
SmartPtr<Xml::XmlDocument> replacedIn(const Core::String& element,
                                      const Core::String& documentType);

} // namespace EntityTexts
