#pragma once

#include "foundation/xml/TextNode.h"

namespace Xml {

/// Text that was written as a CDATA section and is written as one again.
class FORME_API CDataNode : public TextNode {
public:
    explicit CDataNode(Core::String content) : TextNode(Kind::CData, std::move(content)) {}
};

} // namespace Xml
