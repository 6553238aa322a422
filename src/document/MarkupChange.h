#pragma once

#include "foundation/String.h"
#include "text/MarkupMatcher.h"
#include "text/XmlScan.h"

#include <vector>

/// The difference between a text before and after a command, and whether it keeps the document well
/// formed: names of tags matched, entities complete, attributes unique. As a rule only what changed
/// is looked at, whatever stands elsewhere, so that the check costs little on a long document.
class MarkupChange {
public:
    /// Both texts must outlive the change.
    MarkupChange(const Core::String& before, const Core::String& after);

    /// Whether the text is as good as before: what changed is well formed if it was, and the text
    /// lexically valid if it was. A change of what was neither may be anything, but for what no
    /// document can hold.
    bool keepsWellFormed() const;

private:
    void findDifference();
    void widenToWholeUnits();
    void widenToStartTags();

    bool isInRoot() const;
    bool onlyTextDiffers() const;
    int unitStart(int position) const;
    XmlScan::Text part(XmlScan::Text text) const;
    std::vector<int> openTagsBefore(int position) const;
    bool partFits() const;
    bool keepsLexicallyValid() const;
    bool keepsToCharacters() const;

    const Core::String& oldText_;
    const Core::String& newText_;
    XmlScan::Text before_;
    XmlScan::Text after_;
    int root_;       // where the root element of the text before begins
    int content_;    // where its content begins; at the end of the text if it has none
    int start_ = 0;  // where the texts begin to differ
    int behind_ = 0; // how many units at their ends are the same
    bool isPlain_ = false;
    bool isAroundRoot_ = false;
    XmlScan::Text oldPart_; // the whole units of the text before that differ
};
