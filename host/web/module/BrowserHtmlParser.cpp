#include "BrowserHtmlParser.h"

#include "Wire.h"

#include <forme/foundation/Encoder.h>
#include <forme/foundation/Exception.h>

#include <cstdlib>
#include <memory>
#include <string>

#include <emscripten.h>

// The events as JSON: [name, attributes] opens an element, null closes the last one that was
// opened, and a string is text. Null where the text is nested too deeply. Nothing here recurses.
// clang-format off
EM_JS(char*, htmlEventsOf, (const char* html, int deepest), {
    const events = [];
    const root = new DOMParser().parseFromString(UTF8ToString(html), "text/html").documentElement;
    let node = root;
    for (let depth = 0; node;) {
        if (node.nodeType === Node.TEXT_NODE) events.push(node.data);
        if (node.nodeType === Node.ELEMENT_NODE) {
            events.push([node.localName, Array.from(node.attributes, each => [each.name, each.value])]);
            if (node.firstChild) {
                if (++depth > deepest) return 0;
                node = node.firstChild;
                continue;
            }
            events.push(null);
        }
        while (node !== root && !node.nextSibling) {
            node = node.parentNode;
            --depth;
            events.push(null);
        }
        node = node === root ? null : node.nextSibling;
    }
    const json = JSON.stringify(events);
    const size = lengthBytesUTF8(json) + 1;
    const memory = _malloc(size);
    stringToUTF8(json, memory, size);
    return memory;
});
// clang-format on

namespace {

constexpr int deepestNesting = 400;

} // namespace

void BrowserHtmlParser::parse(const Core::String& html, HtmlEvents& events) const {
    const std::string text(Core::Encoder::convertStringToUTF8(html).view());
    const std::unique_ptr<char, decltype(&std::free)> told(
        htmlEventsOf(text.c_str(), deepestNesting), &std::free);
    if (!told)
        throw Core::Exception(L"the HTML is nested too deeply");
    std::vector<Core::String> open;
    for (const Json& event : Json::parse(told.get())) {
        if (event.is_string()) {
            events.text(Wire<Core::String>::read(event));
        } else if (event.is_null()) {
            events.close(open.back());
            open.pop_back();
        } else {
            HtmlEvents::Attributes attributes;
            for (const Json& attribute : event[1])
                attributes.emplace_back(Wire<Core::String>::read(attribute[0]),
                                        Wire<Core::String>::read(attribute[1]));
            open.push_back(Wire<Core::String>::read(event[0]));
            events.open(open.back(), attributes);
        }
    }
}
