#pragma once

#include "foundation/String.h"

#include <vector>

class Document;

/// Many replacements in a document as one change of its text. Caret and pivot move along as if each
/// had been carried out by itself; but the text behind them, which may be long, moves only once.
/// Until apply() the text stands as it was.
class TextRewrite {
public:
    /// What is recorded: each replacement as if it had been carried out by itself, or all from the
    /// first through the last as one, so that many of them do not fill the history.
    enum class Records { OfEach, OfTheWhole };

    explicit TextRewrite(Document& document, Records records = Records::OfEach)
        : document_(document), records_(records) {}

    /// Replaces `start` up to but excluding `end` by `xml`. The offsets are those of the text as it
    /// stands; each replacement stands behind the one before.
    void replace(int start, int end, const Core::String& xml);
    /// Removes `start` up to but excluding `end`, likewise.
    void remove(int start, int end);
    /// Records where the caret would be by now.
    void recordCaret();
    /// Caret and pivot, where they lie inside that range, go to its end.
    void keepCaretOutside(int start, int end);

    /// Changes the text and is ready for more; answers by how much the text behind moved.
    int apply();

private:
    struct Replacement {
        int start;
        int end;
        Core::String xml;
    };

    void begin();

    Document& document_;
    Records records_;
    std::vector<Replacement> replacements_;
    int change_ = 0; // of the text's length
    bool begun_ = false;
    int caret_ = -1;
    int pivot_ = -1;
};
