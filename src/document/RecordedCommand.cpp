#include "document/RecordedCommand.h"

#include "document/MarkupChange.h"
#include "text/XmlScan.h"

#include <vector>

using XmlScan::Text;

namespace {

/// For the group, which begins behind the run of typing and not within it.
EditableDocumentBuffer* afterTyping(EditableDocumentBuffer* buffer) {
    buffer->endKeyTypingSequence();
    return buffer;
}

/// What stands in the flows.
std::vector<Text> flowsOf(Text text) {
    std::vector<Text> flows;
    for (int tag = XmlScan::nextTag(text, 0); tag >= 0;
         tag = XmlScan::nextTag(text, XmlScan::stepForward(text, tag))) {
        if (XmlScan::tagName(text, tag) != L"fo:flow")
            continue;
        const int closing = XmlScan::closingTag(text, tag);
        if (closing > tag)
            flows.push_back(XmlScan::slice(text, XmlScan::stepForward(text, tag), closing));
    }
    return flows;
}

} // namespace

RecordedCommand::RecordedCommand(EditableDocumentBuffer* buffer)
    : buffer_(buffer), scope_(buffer), before_(buffer), oldText_(buffer->getContent()),
      group_(afterTyping(buffer)) {}

/// The step is closed before the monitor hears.
RecordedCommand::~RecordedCommand() noexcept(false) {
    group_.reset();
    if (!scope_.isFailing() && !buffer_->getEditActionStack().nextUndoStepIsWhole() &&
        buffer_->getContent() != oldText_)
        before_.recordReplacement();
}

bool RecordedCommand::mayStand() const {
    const Core::String newText = buffer_->getContent();
    const bool isFlowLocked = buffer_->getPageMasterEditingMode();
    return (!isFlowLocked || flowsOf(oldText_.view()) == flowsOf(newText.view())) &&
           MarkupChange(oldText_, newText).keepsWellFormed();
}

void RecordedCommand::takeBack() {
    before_.restorePreviousState();
    scope_.discardNotices();
}
