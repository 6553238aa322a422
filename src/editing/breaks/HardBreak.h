#pragma once

#include "foundation/String.h"

#include <array>

class Document;

/// A hard break at the caret: what is open around the caret, up to its block, is closed there and
/// opened again behind a line feed. Where no block is around the caret, what stands loose behind it
/// becomes one.
class HardBreak {
public:
    explicit HardBreak(Document& document);

    /// Breaks; the caret stands in the new block afterwards. Answers where that block begins; -1 if
    /// nothing was split, which is so also where loose content was put in a block, but in a form.
    int run();
    /// What splits the block; empty where none was split.
    const Core::String& inserted() const { return inserted_; }

    /// What belongs to one block alone.
    static constexpr std::array<const wchar_t*, 3> ownProperties{L"fo:break-before",
                                                                 L"fo:break-after", L"fo:id"};
    /// The start tag of the block that what is split from another begins: with all properties but
    /// those.
    static Core::String startTagOfSecondHalf(const Document& document, int block);

private:
    void climb();
    Core::String startTag(int element) const;

    void split();
    bool endsBlockAtCaret() const;
    Core::String splittingText() const;
    bool isBeforeSoftBreak() const;
    bool isFirstInBlock() const;
    Core::String indentation() const;

    void repairHalves(int end);
    void fillNewLine();
    void takeInPlaceholderBehind(int element);
    void keepLineBefore();
    int endOfContent(int element) const;
    void keepLineBehind();
    void endDecoration();

    void wrapLooseContent();
    int endOfLooseContent() const;

    int caret() const;
    bool isInline(int element) const;
    Core::String nameOf(int element) const;

    Document& document_;
    int element_;           // around the caret
    int holder_;            // around the inlines around the caret
    Core::String closing_;  // the closing tags of these, and
    Core::String reopened_; // their start tags again
    Core::String inserted_;
};
