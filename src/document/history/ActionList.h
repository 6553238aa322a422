#pragma once

#include "document/history/EditAction.h"
#include "foundation/Api.h"

#include <cstddef>
#include <memory>
#include <utility>

/// The records of one direction of the history, the next to replay at the back. Copies share their
/// records, so that a snapshot of a long history costs nothing: the list is a chain from the newest
/// record to the oldest, and a copy is another handle on the same chain.
class FORME_API ActionList { // since a host may have a stack of its own
public:
    ActionList() = default;
    ActionList(const ActionList&) = default;
    ActionList(ActionList&& other) noexcept;
    ActionList& operator=(ActionList other) noexcept;
    ~ActionList();

    bool empty() const { return size_ == 0; }
    std::size_t size() const { return size_; }

    class Prepared;

    void pushBack(const EditAction& action);
    void pushBack(Prepared record) noexcept;
    /// The next to replay; the list must not be empty.
    const EditAction& back() const { return newest_->action; }
    EditAction takeBack();
    /// The record so many steps from the back, to be changed in place; null where there is none. No
    /// copy of the list shares it any more.
    EditAction* ownFromBack(std::size_t steps);
    /// Removes the oldest record.
    void dropFront();
    void clear();

    /// Calls `visit` with each record from the newest to the oldest, as long as it answers true.
    template <typename Visit>
    void forEachFromBack(Visit visit) const {
        const Node* node = newest_.get();
        for (std::size_t i = 0; i < size_ && visit(node->action); ++i)
            node = node->older.get();
    }

private:
    struct Node {
        EditAction action;
        std::shared_ptr<Node> older;
    };

    static void release(std::shared_ptr<Node> chain);
    void cutDropped();
    bool cutOwn() noexcept;

    std::shared_ptr<Node> newest_;
    std::size_t size_ = 0;
    std::size_t dropped_ = 0; // records behind the oldest that the chain still holds
};

/// A record that has its memory, so that pushing it cannot fail. A copy has memory of its own.
class ActionList::Prepared {
public:
    explicit Prepared(const EditAction& action)
        : node_(std::make_shared<Node>(Node{action, nullptr})) {}
    Prepared(const Prepared& other) : Prepared(other.node_->action) {}
    Prepared(Prepared&&) noexcept = default;
    Prepared& operator=(Prepared other) noexcept {
        node_ = std::move(other.node_);
        return *this;
    }
    ~Prepared() = default;

    /// Gives the memory up.
    std::shared_ptr<Node> take() && { return std::move(node_); }

private:
    std::shared_ptr<Node> node_;
};
