#pragma once

#include "export/Namespaces.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Writes elements of other languages, as of pictures, as they were, with what they need of the
/// declarations around them.
class ForeignMarkup {
public:
    explicit ForeignMarkup(const Namespaces& namespaces) : namespaces_(namespaces) {}

    bool isOpen() const { return !open_.empty(); }
    std::string start(std::string_view name, const char** attributes);
    std::string end();

private:
    struct Element {
        std::string name;
        std::set<std::string, std::less<>> declared; ///< the prefixes with what they stand for
    };

    std::string declarationOf(std::string_view prefix);

    const Namespaces& namespaces_;
    std::vector<Element> open_;
};
