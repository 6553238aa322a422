#pragma once

#include "foundation/xml/ContentNode.h"

namespace Xml {

/// Text, or a CDATA section.
class FORME_API TextNode : public ContentNode {
public:
    explicit TextNode(Core::String content) : TextNode(Kind::Text, std::move(content)) {}

    /// `text` is plain text, which is escaped when it is written. Throws Core::Exception when it
    /// holds a control character that XML does not allow.
    void set_content(const Core::String& text);

protected:
    TextNode(Kind kind, Core::String content) : ContentNode(kind, nullptr, std::move(content)) {}
};

} // namespace Xml
