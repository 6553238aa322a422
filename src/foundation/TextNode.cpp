#include "foundation/TextNode.h"

#include "foundation/QualifiedName.h"

namespace Xml {

void TextNode::set_content(const Core::String& text) {
    requireXmlText(text);
    content_ = text;
}

} // namespace Xml
