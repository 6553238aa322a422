#include "document/NamespaceBinding.h"

#include "document/Attributes.h"
#include "document/Document.h"

#include <map>
#include <set>
#include <vector>

using Core::String;
using XmlScan::Text;

namespace {

constexpr Text declarationStart = L"xmlns:";

/// The prefix of the name of an element or attribute; empty without one.
Text prefixOf(Text name) {
    const std::size_t colon = name.find(L':');
    return colon == Text::npos ? Text() : name.substr(0, colon);
}

/// Walks over tags in their order and finds the prefixes that are used where none of the elements
/// around declares them.
class UnboundPrefixes {
public:
    explicit UnboundPrefixes(const XmlText& text) : text_(text) {}

    std::set<String> in(int start, int end) {
        start_ = start;
        end_ = end;
        const int first = text_.unitStart(start);
        for (const int element : text_.elementsAround(first))
            enter(element);
        for (int tag = text_.nextTag(first); tag >= 0 && tag < end;
             tag = text_.nextTag(behind(tag)))
            pass(tag);
        return std::move(unbound_);
    }

private:
    /// A step would end at the end of a fo:root, which a style sheet can hold.
    int behind(int tag) const {
        const int end = text_.closingAt(tag) ? text_.tagEnd(tag) : text_.next(tag) - 1;
        return end < 0 ? -1 : end + 1;
    }

    void pass(int tag) {
        if (text_.closingAt(tag)) {
            leave();
        } else if (!text_.standsAt(L"<!", tag)) { // a document type has no prefixes to bind
            enter(tag);
            use(tag);
            if (text_.selfClosingAt(tag))
                leave();
        }
    }

    void enter(int element) {
        std::vector<Text>& own = open_.emplace_back();
        for (int at = text_.nextAttribute(element + 1); at >= 0; at = text_.nextAttribute(at)) {
            const Text name = text_.attributeName(at);
            if (name.starts_with(declarationStart))
                ++bound_[own.emplace_back(name.substr(declarationStart.size()))];
        }
    }

    void leave() {
        if (open_.empty())
            return;
        for (const Text prefix : open_.back())
            --bound_[prefix];
        open_.pop_back();
    }

    void use(int element) {
        use(element + 1, text_.tagName(element));
        for (int at = text_.nextAttribute(element + 1); at >= 0; at = text_.nextAttribute(at))
            use(at, text_.attributeName(at));
    }

    /// Names that only stand beside the range were there before.
    void use(int position, Text name) {
        const bool isInRange = position < end_ && start_ < position + static_cast<int>(name.size());
        const Text prefix = prefixOf(name);
        const bool hasPrefix = name.find(L':') != Text::npos; // which none is in ":x"
        const bool isAlwaysBound = !hasPrefix || prefix == L"xml" || prefix == L"xmlns";
        const auto declared = bound_.find(prefix);
        if (isInRange && !isAlwaysBound && (declared == bound_.end() || declared->second == 0))
            unbound_.insert(String(prefix));
    }

    const XmlText& text_;
    int start_ = 0;
    int end_ = 0;
    std::vector<std::vector<Text>> open_; // what each open element declares, the outermost first
    std::map<Text, int> bound_;           // how many of them declare a prefix
    std::set<String> unbound_;
};

} // namespace

std::set<String> NamespaceBinding::unbound(const XmlText& text, int start, int end) {
    return UnboundPrefixes(text).in(start, end);
}

bool NamespaceBinding::bind(Document& document, int start, int end) {
    bool areBound = true;
    for (const String& prefix : unbound(document.text(), start, end))
        areBound = Attributes::isStandardNamespace(prefix) &&
                   Attributes::addDeclaration(document, prefix) && areBound;
    return areBound;
}
