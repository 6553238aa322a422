#include "export/ForeignMarkup.h"

#include "export/FoWriter.h"

#include <algorithm>

std::string ForeignMarkup::start(std::string_view name, const char** attributes) {
    open_.push_back({std::string(name), {}});
    std::string tag = "<" + open_.back().name;
    tag += declarationOf(PrefixedName(name).prefix);
    for (; *attributes; attributes += 2) {
        const std::string_view attribute = attributes[0];
        if (attribute == "xmlns" || attribute.starts_with("xmlns:"))
            continue;
        if (const std::string_view prefix = PrefixedName(attribute).prefix; !prefix.empty())
            tag += declarationOf(prefix);
        tag.append(" ").append(attribute) += "=\"" + FoWriter::escapedValue(attributes[1]) + "\"";
    }
    return tag + ">";
}

std::string ForeignMarkup::end() {
    std::string tag = "</" + open_.back().name + ">";
    open_.pop_back();
    return tag;
}

/// The declaration of a prefix that stands for something else than it does around.
std::string ForeignMarkup::declarationOf(std::string_view prefix) {
    if (prefix == "xml")
        return {};
    const std::string key = std::string(prefix) + "=";
    const std::string meaning = key + std::string(namespaces_.of(prefix));
    for (auto element = open_.rbegin(); element != open_.rend(); ++element) {
        const auto known = element->declared.lower_bound(key);
        if (known == element->declared.end() || !known->starts_with(key))
            continue;
        if (*known == meaning)
            return {};
        break;
    }
    if (prefix.empty() && meaning == key && open_.size() == 1)
        return {};
    open_.back().declared.insert(meaning);
    const std::string name = prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
    return " " + name + "=\"" + FoWriter::escapedValue(namespaces_.of(prefix)) + "\"";
}
