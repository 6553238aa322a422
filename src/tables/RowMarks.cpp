#include "tables/RowMarks.h"

#include <set>

using Core::String;
using Xml::Element;
using Xml::Node;

namespace {

Element* elementFrom(Node* node, Node* (Node::*step)() const) {
    while (node && !node->is_element())
        node = (node->*step)();
    return static_cast<Element*>(node);
}

/// Gives what has no prefix this one. Where the same stands with it already the bare one wins, as
/// it does wherever attributes are looked up.
void prefixAttributes(Element& row, const String& prefix) {
    const auto isBare = [](const Xml::Attribute* attribute) {
        return attribute->get_namespace_prefix().empty();
    };
    std::set<String> names;
    for (const Xml::Attribute* attribute : row.get_attributes())
        if (isBare(attribute))
            names.insert(attribute->get_name());
    for (const Xml::Attribute* attribute : row.get_attributes())
        if (attribute->get_namespace_prefix() == prefix && names.contains(attribute->get_name()))
            row.remove_attribute(attribute->get_name(), prefix);
    for (Xml::Attribute* attribute : row.get_attributes())
        if (isBare(attribute))
            attribute->set_namespace(prefix);
}

} // namespace

bool RowMarks::isRepeated(const Element& row) {
    return row.get_name() == L"table-row-repeat";
}

bool RowMarks::isHeading(const Element& row) {
    return isRepeated(row) && row.get_attribute(L"is-group-heading");
}

bool RowMarks::isMember(const Element& row) {
    return row.get_attribute(L"parent-group");
}

String RowMarks::valueOf(const Element& row, const String& name) {
    const Xml::Attribute* found = row.get_attribute(name);
    return found ? found->get_value() : String();
}

void RowMarks::set(Element& row, const String& name, const String& value, const String& prefix) {
    if (Xml::Attribute* found = row.get_attribute(name))
        found->set_value(value);
    else
        row.set_attribute(name, value, prefix);
}

void RowMarks::remove(Element& row, const String& name) {
    while (row.remove_attribute(name)) {
    }
}

Element* RowMarks::next(const Element& row) {
    return elementFrom(row.get_next_sibling(), &Node::get_next_sibling);
}

Element* RowMarks::previous(const Element& row) {
    return elementFrom(row.get_previous_sibling(), &Node::get_previous_sibling);
}

void RowMarks::makeRepeated(Element& row) {
    if (!isRepeated(row))
        prefixAttributes(row, L"fo");
    row.set_name(L"table-row-repeat");
    row.set_namespace(L"qfd");
}

void RowMarks::makePlain(Element& row) {
    row.set_name(L"table-row");
    row.set_namespace(L"fo");
    for (const wchar_t* name : {L"xpath", L"is-group-heading", L"group-by", L"merge-content"})
        remove(row, name);
}

void RowMarks::freeMembers(const Element& heading) {
    const String id = valueOf(heading, L"id");
    if (!heading.get_attribute(L"is-group-heading"))
        return;
    for (Element* row = next(heading); row && isMember(*row); row = next(*row))
        if (valueOf(*row, L"parent-group") == id)
            remove(*row, L"parent-group");
}
