#pragma once

#include <forme/document/EditableDocumentBuffer.h>
#include <forme/view/Drawn.h>
#include <forme/view/ElementPlace.h>

#include <algorithm>
#include <curses.h>
#include <cwchar>
#include <string>
#include <vector>

struct Cell {
    wchar_t shown = 0;  ///< 0 where only the caret can stand, as at a line's end
    int offset = 0;     ///< where it stands, from the start of its paragraph on
    unsigned style = 0; ///< attributes of curses

    int width() const { return std::max(0, wcwidth(shown)); }
    bool operator==(const Cell&) const = default;
};
using Line = std::vector<Cell>;

/// What is laid out at once: a stretch of the document and the lines that show it.
struct Paragraph {
    int start = 0;
    int end = 0;           ///< where the next one starts
    int depth = 0;         ///< how many elements are around its start
    std::wstring margin{}; ///< what comes before each line
    std::vector<Line> lines{};

    bool operator==(const Paragraph&) const = default;
};

/// Lays out the paragraph that starts at an offset; what comes before makes no difference.
class Typesetter {
public:
    Typesetter(const EditableDocumentBuffer& document, int width, int start)
        : document_(document), width_(width), made_{start, start} {}

    Paragraph run() {
        while (takeSome())
            ;
        for (auto at = cells_.cbegin(); at != cells_.cend();) {
            const auto end = endOfLine(at);
            made_.lines.emplace_back(at, end);
            at = end;
        }
        return made_;
    }

private:
    /// Answers false when all is taken.
    bool takeSome() {
        const std::vector<Drawn> pieces = document_.getDrawn(made_.end, 4);
        for (const Drawn& piece : pieces) {
            made_.end = piece.start;
            if (!take(piece))
                return false;
            made_.end = piece.end;
        }
        return !pieces.empty();
    }

    /// Answers false for what begins the next paragraph. Closing tags stay with what they close,
    /// but behind a table the caret has a line of its own.
    bool take(const Drawn& piece) {
        const bool isEnd = piece.kind == DrawnKind::End;
        const bool isTag =
            isEnd || piece.kind == DrawnKind::Start || piece.kind == DrawnKind::Empty;
        const bool isBlock = isTag && !document_.isInlineEditableElementName(piece.text);
        const bool isStart = isBlock && piece.kind == DrawnKind::Start;
        if (isEnded_ ? !isEnd || piece.text == L"fo:table" : isStart && hasText())
            return false;
        if (isBlock)
            takeBlock(piece, isStart);
        else if (!isTag)
            takeText(piece);
        return true;
    }

    void takeBlock(const Drawn& tag, bool isStart) {
        if (tag.text == L"fo:table")
            push(0, isStart ? tag.start : tag.end);
        else if (tag.isStop && !isStart)
            push(0, tag.start);
        isEnded_ = hasText();
        if (tag.text == L"fo:list-item-label" && !isStart) {
            push(L' ', tag.start);
            labelSize_ = cells_.size();
            isEnded_ = false;
        }
    }

    void takeText(const Drawn& piece) {
        const unsigned style = styleAt(piece.start);
        Core::String text = piece.text;
        if (piece.kind == DrawnKind::Object)
            text = L"[" + text.substringAfter(L":") + L"]";
        if (piece.kind == DrawnKind::Hidden)
            push(0, piece.start);
        else
            for (int i = 0; i < text.length(); ++i)
                put(text[i], piece.start + (piece.kind == DrawnKind::Text ? i : 0), style);
    }

    void put(wchar_t unit, int offset, unsigned style) {
        if (cells_.empty() || unit < 0xDC00 || unit > 0xDFFF)
            return push(unit == L'\t' ? L' ' : unit, offset, style);
        wchar_t& first = cells_.back().shown; // of two halves of a character
        first = static_cast<wchar_t>(0x10000 + ((first & 0x3FF) << 10) + (unit & 0x3FF));
    }

    unsigned styleAt(int offset) const {
        const auto has = [&](const wchar_t* name, const wchar_t* value) {
            return document_.getComputedProperty(name, offset) == value;
        };
        return (has(L"font-weight", L"bold") ? A_BOLD : 0) |
               (has(L"font-style", L"italic") ? A_ITALIC : 0) |
               (has(L"text-decoration", L"underline") ? A_UNDERLINE : 0);
    }

    void push(wchar_t shown, int offset, unsigned style = 0) {
        if (cells_.empty())
            made_.margin = marginAt(offset);
        cells_.push_back({shown, offset - made_.start, style});
    }

    std::wstring marginAt(int offset) const {
        std::wstring margin;
        for (const Core::String& name : document_.getElementAt(offset).path.split(L'/'))
            if (name == L"fo:table-cell" || name == L"fo:list-item-body")
                margin += name == L"fo:table-cell" ? L"│ " : L"  ";
        return margin;
    }

    /// Behind the last blank that fits or, where there is none, in the word.
    Line::const_iterator endOfLine(Line::const_iterator start) const {
        auto end = start, blank = start;
        for (int room = width_ - static_cast<int>(made_.margin.size());
             end != cells_.end() && (end == start || end->width() <= room); ++end) {
            room -= end->width();
            if (end->shown == L'\n')
                return end + 1;
            if (end->shown == L' ')
                blank = end + 1;
        }
        return end == cells_.end() || blank == start ? end : blank;
    }

    /// What stands in an item goes on beside its label.
    bool hasText() const { return cells_.size() > labelSize_; }

    const EditableDocumentBuffer& document_;
    const int width_;
    Paragraph made_;
    Line cells_;
    std::size_t labelSize_ = 0;
    bool isEnded_ = false;
};
