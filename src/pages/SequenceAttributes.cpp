#include "pages/SequenceAttributes.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "pages/PaginationNodes.h"
#include "pages/RepeatData.h"
#include "trees/Elements.h"

using Core::String;
using Xml::Element;

namespace {

const String flowName = L"flow-name";

} // namespace

void SequenceAttributes::requireWritable(const String& master, const RepeatData& data) {
    for (const String& value : {master, data.xpath, data.condition, data.sort, data.parentId})
        Xml::requireXmlText(value);
}

String SequenceAttributes::referenceOf(const Element& element) {
    return Elements::valueOf(element, reference);
}

void SequenceAttributes::setReference(Element& element, const String& master) {
    if (PaginationNodes::hasFlows(element) && !master.empty())
        element.set_attribute(reference, master,
                              PaginationNodes::isSequence(element) ? String() : String(L"fo"));
}

void SequenceAttributes::renameReference(Element& element, const String& from, const String& to) {
    Xml::Attribute* attribute = element.get_attribute(reference);
    if (attribute && !from.empty() && !to.empty() && attribute->get_value() == from)
        attribute->set_value(to);
}

String SequenceAttributes::idOf(const Element& element) {
    return Elements::valueOf(element, L"id");
}

void SequenceAttributes::setId(Element& element, const String& id) {
    element.set_attribute(L"id", id, L"fo");
}

String SequenceAttributes::sourceOf(const Element& element) {
    const String source = Elements::valueOf(element, L"src");
    return source.startsWith(L"url(") && source.view().ends_with(L')')
               ? source.subString(4, source.length() - 2)
               : source;
}

void SequenceAttributes::setSource(Element& element, const String& address) {
    if (PaginationNodes::isInsertedDocument(element))
        element.set_attribute(L"src", L"url(" + address + L")");
}

void SequenceAttributes::setOfRepeat(Element& element, const wchar_t* name, const String& value) {
    if (PaginationNodes::isRepeat(element))
        element.set_attribute(name, value);
}

void SequenceAttributes::setParentId(Element& element, const String& id) {
    if (!id.empty())
        setOfRepeat(element, L"parent-sequence-id", id);
    else if (PaginationNodes::isRepeat(element))
        element.remove_attribute(L"parent-sequence-id");
}

Element* SequenceAttributes::staticContent(const Element& sequence, const String& name) {
    if (!name.empty())
        for (Element* content : Elements::childrenOf(sequence, L"static-content"))
            if (Elements::valueOf(*content, flowName) == name)
                return content;
    return nullptr;
}

void SequenceAttributes::renameFlow(const Element& sequence, const String& from, const String& to) {
    const Element* content = staticContent(sequence, from);
    if (content && !to.empty() && !staticContent(sequence, to))
        content->get_attribute(flowName)->set_value(to);
}
