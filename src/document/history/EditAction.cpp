#include "document/history/EditAction.h"

namespace {

EditAction::EditActionType opposite(EditAction::EditActionType type) {
    switch (type) {
    case EditAction::EditInsert:
        return EditAction::EditDelete;
    case EditAction::EditDelete:
        return EditAction::EditInsert;
    case EditAction::EditGroupStart:
        return EditAction::EditGroupEnd;
    case EditAction::EditGroupEnd:
        return EditAction::EditGroupStart;
    default:
        return type;
    }
}

} // namespace

EditAction EditAction::inverse() const {
    EditAction undone = *this;
    undone.type_ = opposite(type_);
    return undone;
}
