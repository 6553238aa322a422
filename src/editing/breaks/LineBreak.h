#pragma once

class Document;

/// Enter at the caret, with what tables and forms ask for: at their very edges the line is made
/// outside of them, since there is no other way to get one there.
class LineBreak {
public:
    explicit LineBreak(Document& document);

    /// Breaks; answers where the new block begins, -1 if nothing was split.
    int run();

private:
    bool breakBeforeContainer();
    void enterLineBefore();
    bool breakBehindContainer();
    bool hasLeftContainerFrom(int place) const;
    bool isInFormBeside() const;
    int blockAroundForm() const;
    int blockAround(int position) const;

    void breakInPlace();
    void breakAtCaret();

    int caret() const;
    int elementAt(int position) const;

    Document& document_;
    int table_;     // around the caret
    int form_;      // around the caret
    int container_; // the inner of the two
    int newBlock_ = -1;
};
