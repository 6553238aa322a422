#include "export/Namespaces.h"

#include <algorithm>
#include <cstddef>

void Namespaces::enter(const char** attributes) {
    declared_.emplace_back();
    for (; *attributes; attributes += 2) {
        const std::string_view name = attributes[0];
        if (name != "xmlns" && !name.starts_with("xmlns:"))
            continue;
        declared_.back().emplace_back(name.substr(std::min<std::size_t>(name.size(), 6)));
        meanings_[declared_.back().back()].emplace_back(attributes[1]);
    }
}

void Namespaces::leave() {
    for (const std::string& prefix : declared_.back())
        meanings_[prefix].pop_back();
    declared_.pop_back();
}

std::string_view Namespaces::of(std::string_view prefix) const {
    const auto found = meanings_.find(prefix);
    return found == meanings_.end() || found->second.empty() ? std::string_view()
                                                             : found->second.back();
}

bool Namespaces::isFormattingObjects(std::string_view prefix) const {
    const std::string_view uri = of(prefix);
    return uri == formattingObjects || (uri.empty() && prefix == "fo");
}
