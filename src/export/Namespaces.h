#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Which prefixes stand for which namespaces, for the elements that are open while a text is read.
class Namespaces {
public:
    static constexpr std::string_view formattingObjects = "http://www.w3.org/1999/XSL/Format";

    /// Takes up what a start tag declares, until the matching leave(). Of the attributes, name and
    /// value take turns up to a null.
    void enter(const char** attributes);
    void leave();

    /// What the prefix stands for; empty where it is not declared.
    std::string_view of(std::string_view prefix) const;
    /// Whether the prefix is one of formatting objects: by its namespace, or, where it has none, by
    /// the name that it has in all documents.
    bool isFormattingObjects(std::string_view prefix) const;

private:
    using Meanings = std::map<std::string, std::vector<std::string>, std::less<>>;

    Meanings meanings_;                              // of each prefix, the innermost last
    std::vector<std::vector<std::string>> declared_; // the prefixes, by each open element
};

/// A name as it is written, taken apart.
struct PrefixedName {
    explicit PrefixedName(std::string_view name)
        : prefix(name.substr(0, name.find(':') == name.npos ? 0 : name.find(':'))),
          local(name.substr(prefix.empty() ? 0 : prefix.size() + 1)) {}

    std::string_view prefix; ///< empty without one
    std::string_view local;
};
