#include "document/CommandScope.h"

#include "document/Document.h"

#include <exception>

CommandScope::CommandScope(Document& document, Protection protection)
    : document_(document), freeze_(document), exceptions_(std::uncaught_exceptions()) {
    if (document_.isInCommand)
        return;
    document_.refusesChanges = protection == Protection::Respected && document_.isProtected();
    if (document_.refusesChanges)
        document_.endTyping(); // of a run that a host's own surgery on the text has cut short
    before_.emplace(document_);
    document_.isInCommand = true;
}

CommandScope::~CommandScope() {
    if (isFailing())
        freeze_.discard();
    if (!before_)
        return;
    if (isFailing()) {
        before_->restorePreviousState();
    } else if (isRefused()) {
        before_->restorePreviousState();
        freeze_.discard();
    }
    before_.reset();
    document_.isInCommand = false;
    document_.refusesChanges = false;
}

bool CommandScope::isRefused() const {
    return document_.refusesChanges && before_->hasChanged();
}

bool CommandScope::isFailing() const {
    return std::uncaught_exceptions() > exceptions_;
}
