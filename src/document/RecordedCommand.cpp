#include "document/RecordedCommand.h"

#include "text/MarkupChange.h"

namespace {

/// For the group, which begins behind the run of typing and not within it.
Document& afterTyping(Document& document) {
    document.endTyping();
    return document;
}

} // namespace

RecordedCommand::RecordedCommand(Document& document)
    : document_(document), scope_(document), before_(document), group_(afterTyping(document)) {}

/// The step is closed before the monitor hears.
RecordedCommand::~RecordedCommand() noexcept(false) {
    group_.reset();
    if (!scope_.isFailing() && !document_.history.nextUndoStepIsWhole() &&
        !document_.text().isAsAt(before_.text()))
        before_.recordReplacement();
}

bool RecordedCommand::mayStand() const {
    if (document_.refusesChanges)
        return false;
    const XmlText& text = document_.text();
    if (document_.modes.pageMasters && !text.keepsContentOf(L"fo:flow", before_.text()))
        return false;
    return MarkupChange(text, before_.text()).keepsWellFormed();
}

void RecordedCommand::takeBack() {
    before_.restorePreviousState();
    scope_.discardNotices();
}
