#include "channels/BookmarkForms.h"

#include "foundation/Exception.h"
#include "trees/Elements.h"

#include <algorithm>
#include <string_view>
#include <vector>

using Core::String;
using Xml::Attribute;
using Xml::Element;
using Xml::XmlDocument;

namespace {

const String treeName = L"bookmark-tree";
const String fixedName = L"bookmark";
const String dynamicName = L"dynamic-bookmark";
const String titleName = L"bookmark-title";
const String titleInControl = L"title";

/// What an attribute is called in the two forms.
struct AttributeNames {
    std::wstring_view control;
    std::wstring_view document;
    std::wstring_view prefix; ///< in the document
    bool isOfDynamic;         ///< a fixed bookmark does not have it
};

constexpr AttributeNames attributes[] = {
    {L"title", L"bookmark-title", L"", true}, {L"id", L"internal-destination", L"", false},
    {L"objectId", L"id", L"fo", false},       {L"xpath", L"xpath", L"", true},
    {L"condition", L"condition", L"", true},  {L"sort", L"sort", L"", true}};

/// The attribute that has the name in one of the forms; null without one.
const AttributeNames* find(std::wstring_view AttributeNames::*form, const Attribute& attribute,
                           bool isDynamic) {
    const String name = attribute.get_name();
    const auto* found =
        std::find_if(std::begin(attributes), std::end(attributes), [&](const AttributeNames& one) {
            return (isDynamic || !one.isOfDynamic) && name.view() == one.*form;
        });
    return found == std::end(attributes) ? nullptr : found;
}

/// An element of one form whose children are still to be taken over, and what it has become.
struct Open {
    const Element* from;
    Element* to;
};

/// Takes bookmarks over from one form to the other, level by level: `take` makes what a child
/// becomes, or null for what is left out with all that it holds.
template <typename Take>
void takeOver(const Element& from, Element& to, Take take) {
    std::vector<Open> open{{&from, &to}};
    while (!open.empty()) {
        const Open parent = open.back();
        open.pop_back();
        for (const Element* child : Elements::childrenOf(*parent.from))
            if (Element* made = take(*child, *parent.to))
                open.push_back({child, made});
    }
}

/// The first text or CDATA section with anything in it.
String textOf(const Element& title) {
    for (const Xml::Node* child : title.get_children())
        if (child->is_text())
            if (String text = static_cast<const Xml::TextNode*>(child)->get_content();
                !text.empty())
                return text;
    return {};
}

Element* takeForControl(const Element& bookmark, Element& parent) {
    const String name = bookmark.get_name().toLower();
    if (name != fixedName && name != dynamicName)
        return nullptr;
    Element* made = parent.add_child(name);
    for (const Element* title : Elements::childrenOf(bookmark, titleName))
        if (const String text = textOf(*title); !text.empty())
            made->set_attribute(titleInControl, text);
    for (const Attribute* attribute : bookmark.get_attributes())
        if (const auto* names = find(&AttributeNames::document, *attribute, name == dynamicName))
            made->set_attribute(String(names->control), attribute->get_value());
    return made;
}

Element* takeForDocument(const Element& bookmark, Element& parent) {
    const bool isDynamic = bookmark.get_name().toLower() != fixedName;
    Element* made =
        isDynamic ? parent.add_child(dynamicName, L"qfd") : parent.add_child(fixedName, L"fo");
    for (const Attribute* attribute : bookmark.get_attributes())
        if (!isDynamic && attribute->get_name() == titleInControl)
            made->add_child(titleName, L"fo")->set_child_text(attribute->get_value());
        else if (const auto* names = find(&AttributeNames::control, *attribute, isDynamic))
            made->set_attribute(String(names->document), attribute->get_value(),
                                String(names->prefix));
    return made;
}

} // namespace

SmartPtr<XmlDocument> BookmarkForms::forControl(const Element& root) {
    SmartPtr<XmlDocument> control(new XmlDocument(L"1.0"));
    Element* made = control->createRootNode(treeName);
    for (const Element* tree : Elements::childrenOf(root, treeName))
        takeOver(*tree, *made, &takeForControl);
    return control;
}

void BookmarkForms::takeFromControl(const SmartPtr<XmlDocument>& control,
                                    const SmartPtr<XmlDocument>& tree) {
    Element* root = tree->getRootNode();
    const Element* from = control->getRootNode();
    if (!root || !from)
        throw Core::NullPointerException();
    // The old ones go when the new ones stand: these may be the same, or have a name that raises.
    const SmartPtr<XmlDocument> made(new XmlDocument);
    takeOver(*from, *made->createRootNode(treeName, String(), L"fo"), &takeForDocument);
    for (Xml::Node* child : root->get_children())
        root->remove_child(child);
    root->import_node(made->getRootNode(), true);
}
