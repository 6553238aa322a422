#pragma once

#include "foundation/String.h"

class Document;

/// The way to change a document: each change is recorded as it is made, and followed by a record of
/// where it left the caret.
class Edit {
public:
    explicit Edit(Document& document) : document_(document) {}

    void insert(int position, const Core::String& xml);
    /// Removes from `start` up to but excluding `end`; nothing if that is empty. Answers what went.
    Core::String remove(int start, int end);

private:
    Document& document_;
};
