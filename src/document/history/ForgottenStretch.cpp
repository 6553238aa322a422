#include "document/history/ForgottenStretch.h"

#include <algorithm>

using Core::String;

namespace {

EditAction withText(const EditAction& action, int position, const String& text) {
    return {action.getType(), position, action.getCaretPosition(), action.getSelPivotPosition(),
            text};
}

void eraseRange(String& text, int start, int end) {
    if (start < end)
        text.erase(static_cast<unsigned>(start), static_cast<unsigned>(end - start));
}

} // namespace

int ForgottenStretch::offsetWithout(int offset) const {
    return offset >= end() ? offset - text_.length() : std::min(offset, start_);
}

std::optional<EditAction> ForgottenStretch::without(const EditAction& action) {
    switch (action.getType()) {
    case EditAction::EditInsert:
        return withoutInsertion(action);
    case EditAction::EditDelete:
        return withoutDeletion(action);
    case EditAction::EditContent:
        return withoutContent(action);
    case EditAction::EditCaret:
        return EditAction(EditAction::EditCaret, action.getActionPosition(),
                          offsetWithout(action.getCaretPosition()),
                          offsetWithout(action.getSelPivotPosition()), L"");
    default:
        return action;
    }
}

/// What is put inside the stretch becomes part of it.
std::optional<EditAction> ForgottenStretch::withoutInsertion(const EditAction& insertion) {
    const int position = insertion.getActionPosition();
    const String& text = insertion.getString();
    if (start_ < position && position < end()) {
        text_.insert(static_cast<unsigned>(position - start_), text);
        return std::nullopt;
    }
    const EditAction changed = withText(insertion, offsetWithout(position), text);
    if (position <= start_)
        start_ += text.length();
    return changed;
}

/// What the record takes of the stretch it takes no longer.
std::optional<EditAction> ForgottenStretch::withoutDeletion(const EditAction& deletion) {
    const int position = deletion.getActionPosition();
    const int behind = position + deletion.getString().length();
    const int sharedStart = std::clamp(position, start_, end());
    const int sharedEnd = std::clamp(behind, start_, end());
    String text = deletion.getString();
    eraseRange(text, sharedStart - position, sharedEnd - position);
    const EditAction changed = withText(deletion, offsetWithout(position), text);
    eraseRange(text_, sharedStart - start_, sharedEnd - start_);
    start_ -= std::max(0, std::min(behind, start_) - position);
    return text.empty() ? std::nullopt : std::optional(changed);
}

/// Of the two records of a replacement, the one that holds the text as it is loses the stretch. The
/// other holds another text, in which there is nothing to forget.
EditAction ForgottenStretch::withoutContent(const EditAction& content) {
    String text = content.getString();
    const bool isThere = text.length() >= end() &&
                         text.view().substr(static_cast<unsigned>(start_),
                                            static_cast<unsigned>(text_.length())) == text_.view();
    if (isThere)
        eraseRange(text, start_, end());
    else
        text_.clear();
    return withText(content, content.getActionPosition(), text);
}
