#include "export/Namespaces.h"

#include <algorithm>

void Namespaces::enter(const char** attributes) {
    ++depth_;
    for (; *attributes; attributes += 2) {
        const std::string_view name = attributes[0];
        if (name == "xmlns")
            declarations_.push_back({"", attributes[1], depth_});
        else if (name.starts_with("xmlns:"))
            declarations_.push_back({std::string(name.substr(6)), attributes[1], depth_});
    }
}

void Namespaces::leave() {
    while (!declarations_.empty() && declarations_.back().depth == depth_)
        declarations_.pop_back();
    --depth_;
}

std::string_view Namespaces::of(std::string_view prefix) const {
    const auto found = std::find_if(declarations_.rbegin(), declarations_.rend(),
                                    [&](const auto& each) { return each.prefix == prefix; });
    return found == declarations_.rend() ? std::string_view() : found->uri;
}

bool Namespaces::isFormattingObjects(std::string_view prefix) const {
    const std::string_view uri = of(prefix);
    return uri == formattingObjects || (uri.empty() && prefix == "fo");
}
