#pragma once

#include "foundation/String.h"

/// A reference of a complex page master as it stands in the document.
struct ComplexPageMasterEntry {
    Core::String elementName; ///< "single-page-master-reference" and the like, without prefix
    Core::String masterName;
    /// The name of the condition's attribute. Of a repeating reference it holds the number of
    /// repeats, where hosts have always found it.
    Core::String attributeName;
    Core::String attributeValue; ///< the condition's; empty for the other kinds
};
