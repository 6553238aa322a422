#include "document/history/EditActionGroup.h"

#include "document/Document.h"

EditActionGroup::EditActionGroup(EditActionStack* stack)
    : stack_(stack), group_(stack->openGroup()) {}

EditActionGroup::EditActionGroup(EditableDocumentBuffer* buffer)
    : EditActionGroup(Document::of(*buffer)) {}

EditActionGroup::EditActionGroup(Document& document) : EditActionGroup(&document.history) {}

EditActionGroup::~EditActionGroup() {
    stack_->closeGroup(group_);
}
