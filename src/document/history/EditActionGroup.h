#pragma once

#include "foundation/Api.h"

class EditActionStack;
class Document;
class EditableDocumentBuffer;

/// A scope whose records are one undo step. Scopes nest; the outermost one is the step.
class FORME_API EditActionGroup {
public:
    explicit EditActionGroup(EditActionStack* stack);
    explicit EditActionGroup(EditableDocumentBuffer* buffer);
    explicit EditActionGroup(Document& document);
    ~EditActionGroup();

    EditActionGroup(const EditActionGroup&) = delete;
    EditActionGroup& operator=(const EditActionGroup&) = delete;

private:
    EditActionStack* stack_;
    unsigned group_;
};
