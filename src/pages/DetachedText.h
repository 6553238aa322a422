#pragma once

#include "text/XmlText.h"

#include <utility>
#include <vector>

/// A whole document as a text, and where in it the elements are that the tree of the same text
/// knows by their numbers. Elements are given by their `<`; -1 means none.
class DetachedText {
public:
    /// From the first unit up to but excluding the second number; two -1 for none.
    using Range = std::pair<int, int>;
    static constexpr Range none{-1, -1};

    struct StaticContent {
        int element;
        int sequence; ///< the page sequence or repeat whose child it is
    };

    explicit DetachedText(const Core::String& text) { assign(text); }
    void assign(const Core::String& text);

    const XmlText& text() const { return text_; }
    /// Of the whole element; none where no element is.
    Range rangeOf(int element) const;

    /// The page sequences and repeats that are children of the root.
    const std::vector<int>& sequences() const { return sequences_; }
    /// The index of the first that begins at or behind the position; the number of them if none
    /// does.
    std::size_t sequenceFrom(int position) const;
    /// The static contents that are their children.
    const std::vector<StaticContent>& staticContents() const { return staticContents_; }
    std::vector<StaticContent>::const_iterator staticContentFrom(int position) const;
    /// The fo:page-sequence, wherever it is, whose start tag or content holds the position.
    int pageSequenceAround(int position) const;

    /// The page-sequence-masters in the root's layout-master-set.
    std::vector<int> complexMasters() const;

    /// From the "<!--" of each comment through the "-->", of which it is the first unit.
    const std::vector<Range>& comments() const { return comments_; }
    void findComments();
    bool isInComment(int position) const;

private:
    XmlText text_;
    std::vector<int> sequences_;
    std::vector<StaticContent> staticContents_;
    std::vector<Range> comments_;
};
