#pragma once

#include "foundation/xml/ContentNode.h"

namespace Xml {

/// A comment; its content is what stands between "<!--" and "-->".
class FORME_API CommentNode : public ContentNode {
public:
    explicit CommentNode(Core::String content)
        : ContentNode(Kind::Comment, nullptr, std::move(content)) {}
};

} // namespace Xml
