#pragma once

#include "foundation/xml/ContentNode.h"

namespace Xml {

/// A processing instruction. Its name is the target, and its content all that stands between the
/// target and "?>", the white space behind the target included.
class FORME_API ProcessingInstructionNode : public ContentNode {
public:
    ProcessingInstructionNode(Name target, Core::String content)
        : ContentNode(Kind::ProcessingInstruction, std::move(target), std::move(content)) {}
};

} // namespace Xml
