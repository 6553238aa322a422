#pragma once

#include "text/store/MarkKinds.h"
#include "text/torn/ElementMemo.h"
#include "text/torn/MarkupMemo.h"
#include "text/torn/PrecedingTags.h"
#include "text/torn/TagEnds.h"

/// Finds tags in any text by scans, and remembers what these have met: of a text that is torn its
/// store cannot tell. The answers are those of XmlScan.
class ScannedTags {
public:
    /// To be asked of a text, the same until it changes.
    ScannedTags& of(XmlScan::Text text) {
        text_ = text;
        return *this;
    }
    /// The text has changed from the position on. Answers whether that may have made other tags of
    /// those before it.
    bool forgetFrom(int position) noexcept;

    /// The `<` of the markup that holds the position and begins before it; -1 if none does.
    int markupAround(int position) { return markup_.around(text_, position); }
    /// The innermost start tag before the position that has not been closed there; -1 if none.
    int elementAround(int position) { return elements_.around(text_, position, preceding_); }
    /// The offset behind the markup at the position.
    int next(int markup) const { return XmlScan::stepForward(text_, markup); }
    /// The `>` of the tag at the position.
    int tagEnd(int tag) const { return XmlScan::tagEnd(text_, tag); }
    bool selfClosingAt(int tag) { return ends_.selfClosingAt(text_, tag); }
    /// Whether a `>` ends no markup.
    bool isText(int bracket) { return preceding_.isText(text_, bracket); }
    /// The next tag at or behind the position that may be of those kinds, and the last that ends at
    /// or before it.
    int nextTag(int position, MarkKinds) const { return XmlScan::nextTag(text_, position); }
    int previousTag(int position, MarkKinds) { return preceding_.find(text_, position); }
    int startTag(int tag) const { return XmlScan::startTag(text_, tag); }
    XmlScan::Text tagName(int tag) { return ends_.tagName(text_, tag); }

private:
    XmlScan::Text text_;
    PrecedingTags preceding_;
    ElementMemo elements_;
    TagEnds ends_;
    MarkupMemo markup_;
};
