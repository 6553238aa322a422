#pragma once

#include "text/XmlText.h"

#include <cstddef>
#include <string>
#include <vector>

/// What has changed in a text since a mark, and whether it keeps the document well formed: names of
/// tags matched, entities complete, attributes unique. As a rule only what changed is looked at,
/// whatever stands elsewhere, so that the check costs little on a long document.
class MarkupChange {
public:
    /// Both must outlive the change, and the text must stay as it is.
    MarkupChange(const XmlText& text, const TextMark& before);

    /// Whether the text is as good as before: what changed is well formed if it was, and the text
    /// lexically valid if it was. A change of what was neither may be anything, but for what no
    /// document can hold.
    bool keepsWellFormed() const;

private:
    using Text = XmlScan::Text;

    void findDifference();
    void widenToWholeUnits();
    bool widenInto(int rest);
    void widenToStartTags();
    void startAt(int position);

    bool isInRoot() const;
    bool onlyTextDiffers() const;
    int oldUnitStart() const;
    Text newPart() const;
    Text prolog() const { return XmlScan::slice(after_, 0, edges_.root); }
    std::vector<Text> namesAround(std::size_t most) const;
    bool fitsAroundRoot() const;
    bool fitsInRoot() const;
    bool fits() const;
    bool fitsBetweenTags() const;
    bool partFits() const;
    bool wasWhole() const;
    bool keepsLexicallyValid() const;
    bool keepsToCharacters() const;
    Core::String oldContent() const { return text_.contentAt(mark_); }

    const XmlText& text_;
    const TextMark& mark_;
    Text after_;
    RootEdges edges_;      // the same in both texts if the change is between them
    int start_ = 0;        // where the texts begin to differ
    int behind_ = 0;       // how many units at their ends are the same
    std::wstring oldPart_; // what stood between
    bool isPlain_ = false; // whether nothing differs but text, so that all markup stays what it is
    bool isAroundRoot_ = false;
    bool wasContent_ = true; // whether the old part was well formed before it was widened to tags
};
