#include "document/history/ActionList.h"

#include <new>
#include <utility>

ActionList::ActionList(ActionList&& other) noexcept
    : newest_(std::move(other.newest_)), size_(std::exchange(other.size_, 0)),
      dropped_(std::exchange(other.dropped_, 0)) {}

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
    pushBack(Prepared(action));
}

void ActionList::pushBack(Prepared record) noexcept {
    std::shared_ptr<Node> node = std::move(record).take();
    node->older = std::move(newest_);
    newest_ = std::move(node);
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

EditAction* ActionList::ownFromBack(std::size_t steps) {
    if (steps >= size_)
        return nullptr;
    std::shared_ptr<Node>* node = &newest_;
    for (;; node = &(*node)->older) {
        if (node->use_count() > 1)
            *node = std::make_shared<Node>(**node);
        if (steps-- == 0)
            return &(*node)->action;
    }
}

void ActionList::dropFront() {
    --size_;
    ++dropped_;
    // Cutting the chain walks it, so that it is done once for as many drops as there are records.
    if (dropped_ <= size_)
        return;
    try {
        cutDropped();
    } catch (const std::bad_alloc&) {
        // What was dropped is only kept for longer: the next drop tries again.
    }
}

void ActionList::clear() {
    release(std::move(newest_));
    newest_ = nullptr;
    size_ = 0;
    dropped_ = 0;
}

void ActionList::cutDropped() {
    if (cutOwn())
        return;
    ActionList kept;
    std::shared_ptr<Node>* end = &kept.newest_;
    forEachFromBack([&](const EditAction& action) {
        *end = std::make_shared<Node>(Node{action, nullptr});
        end = &(*end)->older;
        return true;
    });
    kept.size_ = size_;
    *this = std::move(kept);
}

/// Cuts the chain where it is, if nobody else has any of it.
bool ActionList::cutOwn() noexcept {
    std::shared_ptr<Node>* end = &newest_;
    for (std::size_t kept = 0; kept < size_; ++kept, end = &(*end)->older)
        if (end->use_count() > 1)
            return false;
    release(std::move(*end));
    *end = nullptr;
    dropped_ = 0;
    return true;
}

/// Lets a chain go record by record: left to itself, its end would recurse once for each.
void ActionList::release(std::shared_ptr<Node> chain) {
    while (chain && chain.use_count() == 1)
        chain = std::move(chain->older);
}
