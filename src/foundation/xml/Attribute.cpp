#include "foundation/xml/Attribute.h"

#include "foundation/xml/QualifiedName.h"

namespace Xml {

void Attribute::set_value(const Core::String& value) {
    requireXmlText(value);
    value_ = value;
}

} // namespace Xml
