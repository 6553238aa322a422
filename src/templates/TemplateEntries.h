#pragma once

#include "foundation/values/QFDAttribute.h"

#include <map>
#include <utility>
#include <vector>

namespace Xml {
class Element;
}

/// The entries of a template's data by the attributes of objects that they are for.
class TemplateEntries {
public:
    using Entries = std::vector<QFDAttribute>;

    TemplateEntries() = default;
    explicit TemplateEntries(const Xml::Element& root);

    /// Those of an attribute, in their order.
    Entries of(const Core::String& object, const Core::String& attribute) const;

private:
    std::map<std::pair<Core::String, Core::String>, Entries> entries_;
};
