#include "document/EditActionStack.h"

#include "document/ForgottenStretch.h"
#include "document/TypingRun.h"
#include "foundation/Exception.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

/// Lets the list forget the stretch, from the next record to replay as far as the stretch was
/// there.
void forgetIn(ActionList& actions, ForgottenStretch stretch) {
    std::vector<EditAction> changed;
    while (!actions.empty() && !stretch.empty())
        if (const auto action = stretch.without(actions.takeBack()))
            changed.push_back(*action);
    for (auto action = changed.rbegin(); action != changed.rend(); ++action)
        actions.pushBack(*action);
}

} // namespace

void EditActionStack::addAction(const EditAction& action) {
    if (action.getString().empty() && action.getType() != EditAction::EditCaret)
        return;
    if (undoActions_.size() + 1 > static_cast<std::size_t>(limit_) && !undoActions_.empty())
        undoActions_.dropFront();
    track(action);
    push(action.inverse());
    redoActions_.clear();
}

EditAction EditActionStack::getUndoAction() {
    return moveBack(undoActions_, redoActions_);
}

EditAction EditActionStack::getRedoAction() {
    return moveBack(redoActions_, undoActions_);
}

EditAction EditActionStack::moveBack(ActionList& from, ActionList& to) {
    if (from.empty())
        throw Core::Exception(L"history: nothing to undo or redo");
    EditAction action = from.takeBack();
    to.pushBack(action.inverse());
    track(action);
    return action;
}

bool EditActionStack::nextUndoStepIsWhole() const {
    int depth = 0;
    undoActions_.forEachFromBack([&depth](const EditAction& action) {
        if (action.getType() == EditAction::EditGroupEnd)
            ++depth;
        else if (action.getType() == EditAction::EditGroupStart)
            --depth;
        return depth > 0;
    });
    return depth <= 0;
}

void EditActionStack::push(const EditAction& undone) {
    undoActions_.pushBack(undone);
    ++recorded_;
}

void EditActionStack::startActionGroup() {
    push(EditAction(EditAction::EditGroupStart));
}

void EditActionStack::endActionGroup() {
    push(EditAction(EditAction::EditGroupEnd));
}

void EditActionStack::mergeTyping(std::size_t count, bool isFirst) {
    std::vector<EditAction> key;
    for (; count > 0 && !undoActions_.empty(); --count)
        key.push_back(undoActions_.takeBack());
    TypingRun run;
    if (!isFirst)
        run.continueFrom(undoActions_);
    std::for_each(key.rbegin(), key.rend(), [&run](const EditAction& action) { run.add(action); });
    run.appendTo(undoActions_);
}

unsigned EditActionStack::openGroup() {
    startActionGroup();
    openGroups_.push_back(++lastGroup_);
    return lastGroup_;
}

void EditActionStack::closeGroup(unsigned group) {
    const auto open = std::find(openGroups_.begin(), openGroups_.end(), group);
    if (open == openGroups_.end())
        return;
    openGroups_.erase(open);
    endActionGroup();
}

void EditActionStack::restore(const EditActionStack& earlier) {
    const unsigned lastGroup = lastGroup_;
    *this = earlier;
    lastGroup_ = lastGroup;
}

void EditActionStack::clearStack() {
    undoActions_.clear();
    redoActions_.clear();
    openGroups_.clear();
}

void EditActionStack::forget(int start, const Core::String& removed) {
    const ForgottenStretch stretch(start, removed);
    forgetIn(undoActions_, stretch);
    forgetIn(redoActions_, stretch);
    trackingPos_ = stretch.offsetWithout(trackingPos_);
}

int EditActionStack::retrieveTrackingPos() {
    return std::exchange(trackingPos_, -1);
}

void EditActionStack::track(const EditAction& performed) {
    if (trackingPos_ < 0 || trackingPos_ < performed.getActionPosition())
        return;
    if (performed.getType() == EditAction::EditInsert)
        trackingPos_ += performed.getString().length();
    else if (performed.getType() == EditAction::EditDelete)
        trackingPos_ -= performed.getString().length();
}
