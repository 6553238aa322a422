#include "document/ActionList.h"

#include <utility>
#include <vector>

ActionList& ActionList::operator=(ActionList other) noexcept {
    std::swap(newest_, other.newest_);
    std::swap(size_, other.size_);
    std::swap(dropped_, other.dropped_);
    return *this;
}

ActionList::~ActionList() {
    release(std::move(newest_));
}

void ActionList::pushBack(const EditAction& action) {
    newest_ = std::make_shared<Node>(Node{action, newest_});
    ++size_;
}

EditAction ActionList::takeBack() {
    EditAction action = newest_->action;
    std::shared_ptr<Node> older = newest_->older;
    newest_ = std::move(older);
    if (--size_ == 0)
        clear();
    return action;
}

void ActionList::dropFront() {
    --size_;
    ++dropped_;
    // Cutting the chain copies it, so that it is done once for as many drops as there are records.
    if (dropped_ > size_)
        cutDropped();
}

void ActionList::clear() {
    release(std::move(newest_));
    newest_ = nullptr;
    size_ = 0;
    dropped_ = 0;
}

void ActionList::cutDropped() {
    std::vector<EditAction> kept;
    kept.reserve(size_);
    forEachFromBack([&](const EditAction& action) {
        kept.push_back(action);
        return true;
    });
    clear();
    for (auto action = kept.rbegin(); action != kept.rend(); ++action)
        pushBack(*action);
}

/// Lets a chain go record by record: left to itself, its end would recurse once for each.
void ActionList::release(std::shared_ptr<Node> chain) {
    while (chain && chain.use_count() == 1)
        chain = std::move(chain->older);
}
