#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The properties of a formatting object: names without prefix, except for those of XML itself, and
/// values that are not escaped, in the order in which they are written. They are UTF-8.
class FoProperties {
public:
    using Property = std::pair<std::string, std::string>;

    bool empty() const { return properties_.empty(); }
    auto begin() const { return properties_.begin(); }
    auto end() const { return properties_.end(); }

    bool has(std::string_view name) const { return find(name) != end(); }
    /// Empty where there is none of that name.
    std::string operator[](std::string_view name) const {
        return has(name) ? find(name)->second : std::string();
    }
    /// In its place, or else behind the others.
    void set(std::string_view name, std::string value) {
        const auto found = properties_.begin() + std::distance(begin(), find(name));
        if (found == properties_.end())
            properties_.emplace_back(name, std::move(value));
        else
            found->second = std::move(value);
    }
    /// Drops those whose names are such.
    template <typename IsSuch>
    void eraseIf(IsSuch isSuch) {
        std::erase_if(properties_, [&](const Property& each) { return isSuch(each.first); });
    }
    void erase(std::string_view name) {
        eraseIf([&](const std::string& each) { return each == name; });
    }

private:
    std::vector<Property>::const_iterator find(std::string_view name) const {
        return std::find_if(begin(), end(),
                            [&](const Property& each) { return each.first == name; });
    }

    std::vector<Property> properties_;
};
