#include "document/RecordedCommand.h"

#include "document/MarkupChange.h"

#include <vector>

using XmlScan::Text;

namespace {

/// For the group, which begins behind the run of typing and not within it.
Document& afterTyping(Document& document) {
    document.endTyping();
    return document;
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

RecordedCommand::RecordedCommand(Document& document)
    : document_(document), scope_(document), before_(document), oldText_(document.text().content()),
      group_(afterTyping(document)) {}

/// The step is closed before the monitor hears.
RecordedCommand::~RecordedCommand() noexcept(false) {
    group_.reset();
    if (!scope_.isFailing() && !document_.history.nextUndoStepIsWhole() &&
        document_.text().content() != oldText_)
        before_.recordReplacement();
}

bool RecordedCommand::mayStand() const {
    const Core::String newText = document_.text().content();
    return (!document_.modes.pageMasters || flowsOf(oldText_.view()) == flowsOf(newText.view())) &&
           MarkupChange(oldText_, newText).keepsWellFormed();
}

void RecordedCommand::takeBack() {
    before_.restorePreviousState();
    scope_.discardNotices();
}
