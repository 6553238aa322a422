#pragma once

#include "document/history/ActionList.h"

#include <optional>
#include <vector>

/// The records of a run of typing while one more key joins them: the caret before all, what was
/// removed and inserted, and the caret behind all. Carets between two keys and the markers of inner
/// groups bring nothing back and go.
class TypingRun {
public:
    /// Takes up what the keys before left at the back of an undo list, to be changed by this one.
    void continueFrom(ActionList& undo);
    /// Adds a record of the key, as an undo list holds it.
    void add(const EditAction& undone);
    void appendTo(ActionList& undo) const;

    /// Whether a key that types a unit at the position only makes the record of what was inserted
    /// longer, and goes on from the caret behind it.
    static bool mayGrow(const EditAction& inserted, const EditAction& caretBehind, int position);

private:
    /// A change as an undo list holds it: a deletion undoes what was inserted.
    struct Change {
        EditAction::EditActionType type;
        int position;
        Core::String text;

        int end() const { return position + text.length(); }
    };

    void addCaret(const EditAction& caret);
    void addInserted(const Change& inserted);
    void addRemoved(const Change& removed);
    bool endsWithInsertion() const;

    bool hasStart_ = false; // its caret is among the records of the keys before
    std::optional<EditAction> caretBefore_;
    std::vector<Change> changes_;
    std::optional<EditAction> caretBehind_;
};
