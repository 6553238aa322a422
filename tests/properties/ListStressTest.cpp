// Streams of what people do in lists, on documents with many of them. After every command each item
// has a label and a body that shows something or holds a placeholder, and the items of a numbered
// list count from 1. FORME_RANDOM_COMMANDS sets how many commands are tried, FORME_RANDOM_SEED
// where the streams begin.

#include "foundation/XmlTesting.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

namespace {

using Core::String;
using Xml::Node;

String textOf(const Node& node) {
    String text;
    if (node.is_text())
        text = static_cast<const Xml::TextNode&>(node).get_content();
    for (const Node* child : node.get_children())
        text += textOf(*child);
    return text;
}

std::string describe(const char* what, const Node& node) {
    return std::string(what) + Core::Encoder::toDisplayText(textOf(node));
}

bool isElement(const Node& node, const wchar_t* name) {
    return node.is_element() && node.get_name() == name && node.get_namespace_prefix() == L"fo";
}

const Node* childNamed(const Node& node, const wchar_t* name) {
    const auto children = node.get_children(name);
    return children.size() == 1 ? children.front() : nullptr;
}

bool isNumberLabel(const String& label) {
    const String digits = label.substringBefore(L")");
    return !digits.empty() && label == digits + L")" &&
           digits.view().find_first_not_of(L"0123456789") == std::wstring_view::npos;
}

/// Whether the caret has something to stand at: text, a placeholder, an empty element. A comment
/// keeps an element from being empty, as in every command.
bool holdsAnything(const Node& node) {
    if (node.is_text())
        return textOf(node).view().find_first_not_of(L" \t\n") != std::wstring_view::npos;
    if (!node.is_element())
        return true;
    if (!node.has_children())
        return !isElement(node, L"block") && !isElement(node, L"list-item-body");
    const auto children = node.get_children();
    return std::any_of(children.begin(), children.end(),
                       [](const Node* child) { return holdsAnything(*child); });
}

/// A host can put the caret between tags and type there.
bool holdsText(const Node& node) {
    const auto children = node.get_children();
    return std::any_of(children.begin(), children.end(),
                       [](const Node* child) { return child->is_text() && holdsAnything(*child); });
}

std::string brokenItem(const Node& item) {
    const Node* const label = childNamed(item, L"fo:list-item-label");
    const Node* const body = childNamed(item, L"fo:list-item-body");
    if (!label || !body)
        return describe("an item without label or body: ", item);
    const auto blocks = body->get_children();
    const bool hasBlock = std::any_of(blocks.begin(), blocks.end(),
                                      [](const Node* child) { return child->is_element(); });
    return (hasBlock && holdsAnything(*body)) || holdsText(*body)
               ? ""
               : describe("an item without a place: ", item);
}

std::string brokenList(const Node& list) {
    if (holdsText(list))
        return {};
    const auto items = list.get_children(L"fo:list-item");
    if (items.empty())
        return "a list without items";
    int number = 0;
    const bool isNumbered = isNumberLabel(textOf(**items.front()->get_children().begin()));
    for (const Node* item : items) {
        if (const std::string broken = brokenItem(*item); !broken.empty())
            return broken;
        const String label = textOf(*childNamed(*item, L"fo:list-item-label"));
        if (isNumbered && label != String(std::to_wstring(++number) + L")"))
            return describe("a list that does not count from 1: ", list);
    }
    return {};
}

std::string brokenLists(const Node& node) {
    if (isElement(node, L"list-block"))
        if (std::string broken = brokenList(node); !broken.empty())
            return broken;
    for (const Node* child : node.get_children())
        if (std::string broken = brokenLists(*child); !broken.empty())
            return broken;
    return {};
}

std::string brokenListsIn(const String& text) {
    return brokenLists(*parse(Core::Encoder::convertStringToUTF8(text).view())->getRootNode());
}

CommandMix workInLists() {
    CommandMix mix = listCommands();
    mix.broken = brokenListsIn;
    return mix;
}

std::string documentWithLists(Random& random) {
    for (;;) {
        std::string document = randomDocument(random, 2);
        if (brokenListsIn(Core::Encoder::convertUTF8ToString(document)).empty())
            return document;
    }
}

} // namespace

TEST(ListStress, KeepsListsWholeInSmallDocuments) {
    constexpr std::size_t perDocument = 100;
    const auto failure = [](const std::string& path, Random& random) {
        return failureOn(path, random, perDocument, workInLists());
    };
    EXPECT_EQ(failureOnNew("lists", 1000, perDocument, documentWithLists, failure), "");
}

TEST(ListStress, KeepsListsWholeInRealDocuments) {
    const std::size_t perDocument = setting("FORME_RANDOM_COMMANDS", 1000) / 50;
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    int tried = 0;
    for (const auto& document : corpusAndSamples()) {
        if (textOf(document).find(L"<fo:list-block", 0) < 0)
            continue;
        ++tried;
        EXPECT_EQ(failureOn(document, random, perDocument, listCommands()), "");
    }
    EXPECT_GT(tried, 0);
}
