#include "tables/ElementFormat.h"

#include "foundation/values/EditableProperty.h"

using Core::String;
using Xml::Attribute;
using Xml::Element;

namespace {

bool isFormatting(const Attribute& attribute) {
    const String prefix = attribute.get_namespace_prefix();
    return EditableProperty::isFormatting((prefix.empty() ? String(L"fo") : prefix) + L":" +
                                          attribute.get_name());
}

} // namespace

void ElementFormat::apply(Element& target, const Element& source, bool clear) {
    if (clear)
        for (const Attribute* attribute : target.get_attributes())
            if (isFormatting(*attribute))
                target.remove_attribute(attribute->get_name(), attribute->get_namespace_prefix());
    // Without a prefix the attribute would count as being in the prefix of another element.
    const String prefix = target.getNSPrefix() == L"qfd" ? String(L"fo") : String();
    for (const Attribute* attribute : source.get_attributes())
        if (isFormatting(*attribute))
            target.set_attribute(attribute->get_name(), attribute->get_value(), prefix);
}
