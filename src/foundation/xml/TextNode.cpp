#include "foundation/xml/TextNode.h"

#include "foundation/xml/QualifiedName.h"

namespace Xml {

void TextNode::set_content(const Core::String& text) {
    requireXmlText(text);
    content_ = text;
}

} // namespace Xml
