#pragma once

#include "foundation/Api.h"

class EditActionStack;
class EditableDocumentBuffer;

/// A scope whose records are one undo step. Scopes nest; the outermost one is the step.
class FORME_API EditActionGroup {
public:
    explicit EditActionGroup(EditActionStack* stack);
    explicit EditActionGroup(EditableDocumentBuffer* buffer);
    ~EditActionGroup();

    EditActionGroup(const EditActionGroup&) = delete;
    EditActionGroup& operator=(const EditActionGroup&) = delete;

private:
    friend class EditableDocumentBufferState;

    /// Takes up a group that is open on the stack already.
    EditActionGroup(EditActionStack* stack, unsigned group) : stack_(stack), group_(group) {}

    EditActionStack* stack_;
    unsigned group_;
};
