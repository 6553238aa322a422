#include "Html5Parser.h"

#include "NestingCheck.h"
#include "ParserMemory.h"

#include <forme/foundation/Encoder.h>
#include <forme/foundation/Exception.h>

#include <gumbo.h>

#include <string>

using Core::Encoder;
using Core::String;

namespace {

/// A tree takes some hundred bytes for each tag; misnested formatting is copied to each paragraph.
constexpr std::size_t memoryForAny = std::size_t(16) << 20;
constexpr std::size_t memoryForEachByte = 200;

/// Null where the memory did not suffice.
GumboOutput* parseWithin(ParserMemory& memory, const std::string& html) {
    GumboOptions options = kGumboDefaultOptions;
    options.allocator = &ParserMemory::allocate;
    options.deallocator = &ParserMemory::release;
    options.userdata = &memory;
    options.max_errors = 0;
    if (setjmp(memory.refused) != 0) // NOLINT(cert-err52-cpp)
        return nullptr;
    return gumbo_parse_with_options(&options, html.data(), html.size());
}

/// Elements that Gumbo does not know are called as they are written.
String nameOf(const GumboElement& element) {
    if (element.tag != GUMBO_TAG_UNKNOWN)
        return {gumbo_normalized_tagname(element.tag)};
    GumboStringPiece name = element.original_tag;
    gumbo_tag_from_original_text(&name);
    return name.data ? String(std::string(name.data, name.length).c_str()).toLower() : String();
}

HtmlEvents::Attributes attributesOf(const GumboElement& element) {
    HtmlEvents::Attributes attributes;
    for (unsigned i = 0; i < element.attributes.length; ++i) {
        const auto* attribute = static_cast<const GumboAttribute*>(element.attributes.data[i]);
        attributes.emplace_back(Encoder::convertUTF8ToString(attribute->name),
                                Encoder::convertUTF8ToString(attribute->value));
    }
    return attributes;
}

bool isHtmlElement(const GumboNode& node) {
    return node.type == GUMBO_NODE_ELEMENT && node.v.element.tag_namespace == GUMBO_NAMESPACE_HTML;
}

bool isText(const GumboNode& node) {
    return node.type == GUMBO_NODE_TEXT || node.type == GUMBO_NODE_WHITESPACE ||
           node.type == GUMBO_NODE_CDATA;
}

/// Tells a tree without calling itself, however deep the tree is.
void tell(const GumboNode& root, HtmlEvents& events) {
    const GumboNode* node = &root;
    while (true) {
        if (isHtmlElement(*node)) {
            events.open(nameOf(node->v.element), attributesOf(node->v.element));
            if (node->v.element.children.length > 0) {
                node = static_cast<const GumboNode*>(node->v.element.children.data[0]);
                continue;
            }
            events.close(nameOf(node->v.element));
        } else if (isText(*node)) {
            events.text(Encoder::convertUTF8ToString(node->v.text.text));
        }
        while (node != &root) {
            const GumboNode* const parent = node->parent;
            const GumboVector& siblings = parent->v.element.children;
            const auto next = static_cast<unsigned>(node->index_within_parent + 1);
            if (next < siblings.length) {
                node = static_cast<const GumboNode*>(siblings.data[next]);
                break;
            }
            node = parent;
            events.close(nameOf(node->v.element));
        }
        if (node == &root)
            return;
    }
}

} // namespace

Html5Parser::~Html5Parser() = default;

void Html5Parser::parse(const String& html, HtmlEvents& events) const {
    const std::string utf8 = Encoder::toDisplayText(html);
    NestingCheck(utf8).run();
    ParserMemory memory(memoryForAny + memoryForEachByte * utf8.size());
    const GumboOutput* const output = parseWithin(memory, utf8);
    if (!output)
        throw Core::Exception(L"HTML: its elements overlap so much that it cannot be read");
    tell(*output->root, events);
}
