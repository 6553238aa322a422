#pragma once

#include "text/store/Measure.h"
#include "text/store/TextChunk.h"

#include <memory>
#include <string_view>
#include <vector>

/// A text as a balanced tree of chunks, of which each node knows the measures of its parts. Copies
/// share their nodes, and a node that is shared is never changed, so that a copy costs the same for
/// every text. A change costs as much as what it puts in and the way down to it.
class TextTree {
public:
    TextTree() = default;
    explicit TextTree(std::wstring_view text);

    const Measure& measure() const { return root_.measure; }
    /// Whether the text is read the same from both its ends, up to its end.
    bool isRegular() const { return root_.measure.faults.ends == 0 && root_.measure.endsInText; }
    /// Whether it is read so, too, by who takes each markup for a tag.
    bool isRegularAsTags() const { return isRegular() && root_.measure.faults.tags == 0; }

    struct Place {
        const TextChunk* chunk; ///< null in an empty text
        int start;              ///< of the chunk
    };
    /// The chunk that holds a position; the last one at the length of the text.
    Place chunkAt(int position) const;

    /// The first mark of one of the kinds at or behind a position, and the last one before it; -1
    /// if none.
    int markFrom(int position, MarkKinds kinds) const;
    int markBefore(int position, MarkKinds kinds) const;
    /// The ">" of the innermost start tag that ends before a position and is not closed there; -1
    /// if none.
    int openTagEndBefore(int position) const;

    /// Puts other units in the place of `count` from `start` on. A change that raises has not
    /// happened.
    void replace(int start, int count, std::wstring_view with);

    /// What is wrong with the tree, in words; empty for a sound one.
    std::string_view fault() const;

    struct Node;
    /// A subtree and what is known of it.
    struct Part {
        Measure measure;
        std::shared_ptr<Node> node;
    };

private:
    bool replaceInChunk(int start, int count, std::wstring_view with);

    Part root_;
};
