#pragma once

#include "document/history/EditAction.h"
#include "foundation/String.h"

#include <optional>

/// A stretch of the text that the history is to forget, followed from record to record: what it was
/// and where, as each of them is replayed.
class ForgottenStretch {
public:
    ForgottenStretch(int start, const Core::String& text) : start_(start), text_(text) {}

    /// Whether nothing of it is left in the text. Older records then stay as they are.
    bool empty() const { return text_.empty(); }

    /// The record as if the stretch were not there; none if nothing remains of it. The stretch is
    /// then as the record leaves it.
    std::optional<EditAction> without(const EditAction& action);

    /// Where an offset is without the stretch.
    int offsetWithout(int offset) const;

private:
    int end() const { return start_ + text_.length(); }

    std::optional<EditAction> withoutInsertion(const EditAction& insertion);
    std::optional<EditAction> withoutDeletion(const EditAction& deletion);
    EditAction withoutContent(const EditAction& content);

    int start_;
    Core::String text_;
};
