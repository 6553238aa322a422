#pragma once

#include <forme/foundation/xml/Element.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

/// The objects that requests have opened, one under each qualifier: "table" in "table.open" and
/// "table.insertRow". The table of a qualifier's requests knows of which class its object is.
///
/// Of those that edit a tree, requests name the nodes by numbers, which are never given twice.
class OpenedObjects {
public:
    /// Leads to the root of the tree that an object edits, as it is now; null where it has none.
    using Tree = std::function<Xml::Node*()>;

    /// Keeps the object, in the place of one that was open. One without a tree has an empty
    /// function.
    void open(const std::string& qualifier, std::shared_ptr<void> object, Tree tree = {});
    /// Both throw std::invalid_argument, saying how to open one, when none is open.
    void close(const std::string& qualifier);
    void* at(const std::string& qualifier) const;

    /// The number of a node of one of the trees.
    int numberOf(Xml::Node& node);
    /// Throws std::invalid_argument when no node has that number, or has it no more.
    Xml::Node& node(int number) const;
    /// To be called after each request: nodes that have left their trees lose their numbers.
    void forgetLostNodes();

private:
    struct Opened {
        std::shared_ptr<void> object;
        Tree tree;
    };

    std::map<std::string, Opened> objects_;
    std::map<int, Xml::Node*> nodes_;
    std::map<const Xml::Node*, int> numbers_; // of those nodes
    int lastNumber_ = 0;
};
