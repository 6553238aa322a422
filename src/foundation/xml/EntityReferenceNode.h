#pragma once

#include "foundation/xml/ContentNode.h"

namespace Xml {

/// A reference to an entity that was not replaced by its text. Its name is the entity's, and it has
/// no content.
class FORME_API EntityReferenceNode : public ContentNode {
public:
    explicit EntityReferenceNode(Name entity)
        : ContentNode(Kind::EntityReference, std::move(entity), Core::String()) {}
};

} // namespace Xml
