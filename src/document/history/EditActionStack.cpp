#include "document/history/EditActionStack.h"

#include "document/history/ForgottenStretch.h"
#include "document/history/TypingRun.h"
#include "foundation/Exception.h"

#include <algorithm>
#include <limits>
#include <string_view>
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

EditAction caretRecord(int position) {
    return EditAction(EditAction::EditCaret, -1, position, position, Core::String());
}

} // namespace

void EditActionStack::addAction(const EditAction& action) {
    if (action.getString().empty() && action.getType() != EditAction::EditCaret)
        return;
    ActionList::Prepared record(action.inverse());
    if (undoActions_.size() + 1 > static_cast<std::size_t>(limit_) && !undoActions_.empty())
        undoActions_.dropFront();
    track(action);
    push(std::move(record));
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
    to.pushBack(from.back().inverse());
    EditAction action = from.takeBack();
    track(action);
    return action;
}

void EditActionStack::keepReplaced(const Core::String& replaced, bool isUndone) {
    ActionList& wayBack = isUndone ? redoActions_ : undoActions_;
    const auto bringsBack = [&](const EditAction& action) {
        return action.getType() == EditAction::EditContent && action.getString() == replaced;
    };
    const EditAction counterpart = wayBack.takeBack();
    const bool hasPartner = !wayBack.empty() && bringsBack(wayBack.back());
    wayBack.pushBack(hasPartner || bringsBack(counterpart)
                         ? counterpart
                         : EditAction(EditAction::EditContent, -1, -1, -1, replaced));
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

void EditActionStack::push(ActionList::Prepared undone) noexcept {
    undoActions_.pushBack(std::move(undone));
    ++recorded_;
}

void EditActionStack::startActionGroup() {
    push(ActionList::Prepared(EditAction(EditAction::EditGroupStart)));
}

void EditActionStack::endActionGroup() {
    push(ActionList::Prepared(EditAction(EditAction::EditGroupEnd)));
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

std::optional<int> EditActionStack::growTyping(const TypedKey& key) {
    EditAction* const caret = undoActions_.ownFromBack(0);
    EditAction* const inserted = undoActions_.ownFromBack(1);
    if (!inserted || !redoActions_.empty() || !TypingRun::mayGrow(*inserted, *caret, key.caret) ||
        inserted->getString().length() < key.removed)
        return std::nullopt;
    inserted->replaceEnd(key.removed, key.text);
    *caret = caretRecord(key.end());
    const int trackedBefore = trackingPos_;
    track(key);
    return trackedBefore;
}

void EditActionStack::shrinkTyping(const TypedKey& key, const Core::String& removed,
                                   int trackedBefore) {
    undoActions_.ownFromBack(1)->replaceEnd(key.text.length(), removed);
    *undoActions_.ownFromBack(0) = caretRecord(key.caret);
    trackingPos_ = trackedBefore;
}

void EditActionStack::beginTyping(const TypedKey& key) {
    trimTyping(key);
    const EditAction inserted(EditAction::EditInsert, key.caret, -1, -1, key.text);
    for (const EditAction& entry :
         {caretRecord(key.caret), inserted.inverse(), caretRecord(key.end())})
        push(ActionList::Prepared(entry));
    track(key);
    redoActions_.clear();
}

/// A blank that was an entity is put back first.
void EditActionStack::track(const TypedKey& key) noexcept {
    const int blank = key.removed > 0 ? 1 : 0;
    if (blank > 0) {
        track(EditAction::EditDelete, key.start(), key.removed);
        track(EditAction::EditInsert, key.start(), blank);
    }
    track(EditAction::EditInsert, key.start() + blank, key.text.length() - blank);
}

void EditActionStack::addStep(std::vector<Entry> entries) noexcept {
    for (Entry& entry : entries) {
        const EditAction::EditActionType type = entry.performed.getType();
        const bool isMarker =
            type == EditAction::EditGroupStart || type == EditAction::EditGroupEnd;
        if (!isMarker && !hasRoomFor(1) && !undoActions_.empty())
            undoActions_.dropFront();
        track(entry.performed);
        push(std::move(entry.record));
    }
    redoActions_.clear();
}

/// Before they are merged, a key makes six records, and nine before these if it removes something.
/// For each but the markers of groups the oldest entry goes at the limit.
void EditActionStack::trimTyping(const TypedKey& key) noexcept {
    constexpr std::string_view removal = "(cd(cic))";
    constexpr std::string_view insertion = "(cic)c";
    std::size_t made = 0;
    for (const std::string_view records : {key.removed > 0 ? removal : "", insertion})
        for (const char record : records) {
            const bool isMarker = record == '(' || record == ')';
            if (!isMarker && !hasRoomFor(made + 1) && undoActions_.size() > 2)
                undoActions_.dropFront();
            ++made;
        }
}

unsigned EditActionStack::openGroup() {
    ActionList::Prepared start{EditAction(EditAction::EditGroupStart)};
    openGroups_.push_back(
        {lastGroup_ + 1, ActionList::Prepared(EditAction(EditAction::EditGroupEnd))});
    push(std::move(start));
    return ++lastGroup_;
}

void EditActionStack::closeGroup(unsigned group) noexcept {
    const auto open = std::find_if(openGroups_.begin(), openGroups_.end(),
                                   [group](const OpenGroup& one) { return one.number == group; });
    if (open == openGroups_.end())
        return;
    push(std::move(open->end));
    openGroups_.erase(open);
}

void EditActionStack::restore(EditActionStack&& earlier) noexcept {
    const unsigned lastGroup = lastGroup_;
    *this = std::move(earlier);
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
    track(performed.getType(), performed.getActionPosition(), performed.getString().length());
}

void EditActionStack::track(EditAction::EditActionType type, int position, int length) noexcept {
    if (trackingPos_ < 0 || trackingPos_ < position)
        return;
    if (type == EditAction::EditInsert)
        trackingPos_ += std::min(length, std::numeric_limits<int>::max() - trackingPos_);
    else if (type == EditAction::EditDelete)
        trackingPos_ -= length;
}
