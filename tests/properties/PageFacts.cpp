#include "properties/PageFacts.h"

#include "foundation/XmlTesting.h"
#include "trees/Elements.h"
#include "trees/Fragment.h"

#include <algorithm>

using Core::String;
using Xml::Element;
using Xml::Node;

namespace {

std::string valueOf(const Element& element, const wchar_t* name) {
    const Xml::Attribute* attribute = element.get_attribute(name);
    return attribute ? narrow(attribute->get_value()) : std::string();
}

bool isLayout(const Node& node) {
    const auto* text = node.is_text() ? static_cast<const Xml::TextNode*>(&node) : nullptr;
    return text &&
           text->get_content().view().find_first_not_of(L" \t\r\n") == std::wstring_view::npos;
}

/// An element as it is meant: attributes by name, those of its own prefix without one. What stands
/// between elements that hold no text says nothing.
std::string meant(const Element& element, bool isBelowRoot) {
    std::set<std::string> attributes;
    for (const Xml::Attribute* attribute : element.get_attributes()) {
        const String prefix = attribute->get_namespace_prefix();
        std::string said = " ";
        if (prefix != element.getNSPrefix())
            said.append(narrow(prefix)).append(":");
        attributes.insert(said.append(narrow(attribute->get_name()))
                              .append("=")
                              .append(narrow(attribute->get_value())));
    }
    std::string text = "<";
    text.append(narrow(element.getNSPrefix())).append(":").append(narrow(element.get_name()));
    for (const std::string& attribute : attributes)
        text.append(attribute);
    text.append(">");
    for (const Node* child : element.get_children())
        if (child->is_element())
            text += meant(static_cast<const Element&>(*child), false);
        else if (child->is_text() && !(isBelowRoot && isLayout(*child)))
            text += narrow(static_cast<const Xml::TextNode&>(*child).get_content());
    return text + "</>";
}

} // namespace

PageFacts::PageFacts(const String& text) {
    static const std::set<std::string> generators{"page-sequence", "page-sequence-repeat",
                                                  "insert-document"};
    Fragment document(nullptr);
    document.readText(text);
    const Element& root = *document.root();
    tree = meant(root, true);
    std::vector<std::string> references;
    const auto noteText = [&](const Element& owner) {
        const auto children = owner.get_children();
        hasStrayText =
            hasStrayText || std::any_of(children.begin(), children.end(), [](const Node* child) {
                return child->is_text() && !isLayout(*child);
            });
    };
    noteText(root);
    const auto noteOptions = [&](const Element& owner) {
        noteText(owner);
        const auto all = Elements::childrenOf(owner);
        for (const Element* child : all)
            if (child->get_name() == L"printing-options") {
                ++options;
                optionsAreFirst = optionsAreFirst && child == all.front();
            }
    };
    for (const Element* set : Elements::childrenOf(root, L"layout-master-set"))
        for (const Element* master : Elements::childrenOf(*set)) {
            masters.push_back(valueOf(*master, L"master-name"));
            noteOptions(*master);
            for (const Element* child : Elements::childrenOf(*master)) {
                if (narrow(child->get_name()).starts_with("region-"))
                    ++regions[masters.back()][narrow(child->get_name())];
                references.push_back(valueOf(*child, L"master-reference"));
                for (const Element* alternative : Elements::childrenOf(*child))
                    references.push_back(valueOf(*alternative, L"master-reference"));
            }
        }
    for (const Element* child : Elements::childrenOf(root)) {
        if (!generators.contains(narrow(child->get_name())))
            continue;
        sequences.push_back(narrow(child->get_name()));
        references.push_back(valueOf(*child, L"master-reference"));
        noteOptions(*child);
        Counts& names = flowNames.emplace_back();
        for (const Element* content : Elements::childrenOf(*child)) {
            if (content->get_name() == L"static-content") {
                ++names[valueOf(*content, L"flow-name")];
                statics.push_back(meant(*content, false));
            } else if (content->get_name() == L"flow") {
                flows.push_back(meant(*content, false));
            }
        }
    }
    for (const std::string& reference : references)
        if (!reference.empty() &&
            std::find(masters.begin(), masters.end(), reference) == masters.end())
            dangling.insert(reference);
}
