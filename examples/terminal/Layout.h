#pragma once

#include <forme/document/EditableDocumentBuffer.h>

enum Style : unsigned { Bold = 1, Italic = 2, Underline = 4 };

/// A character with its accents.
struct Cell {
    std::wstring shown; ///< empty where only the caret can stand, as at the end of a line
    int offset = -1;    ///< where it stands in the document; -1 for what indents a line
    unsigned style = 0;

    int width() const; ///< in columns of the screen
    bool operator==(const Cell&) const = default;
};
using Line = std::vector<Cell>;

/// What is laid out at once: a stretch of the document and the lines that show it.
struct Paragraph {
    int start = 0;
    int end = 0; ///< where the next one starts
    std::vector<Line> lines;

    bool operator==(const Paragraph&) const = default;
};
/// Lays out the paragraph that starts there; what comes before makes no difference.
Paragraph layOut(const EditableDocumentBuffer& document, int start, int width);

/// The paragraphs around the caret. A change has those laid out anew that it has touched, and the
/// others only move.
class Layout {
public:
    explicit Layout(const EditableDocumentBuffer& document) : document_(document) {}

    /// Takes up what has changed, and has so many rows above and below the caret, if there are.
    void update(int margin, int width);

    const std::vector<Paragraph>& paragraphs() const { return paragraphs_; }
    int laidOut() const { return laidOut_; } ///< how many paragraphs, up to now
    const std::vector<const Line*>& rows() const { return rows_; }
    /// The row that shows an offset, or else the first one behind it.
    int rowOf(int offset) const;

private:
    void replaceTouched(const TextChange& change);
    void lay(std::size_t index, int from, int within = -1);
    int startBefore(int offset) const;

    const EditableDocumentBuffer& document_;
    int width_ = 0;
    std::uint64_t version_ = 0;
    std::vector<Paragraph> paragraphs_; // each starts where the one before ends
    std::vector<const Line*> rows_;
    int laidOut_ = 0;
};
