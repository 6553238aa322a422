#include "document/CommandScope.h"

#include "document/Document.h"

#include <exception>

CommandScope::CommandScope(Document& document)
    : document_(document), freeze_(document), exceptions_(std::uncaught_exceptions()) {
    if (document_.isInCommand)
        return;
    before_.emplace(document_);
    document_.isInCommand = true;
}

CommandScope::~CommandScope() {
    if (isFailing())
        freeze_.discard();
    if (!before_)
        return;
    if (isFailing())
        before_->restorePreviousState();
    before_.reset();
    document_.isInCommand = false;
}

bool CommandScope::isFailing() const {
    return std::uncaught_exceptions() > exceptions_;
}
