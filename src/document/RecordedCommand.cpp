#include "document/RecordedCommand.h"

#include "text/MarkupChange.h"

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
    : document_(document), scope_(document), before_(document), group_(afterTyping(document)) {}

/// The step is closed before the monitor hears.
RecordedCommand::~RecordedCommand() noexcept(false) {
    group_.reset();
    if (!scope_.isFailing() && !document_.history.nextUndoStepIsWhole() &&
        !document_.text().isAsAt(before_.text()))
        before_.recordReplacement();
}

bool RecordedCommand::mayStand() const {
    const XmlText& text = document_.text();
    if (document_.modes.pageMasters &&
        flowsOf(text.contentAt(before_.text()).view()) != flowsOf(text.view(0, text.length())))
        return false;
    return MarkupChange(text, before_.text()).keepsWellFormed();
}

void RecordedCommand::takeBack() {
    before_.restorePreviousState();
    scope_.discardNotices();
}
