#include "templates/TemplateEntries.h"

#include "templates/AttributeEntries.h"

using Core::String;

TemplateEntries::TemplateEntries(const Xml::Element& root) {
    for (const Xml::Element* element : AttributeEntries::elementsOf(root)) {
        const QFDAttribute entry = AttributeEntries::read(*element);
        entries_[{entry.getObjectID(), entry.getAttributeName()}].push_back(entry);
    }
}

TemplateEntries::Entries TemplateEntries::of(const String& object, const String& attribute) const {
    const auto found = entries_.find({object, attribute});
    return found == entries_.end() ? Entries() : found->second;
}
