#include "OpenedObjects.h"

#include <set>
#include <stdexcept>
#include <utility>

namespace {

[[noreturn]] void refuse(const std::string& qualifier) {
    throw std::invalid_argument("no \"" + qualifier + "\" is open; \"" + qualifier +
                                ".open\" opens one");
}

void addAll(const Xml::Node* root, std::set<const Xml::Node*>& nodes) {
    nodes.insert(root);
    for (const Xml::Node* node : root->get_children())
        addAll(node, nodes);
}

} // namespace

void OpenedObjects::open(const std::string& qualifier, std::shared_ptr<void> object, Tree tree) {
    objects_[qualifier] = {std::move(object), std::move(tree)};
}

void OpenedObjects::close(const std::string& qualifier) {
    if (objects_.erase(qualifier) == 0)
        refuse(qualifier);
}

void* OpenedObjects::at(const std::string& qualifier) const {
    const auto found = objects_.find(qualifier);
    if (found == objects_.end())
        refuse(qualifier);
    return found->second.object.get();
}

int OpenedObjects::numberOf(Xml::Node& node) {
    const auto [known, isNew] = numbers_.try_emplace(&node, lastNumber_ + 1);
    if (isNew)
        nodes_[++lastNumber_] = &node;
    return known->second;
}

Xml::Node& OpenedObjects::node(int number) const {
    const auto found = nodes_.find(number);
    if (found == nodes_.end())
        throw std::invalid_argument("no node " + std::to_string(number) +
                                    ": a tree's nodes keep their numbers until it is read anew");
    return *found->second;
}

void OpenedObjects::forgetLostNodes() {
    if (nodes_.empty())
        return;
    std::set<const Xml::Node*> present;
    for (const auto& [qualifier, opened] : objects_)
        if (const Xml::Node* root = opened.tree ? opened.tree() : nullptr)
            addAll(root, present);
    std::erase_if(nodes_, [&](const auto& entry) { return !present.contains(entry.second); });
    std::erase_if(numbers_, [&](const auto& entry) { return !present.contains(entry.first); });
}
