#pragma once

#include "foundation/xml/Node.h"

namespace Xml {

/// What stands between tags: text, a CDATA section, a comment, a processing instruction, an entity
/// reference or the document type.
class FORME_API ContentNode : public Node {
public:
    /// The content without its marks: decoded for text, and otherwise as written.
    Core::String get_content() const { return content_; }

protected:
    ContentNode(Kind kind, Name name, Core::String content)
        : Node(kind, std::move(name)), content_(std::move(content)) {}

    Core::String content_;
};

} // namespace Xml
