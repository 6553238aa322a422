#pragma once

#include "document/history/ActionList.h"
#include "document/history/EditAction.h"
#include "foundation/Api.h"

#include <cstddef>
#include <optional>
#include <vector>

/// Undo and redo as two lists of records. What is stored are inverses: the undo list holds what
/// must be done to undo, so that a replay needs no knowledge of the commands. Copies share their
/// records.
class FORME_API EditActionStack {
public:
    /// `limit` is the largest count of undo entries, group markers included.
    explicit EditActionStack(int limit) : limit_(limit) {}

    /// Records a performed action and forgets what could be redone. An empty text is no record,
    /// unless the action is of the caret. At the limit the oldest entry goes, whatever it is.
    void addAction(const EditAction& action);

    /// Take the next entry and put its counterpart on the other list. An empty list raises
    /// Core::Exception.
    EditAction getUndoAction();
    EditAction getRedoAction();

    /// The entry that was taken last puts a whole text in, by itself, in the place of `replaced`.
    /// If the next entry of the other list is no longer its partner, which brings that back, then
    /// its counterpart does.
    void keepReplaced(const Core::String& replaced, bool isUndone);

    bool hasMoreUndoActions() const { return !undoActions_.empty(); }
    bool hasMoreRedoActions() const { return !redoActions_.empty(); }

    /// Whether the next undo step still has its beginning, which the limit may have trimmed away.
    bool nextUndoStepIsWhole() const;

    /// Put a bare marker on the undo list. Neither the limit nor the redo list is touched.
    void startActionGroup();
    void endActionGroup();

    void clearUndoActionList() { undoActions_.clear(); }
    void clearRedoActionList() { redoActions_.clear(); }
    /// Empties both lists. A group that is open adds nothing more when its scope ends.
    void clearStack();

    /// Merges the last `count` entries, a key of the open run of typing, with those of the keys
    /// before, if it is not the first: what it changed in the text that they inserted changes their
    /// record. Undo and redo bring back the same, the caret included, so that a run costs what its
    /// text does and no limit cuts it in two.
    void mergeTyping(std::size_t count, bool isFirst);
    /// A key that types at a caret with nothing selected: so many units before the caret go, and
    /// the text comes in their place.
    struct TypedKey {
        int caret;
        int removed;
        Core::String text;

        int start() const { return caret - removed; }
        int end() const { return start() + text.length(); }
    };
    /// What recording and merging such a key would come to, if all that goes was put in last by the
    /// run; nothing is done where it was not. Answers the tracked offset as it was.
    std::optional<int> growTyping(const TypedKey& key);
    /// Takes that back. `removed` are the units that went.
    void shrinkTyping(const TypedKey& key, const Core::String& removed, int trackedBefore);
    /// The same for the first key of a run whose group is open, which removes nothing.
    void beginTyping(const TypedKey& key);
    /// Ends a key that has grown the run: lets the entries go that recording would have let go.
    void trimTyping(const TypedKey& key) noexcept;
    /// Whether so many entries can be recorded and the oldest stays.
    bool hasRoomFor(std::size_t count) const {
        return undoActions_.size() + count <= static_cast<std::size_t>(limit_);
    }
    /// Whether so many entries can be held at all.
    bool canHold(std::size_t count) const { return count <= static_cast<std::size_t>(limit_); }
    /// Records a step that has its memory: the actions as they were performed, with the records
    /// that the undo list is to hold. For a marker of a group no other entry goes.
    struct Entry {
        ActionList::Prepared record;
        EditAction performed;
    };
    void addStep(std::vector<Entry> entries) noexcept;
    /// How many entries were ever put on the undo list by recording.
    std::size_t recordedCount() const { return recorded_; }

    /// Takes note that `removed` has gone from the text at `start` without a record: the records
    /// are changed as if it had never been there, so that every step stays exact without it.
    void forget(int start, const Core::String& removed);

    /// From now on keeps the offset valid across the actions recorded and replayed.
    void startTrackingPos(int position) { trackingPos_ = position; }
    /// The tracked offset, -1 if there is none; it is tracked no longer.
    int retrieveTrackingPos();

    /// Open a group and close it by the number it was given; one that is not open any more adds
    /// nothing. EditActionGroup does both.
    unsigned openGroup();
    void closeGroup(unsigned group) noexcept;

    /// Goes back to a copy made earlier. Numbers of groups are never used twice.
    void restore(EditActionStack&& earlier) noexcept;

private:
    /// A group that is open. A snapshot keeps the list of them, so that one opened after it adds no
    /// end marker once the snapshot is restored.
    struct OpenGroup {
        unsigned number;
        ActionList::Prepared end; // so that a scope can always end
    };

    EditAction moveBack(ActionList& from, ActionList& to);
    void track(const EditAction& performed);
    void track(EditAction::EditActionType type, int position, int length) noexcept;
    void track(const TypedKey& key) noexcept;

    void push(ActionList::Prepared undone) noexcept;

    ActionList undoActions_;
    ActionList redoActions_;
    int limit_;
    std::size_t recorded_ = 0;
    int trackingPos_ = -1;
    std::vector<OpenGroup> openGroups_;
    unsigned lastGroup_ = 0;
};
