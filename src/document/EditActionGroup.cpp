#include "document/EditActionGroup.h"

#include "document/EditActionStack.h"
#include "document/EditableDocumentBuffer.h"

EditActionGroup::EditActionGroup(EditActionStack* stack)
    : stack_(stack), group_(stack->openGroup()) {}

EditActionGroup::EditActionGroup(EditableDocumentBuffer* buffer)
    : EditActionGroup(&buffer->getEditActionStack()) {}

EditActionGroup::~EditActionGroup() {
    stack_->closeGroup(group_);
}
