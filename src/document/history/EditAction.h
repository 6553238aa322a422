#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

/// The record of one change, or a marker around several. A plain value; its text is shared, not
/// copied.
class FORME_API EditAction {
public:
    enum EditActionType {
        EditInsert = 0,     ///< the text was, or on replay is to be, inserted
        EditDelete = 1,     ///< the text was, or on replay is to be, deleted
        EditContent = 2,    ///< the whole document is the text
        EditCaret = 3,      ///< caret and pivot stand where the record says
        EditGroupStart = 4, ///< what follows up to the matching end is one step
        EditGroupEnd = 5
    };

    explicit EditAction(EditActionType type) : type_(type) {}

    /// Positions that do not apply to the type are -1.
    EditAction(EditActionType type, int actionPosition, int caretPosition, int selPivotPosition,
               const Core::String& text)
        : text_(text), caretPosition_(caretPosition), selPivotPosition_(selPivotPosition),
          actionPosition_(actionPosition), type_(type) {}

    EditActionType getType() const { return type_; }
    int getActionPosition() const { return actionPosition_; }
    int getCaretPosition() const { return caretPosition_; }
    int getSelPivotPosition() const { return selPivotPosition_; }
    const Core::String& getString() const { return text_; }
    bool mustKeepSelection() const { return keepSelection_; }

    /// Puts other text in the place of so many units at the end.
    void replaceEnd(int count, const Core::String& text) {
        text_.replace(static_cast<unsigned>(text_.length() - count), static_cast<unsigned>(count),
                      text);
    }

    /// The record that undoes this one: insertion and deletion, group start and end are exchanged.
    EditAction inverse() const;

private:
    Core::String text_;
    int caretPosition_ = -1;
    int selPivotPosition_ = -1;
    int actionPosition_ = 0;
    EditActionType type_;
    bool keepSelection_ = false;
};
