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
        const auto isTaken = [&](const Drawn& piece) { return take(piece); };
        for (bool goesOn = true; goesOn;) {
            const std::vector<Drawn> pieces = document_.getDrawn(made_.end, 4);
            goesOn = !pieces.empty() && std::all_of(pieces.begin(), pieces.end(), isTaken);
        }
        for (auto at = cells_.cbegin(); at != cells_.cend(); at = endOfLine(at))
            made_.lines.emplace_back(at, endOfLine(at));
        return made_;
    }

private:
    /// Answers false for what begins the next paragraph. Closing tags stay with what they close,
    /// but behind a table the caret has a line of its own.
    bool take(const Drawn& piece) {
        const bool isEnd = piece.kind == DrawnKind::End;
        const bool isTag =
            isEnd || piece.kind == DrawnKind::Start || piece.kind == DrawnKind::Empty;
        const bool isBlock = isTag && !document_.isInlineEditableElementName(piece.text);
        const bool isStart = isBlock && piece.kind == DrawnKind::Start;
        made_.end = piece.start;
        if (isEnded_ ? !isEnd || piece.text == L"fo:table" : isStart && hasText())
            return false;
        made_.end = piece.end;
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
        const bool isObject = piece.kind == DrawnKind::Object;
        const Core::String text = isObject ? L"[" + piece.text + L"]" : piece.text;
        const unsigned style = styleAt(piece.start);
        if (text.empty())
            push(0, piece.start);
        for (int i = 0; i < text.length(); ++i)
            push(text[i], piece.start + (piece.kind == DrawnKind::Text ? i : 0), style);
    }

    unsigned styleAt(int offset) const {
        const auto has = [&](const wchar_t* name, const wchar_t* value) {
            return document_.getComputedProperty(name, offset) == value;
        };
        return (has(L"font-weight", L"bold") ? A_BOLD : 0) |
               (has(L"font-style", L"italic") ? A_ITALIC : 0) |
               (has(L"text-decoration", L"underline") ? A_UNDERLINE : 0);
    }

    void push(wchar_t unit, int offset, unsigned style = 0) {
        if (cells_.empty())
            made_.margin = marginAt(offset);
        if (cells_.empty() || unit < 0xDC00 || unit > 0xDFFF)
            return cells_.push_back({unit == L'\t' ? L' ' : unit, offset - made_.start, style});
        wchar_t& first = cells_.back().shown; // of two halves of a character
        first = static_cast<wchar_t>(0x10000 + ((first & 0x3FF) << 10) + (unit & 0x3FF));
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
