#include "foundation/Attribute.h"

#include "foundation/QualifiedName.h"

namespace Xml {

void Attribute::set_value(const Core::String& value) {
    requireXmlText(value);
    value_ = value;
}

} // namespace Xml
