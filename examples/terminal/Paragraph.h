#pragma once

#include <forme/document/EditableDocumentBuffer.h>
#include <forme/view/Drawn.h>
#include <forme/view/ElementPlace.h>

#include <algorithm>
#include <curses.h>
#include <cwchar>
#include <string>
#include <utility>
#include <vector>

struct Cell {
    std::wstring shown; ///< a character; nothing where only the caret can stand, as at a line's end
    int offset = -1;    ///< where it stands in the document; -1 for what the layout puts there
    unsigned style = 0; ///< attributes of curses

    int width() const { return shown.empty() ? 0 : std::max(0, wcwidth(shown[0])); }
    bool operator==(const Cell&) const = default;
};
using Line = std::vector<Cell>;

/// What is laid out at once: a stretch of the document and the lines that show it.
struct Paragraph {
    int start = 0;
    int end = 0; ///< where the next one starts
    std::vector<Line> lines;

    void move(int by) {
        start += by;
        end += by;
        for (Line& line : lines)
            for (Cell& cell : line)
                cell.offset += cell.offset < 0 ? 0 : by;
    }
    bool operator==(const Paragraph&) const = default;
};

/// Lays out the paragraph that starts at an offset; what comes before makes no difference.
class Typesetter {
public:
    Typesetter(const EditableDocumentBuffer& document, int width)
        : document_(document), width_(width) {}

    Paragraph run(int start) {
        int end = start;
        for (bool isDone = false; !isDone;) {
            const std::vector<Drawn> pieces = document_.getDrawn(end, 16);
            const auto next = std::find_if_not(pieces.begin(), pieces.end(),
                                               [&](const Drawn& piece) { return take(piece); });
            isDone = pieces.empty() || next != pieces.end();
            end = next != pieces.end() ? next->start : isDone ? end : pieces.back().end;
        }
        return {start, end, wrapped()};
    }

private:
    /// Answers false for what begins the next paragraph. Closing tags stay with what they close,
    /// but that of a table is a rule of its own.
    bool take(const Drawn& piece) {
        const bool isStart = piece.kind == DrawnKind::Start;
        const bool isEnd = piece.kind == DrawnKind::End;
        const bool isTag = isStart || isEnd || piece.kind == DrawnKind::Empty;
        const bool isBlock = isTag && !document_.isInlineEditableElementName(piece.text);
        if (isEnded_ ? !isEnd || piece.text == L"fo:table" : isStart && isBlock && hasText())
            return false;
        isStyleKnown_ = isStyleKnown_ && !isTag;
        if (isBlock)
            takeBlock(piece, isStart);
        else if (!isTag)
            takeText(piece);
        return true;
    }

    void takeBlock(const Drawn& tag, bool isStart) {
        if (tag.text == L"fo:table") // the caret stands before and behind it, on its rules
            for (int i = 0; i < width_; ++i)
                push({L"─", i > 0 ? -1 : isStart ? tag.start : tag.end});
        else if (tag.isStop && !isStart)
            push({L"", tag.start});
        if (tag.text == L"fo:list-item-label") {
            isInLabel_ = isStart;
            while (!isStart && (cells_.size() % indent != 0 || cells_.size() <= textFrom_))
                push({L" "});
            textFrom_ = cells_.size(); // what stands in the item goes on beside its label
        }
        isEnded_ = hasText();
    }

    void takeText(const Drawn& piece) {
        if (!std::exchange(isStyleKnown_, true))
            style_ = styleAt(piece.start);
        Core::String text = piece.text;
        if (piece.kind == DrawnKind::Object)
            text = L"[" + text.substringAfter(L":") + L"]";
        if (piece.kind == DrawnKind::Placeholder || piece.kind == DrawnKind::Hidden)
            push({L"", piece.start});
        else
            for (int i = 0; i < text.length(); ++i)
                put(text[i], piece.start + (piece.kind == DrawnKind::Text ? i : 0));
    }

    void put(wchar_t unit, int offset) {
        if (!hasText() || unit < 0xDC00 || unit >= 0xE000)
            return push({{unit}, offset, style_});
        wchar_t& first = cells_.back().shown[0]; // of two halves of a character
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

    void push(const Cell& cell) {
        if (cells_.empty()) {
            cells_ = indentAt(cell.offset);
            textFrom_ = cells_.size();
        }
        cells_.push_back(cell);
    }

    /// Blanks for each item around, and a rule for each cell of a table.
    Line indentAt(int offset) const {
        Line cells;
        for (const Core::String& name : document_.getElementAt(offset).path.split(L'/'))
            if (name == L"fo:table-cell" || name == L"fo:list-item-body") {
                cells.push_back({name == L"fo:table-cell" ? L"│" : L" "});
                cells.resize(cells.size() + indent - 1, {L" "});
            }
        return cells;
    }

    /// Breaks behind the last blank that fits or, where there is none, in the word.
    std::vector<Line> wrapped() const {
        std::vector<Line> lines;
        for (auto at = cells_.begin(); at != cells_.end();) {
            Line line(lines.empty() ? 0 : textFrom_, Cell{L" "});
            int used = static_cast<int>(line.size());
            auto blank = cells_.end();
            auto end = at;
            do {
                used += end->width();
                if (end->shown == L" " && end->offset >= 0)
                    blank = end;
            } while (end++->shown != L"\n" && end != cells_.end() && used + end->width() <= width_);
            if (end != cells_.end() && end[-1].shown != L"\n" && blank != cells_.end())
                end = blank + 1;
            line.insert(line.end(), at, end);
            lines.push_back(std::move(line));
            at = end;
        }
        return lines;
    }

    bool hasText() const { return !isInLabel_ && cells_.size() > textFrom_; }

    static constexpr std::size_t indent = 4;
    const EditableDocumentBuffer& document_;
    const int width_;
    Line cells_;
    std::size_t textFrom_ = 0; // behind indents and labels
    unsigned style_ = 0;
    bool isStyleKnown_ = false;
    bool isInLabel_ = false;
    bool isEnded_ = false;
};
