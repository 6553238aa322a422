#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

/// One attribute of an element as the host sees it: a name, which may carry a namespace prefix as
/// in "fo:font-size", and a value as it stands between the quotes, entities included.
class FORME_API EditableProperty {
public:
    EditableProperty(const Core::String& name, const Core::String& value);

    Core::String getName() const { return name_; }
    Core::String getValue() const { return value_; }

    /// The prefix of the name, without its ":"; empty when there is none.
    Core::String getNamespace() const { return name_.substringBefore(L":"); }

    /// Takes the prefix and its ":" off the name; a name without one stays as it is.
    void removeNamespaceFromName();

    /// Whether the name is not empty.
    bool isValid() const { return !name_.empty(); }

    /// Whether a property of this name changes how its element looks rather than what it is or
    /// holds. Only names with the prefix "fo" or none can; a component, as in
    /// "fo:space-before.optimum", counts as its property.
    static bool isFormatting(const Core::String& name);

private:
    Core::String name_;
    Core::String value_;
};
