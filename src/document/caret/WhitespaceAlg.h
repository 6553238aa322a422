#pragma once

#include "text/SpaceProperties.h"

#include <optional>
#include <vector>

class Document;
class XmlText;

namespace BufferAlgorithms {

/// Which offsets the caret passes over because nothing shows there: white space that collapses when
/// the page is laid out, and tags that stand back to back. The answers depend on the white-space
/// properties in force, which load() gathers for one element.
///
/// It serves one walk over a text that does not change meanwhile.
class WhitespaceAlg {
public:
    explicit WhitespaceAlg(const Document& document) : document_(document) {}

    /// Takes the properties in force at the element: of each, the value nearest to it. Does nothing
    /// unless `element` is on `<`.
    void load(int element);
    /// The same for a caller that has entered further elements within it, the outermost first. That
    /// element may be none.
    void load(int element, const std::vector<int>& entered);

    /// Whether the caret passes over the offset. False outside the text.
    bool isSkipped(int position) const;
    /// The same for a caller that knows the element current there.
    bool isSkipped(int position, int element) const;

    /// Whether a line feed begins a line.
    bool keepsLinefeeds() const { return linefeed_ == PreserveLinefeed; }

private:
    enum Treatment {
        IgnoreSpaces = 0,
        PreserveSpaces = 1,
        IgnoreBeforeLinefeed = 2,
        IgnoreAfterLinefeed = 3,
        IgnoreAroundLinefeed = 4
    };
    enum Linefeed {
        IgnoreLinefeed = 0,
        PreserveLinefeed = 1,
        LinefeedAsSpace = 2,
        LinefeedAsZeroWidthSpace = 3
    };
    using Values = SpaceProperties::Values;
    /// An element around, and the values nearest to what it holds.
    struct Level {
        int element;
        Values values;
    };
    struct Space;
    /// A run of white space. A walk asks of each of its units.
    struct Run {
        int start = 0;       ///< the first unit
        int end = 0;         ///< the first unit behind it
        int previousTag = 0; ///< the last tag in front of it
    };
    /// How far a block was searched for data, and where that begins; -1 while none was met.
    struct Search {
        int element = -1; ///< asked about
        int block = -1;   ///< around it
        int position = -1;
        int data = -1;
    };

    const Values& nearestValues(int element, const std::vector<int>& entered);
    Values valuesIn(int element, const Values& around) const;
    void reset();
    void applyShorthand(TextView value);
    void applyTreatment(TextView value);
    void applyCollapse(TextView value);
    void applyLinefeedTreatment(TextView value);

    const Run& runAround(int position) const;
    bool isSpaceSkipped(int position, int element) const;
    std::optional<bool> skippedAsLinefeed(const Space& space) const;
    std::optional<bool> skippedInLeadingRun(const Space& space) const;
    std::optional<bool> skippedInTrailingRun(const Space& space) const;
    bool skippedInInnerRun(const Space& space) const;
    bool collapses() const { return treatment_ == IgnoreSpaces || collapse_; }

    bool isTagSkipped(int position, int element) const;
    std::optional<bool> skippedBehindSpace(int position, int element) const;
    bool runMayHideTag(int previousTag, int position) const;
    bool standsBackToBack(int position) const;

    void searchBlockAround(int element) const;
    bool blockShowsDataBefore(int position, int element) const;
    bool showsAt(int position) const;
    bool isInlineTag(int position) const;

    const XmlText& text() const;
    bool isEditable(TextView name) const;
    bool isInline(TextView name) const;

    const Document& document_;
    Treatment treatment_ = IgnoreAroundLinefeed;
    bool collapse_ = true;
    Linefeed linefeed_ = LinefeedAsSpace;
    std::vector<Level> levels_; // the one given, and those entered
    mutable Run run_;
    mutable Search search_;
};

} // namespace BufferAlgorithms
