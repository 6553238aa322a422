#pragma once

#include "editing/clipboard/PastedMarkup.h"
#include "foundation/String.h"

#include <vector>

class Document;

/// Blocks that are pasted at the caret, where nothing is selected. The first paragraph joins what
/// stands before the caret in its block, the last one what stands behind; what stands by itself
/// goes between the halves. A half with nothing to see is not made: the pasted paragraph on that
/// side then stands by itself.
class BlockPaste {
public:
    BlockPaste(Document& document, const std::vector<PastedMarkup::Piece>& pieces);

    /// Whether a block can be where the caret is.
    bool fits() const;
    /// Pastes, and records it; the caret then stands behind what was pasted. False where a prefix
    /// means nothing: what was done is to be taken back.
    bool run();

private:
    using Piece = PastedMarkup::Piece;

    bool isInBlock() const;
    bool pasteInBlock();
    void leaveInlineEdges();
    bool isEdgeOfInline(int element) const;
    void removeLinePlaceholder();

    bool pasteInFront();
    bool pasteBehind();
    bool split();
    bool pasteInEmptyBlock();
    bool pasteInPlaceOf(int start, int end);

    Core::String standing(bool withFirst, bool withLast) const;
    Core::String secondHalf(const Core::String& content) const;
    Core::String inlineClosings() const;
    bool isBehindBreak() const;
    bool isBeforeBreak() const;
    void insert(int position, const Core::String& xml);
    int stopAtEnd(int end) const;
    bool finish(int start, int end, int caret);

    Document& document_;
    const std::vector<Piece>& pieces_;
    bool firstJoins_;
    bool lastJoins_;
    int place_;  // where the block splits
    int holder_; // the block or, where none is, what else is around the inlines there
};
