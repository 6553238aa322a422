#pragma once

#include "foundation/String.h"
#include "trees/DocumentSeam.h"

#include <functional>
#include <optional>

namespace Xml {
class XmlDocument;
}

/// A part of a document that is edited as a tree though it is not one whole element: where it
/// stands, what it held when it was cut out, and its way back.
class CutPart {
public:
    /// What stands in front of a part and behind it where it is one element; empty where the part
    /// has the tag itself.
    struct Tags {
        Core::String opening;
        Core::String closing;
    };

    /// The part from `start` through `end`; one that is still to come has an `end` one less than
    /// its `start`. `written` is what the tree gives for it when it has just been read.
    CutPart(Document& document, Tags tags, int start, int end, const Core::String& written);

    int start() const { return start_; }
    int end() const { return end_; }

    /// Takes what stands in another place for what was cut out.
    void moveTo(int start, int end);
    /// Throws Core::Exception where the text is no longer the one that was cut out.
    void requireUnchanged() const;

    /// Where the caret goes, asked when the part's new text stands and begins at `start`. Without
    /// an answer it stays beside what it stood beside.
    using CaretRule = std::function<std::optional<CaretPlace>(int start)>;

    /// Puts what the tree gives now in its place, as one undo step: what nobody touched as it was
    /// spelt, with the prefixes that it needs declared on the root. This then stands for that. What
    /// says the same as when it was read leaves the text alone; the caret goes where it is told
    /// even so. Answers whether the text has changed. Throws as above.
    bool replace(const Core::String& written, const CaretRule& rule = {});

    // Trees as text

    /// From the root's start tag on, its closing tag left out.
    static Core::String upToClosing(const Xml::XmlDocument& tree);
    /// What stands between the tags of the root.
    static Core::String content(const Xml::XmlDocument& tree);

private:
    void placeOnly(DocumentSeam& seam, const CommitCaret& caret);
    Core::String spelt(const Core::String& written) const;

    Document* document_;
    Tags tags_;
    int start_;
    int end_;
    Core::String source_; // what stands in the text
    Core::String asRead_; // what the tree gave for that
};
