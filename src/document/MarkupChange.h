#pragma once

#include "foundation/String.h"
#include "text/XmlScan.h"

/// The difference between a text before and after a command, and whether it keeps the document well
/// formed: names of tags matched, entities complete, attributes unique. Only what changed is looked
/// at, so that the check costs little on a long document.
class MarkupChange {
public:
    /// Both texts must outlive the change.
    MarkupChange(const Core::String& before, const Core::String& after);

    /// Whether the changed part is well formed and opens and closes the same elements of its
    /// surroundings as it did before. A part that was not well formed before may be anything.
    bool keepsWellFormed() const;

private:
    void widenToWholeMarkup();

    XmlScan::Text before_;
    XmlScan::Text after_;
    int start_ = 0;  // where the texts begin to differ
    int behind_ = 0; // how many units at their ends are the same
};
