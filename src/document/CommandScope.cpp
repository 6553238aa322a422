#include "document/CommandScope.h"

#include "document/EditableDocumentBuffer.h"

#include <exception>

CommandScope::CommandScope(EditableDocumentBuffer* buffer)
    : buffer_(buffer), freeze_(buffer), exceptions_(std::uncaught_exceptions()) {
    if (buffer_->isInCommand_)
        return;
    before_.emplace(buffer_);
    buffer_->isInCommand_ = true;
}

CommandScope::~CommandScope() {
    if (isFailing())
        freeze_.discard();
    if (!before_)
        return;
    if (isFailing())
        before_->restorePreviousState();
    before_.reset();
    buffer_->isInCommand_ = false;
}

bool CommandScope::isFailing() const {
    return std::uncaught_exceptions() > exceptions_;
}
