#include "document/history/TypingRun.h"

namespace {

/// A record that is full grows no more, so that a key in a long run costs what one in a short run
/// does, though snapshots share the record and it is copied.
constexpr int mostUnits = 1024;

bool isNext(const ActionList& undo, EditAction::EditActionType type) {
    return !undo.empty() && undo.back().getType() == type;
}

} // namespace

void TypingRun::continueFrom(ActionList& undo) {
    hasStart_ = isNext(undo, EditAction::EditCaret);
    if (!hasStart_)
        return;
    caretBehind_ = undo.takeBack();
    if (!isNext(undo, EditAction::EditDelete) || undo.back().getString().length() >= mostUnits)
        return;
    const EditAction inserted = undo.takeBack();
    changes_.push_back({inserted.getType(), inserted.getActionPosition(), inserted.getString()});
}

bool TypingRun::mayGrow(const EditAction& inserted, const EditAction& caretBehind, int position) {
    const int length = inserted.getString().length();
    return inserted.getType() == EditAction::EditDelete && length < mostUnits &&
           inserted.getActionPosition() + length == position &&
           caretBehind.getType() == EditAction::EditCaret &&
           caretBehind.getCaretPosition() == position &&
           caretBehind.getSelPivotPosition() == position;
}

void TypingRun::add(const EditAction& undone) {
    const Change change{undone.getType(), undone.getActionPosition(), undone.getString()};
    switch (change.type) {
    case EditAction::EditCaret:
        addCaret(undone);
        break;
    case EditAction::EditDelete:
        addInserted(change);
        break;
    case EditAction::EditInsert:
        addRemoved(change);
        break;
    case EditAction::EditContent:
        changes_.push_back(change);
        break;
    case EditAction::EditGroupStart:
    case EditAction::EditGroupEnd:
        break;
    }
}

void TypingRun::addCaret(const EditAction& caret) {
    (hasStart_ ? caretBehind_ : caretBefore_) = caret;
    hasStart_ = true;
}

/// What is put into text that was inserted belongs to it.
void TypingRun::addInserted(const Change& inserted) {
    if (endsWithInsertion() && changes_.back().position <= inserted.position &&
        inserted.position <= changes_.back().end()) {
        Change& whole = changes_.back();
        whole.text.insert(static_cast<unsigned>(inserted.position - whole.position), inserted.text);
    } else {
        changes_.push_back(inserted);
    }
}

/// What is taken from text that was inserted was never there.
void TypingRun::addRemoved(const Change& removed) {
    if (!endsWithInsertion() || removed.position < changes_.back().position ||
        changes_.back().end() < removed.end()) {
        changes_.push_back(removed);
        return;
    }
    Change& whole = changes_.back();
    whole.text.erase(static_cast<unsigned>(removed.position - whole.position),
                     static_cast<unsigned>(removed.text.length()));
    if (whole.text.empty())
        changes_.pop_back();
}

bool TypingRun::endsWithInsertion() const {
    return !changes_.empty() && changes_.back().type == EditAction::EditDelete;
}

void TypingRun::appendTo(ActionList& undo) const {
    if (caretBefore_)
        undo.pushBack(*caretBefore_);
    for (const Change& change : changes_)
        undo.pushBack(EditAction(change.type, change.position, -1, -1, change.text));
    if (caretBehind_)
        undo.pushBack(*caretBehind_);
}
