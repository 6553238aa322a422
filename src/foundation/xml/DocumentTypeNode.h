#pragma once

#include "foundation/xml/ContentNode.h"

namespace Xml {

/// The document type declaration; its content is all of it, from "<!DOCTYPE" through ">".
class FORME_API DocumentTypeNode : public ContentNode {
public:
    explicit DocumentTypeNode(Core::String declaration)
        : ContentNode(Kind::DocumentType, nullptr, std::move(declaration)) {}
};

} // namespace Xml
