#pragma once

#include "document/EditableDocumentBuffer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// A host that takes a document's text once, and from then on what the ranges say has changed.
class TextFollower {
public:
    explicit TextFollower(const EditableDocumentBuffer& document) { read(document); }

    /// Takes up what has changed since the last time. Answers whether it then has the text.
    bool keepsUpWith(const EditableDocumentBuffer& document) {
        const std::optional<TextChange> change = document.changeSince(version_);
        if (!change)
            return false;
        const Core::String inserted =
            document.getContent(change->start, change->start + change->inserted);
        put(text_, *change, inserted);
        version_ = document.getTextVersion();
        return inserted.length() == change->inserted && text_ == document.getContent().view();
    }

    void read(const EditableDocumentBuffer& document) {
        version_ = document.getTextVersion();
        text_ = document.getContent().view();
    }

    static void put(std::wstring& text, const TextChange& change, const Core::String& inserted) {
        text.replace(static_cast<std::size_t>(change.start),
                     static_cast<std::size_t>(change.removed), inserted.view());
    }

    std::uint64_t version() const { return version_; }

private:
    std::uint64_t version_ = 0;
    std::wstring text_;
};
