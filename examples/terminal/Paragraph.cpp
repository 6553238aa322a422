#include "Layout.h"

#include <forme/view/Drawn.h>
#include <forme/view/ElementPlace.h>

#include <algorithm>
#include <cwchar>

namespace {

/// Breaks behind the last blank that fits or, where there is none, in the word.
std::vector<Line> wrapped(const Line& cells, int width, const Line& hang) {
    std::vector<Line> lines;
    for (auto at = cells.begin(); at != cells.end();) {
        Line& line = lines.emplace_back(lines.empty() ? Line() : hang);
        auto blank = cells.end();
        auto end = at;
        int used = static_cast<int>(line.size());
        do {
            used += end->width();
            if (end->shown == L" " && end->offset >= 0)
                blank = end;
        } while (end++->shown != L"\n" && end != cells.end() && used + end->width() <= width);
        if (end != cells.end() && end[-1].shown != L"\n" && blank != cells.end())
            end = blank + 1;
        line.insert(line.end(), at, end);
        at = end;
    }
    return lines;
}

class Typesetter {
public:
    Typesetter(const EditableDocumentBuffer& document, int width)
        : document_(document), width_(width) {}

    Paragraph run(int start) {
        int at = start;
        std::vector<Drawn> pieces;
        do {
            pieces = document_.getDrawn(at, 16);
            for (const Drawn& piece : pieces) {
                if (beginsNext(piece))
                    return {start, piece.start, wrapped(cells_, width_, indentAt(lastText_))};
                take(piece);
                at = piece.end;
            }
        } while (!pieces.empty());
        return {start, at, wrapped(cells_, width_, indentAt(lastText_))};
    }

private:
    /// Closing tags stay with what they close, but a table's is a rule of its own.
    bool beginsNext(const Drawn& piece) {
        if (isEnded_)
            return piece.kind != DrawnKind::End || piece.text == L"fo:table";
        const bool begins = piece.kind == DrawnKind::Start && hasText() && isBlock(piece);
        if (begins && piece.isStop)
            push({L"", piece.start});
        return begins;
    }

    void take(const Drawn& piece) {
        if (piece.kind == DrawnKind::Text)
            for (int i = 0; i < piece.text.length(); ++i)
                put(piece.text[i], piece.start + i);
        else if (piece.kind == DrawnKind::Character)
            putAll(piece.text, piece.start);
        else if (piece.kind == DrawnKind::Object)
            putAll(L"[" + piece.text.substringAfter(L":") + L"]", piece.start);
        else if (piece.kind == DrawnKind::Placeholder || piece.kind == DrawnKind::Hidden)
            push({L"", piece.start});
        else if (isBlock(piece))
            takeBlock(piece, piece.kind == DrawnKind::Start);
        else
            isStyleKnown_ = false;
    }

    void takeBlock(const Drawn& tag, bool isStart) {
        isStyleKnown_ = false;
        if (tag.text == L"fo:table") // the caret stands before and behind it, on its rules
            for (int i = 0; i < width_; ++i)
                push({L"─", i > 0 ? -1 : isStart ? tag.start : tag.end});
        else if (tag.isStop && !isStart)
            push({L"", tag.start});
        if (tag.text == L"fo:list-item-label")
            takeLabel(isStart);
        isEnded_ = hasText();
    }

    /// What stands in the item goes on beside its label.
    void takeLabel(bool isStart) {
        isInLabel_ = isStart;
        if (!isStart)
            do
                push({L" "});
            while (cells_.size() % indent != 0);
        textFrom_ = cells_.size();
    }

    void putAll(const Core::String& text, int offset) {
        for (int i = 0; i < text.length(); ++i)
            put(text[i], offset);
    }

    /// The second half of a character joins the first, and an accent its letter.
    void put(wchar_t unit, int offset) {
        lastText_ = offset;
        if (!std::exchange(isStyleKnown_, true))
            style_ = styleAt(offset);
        std::wstring* const last = hasText() ? &cells_.back().shown : nullptr;
        if (last && unit >= 0xDC00 && unit < 0xE000)
            *last = wchar_t(0x10000 + ((last->front() & 0x3FF) << 10) + (unit & 0x3FF));
        else if (last && wcwidth(unit) == 0)
            *last += unit;
        else
            push({{unit}, offset, style_});
    }

    unsigned styleAt(int offset) const {
        const auto has = [&](const wchar_t* name, const wchar_t* value) {
            return document_.getComputedProperty(name, offset) == value;
        };
        return (has(L"font-weight", L"bold") ? Bold : 0U) |
               (has(L"font-style", L"italic") ? Italic : 0U) |
               (has(L"text-decoration", L"underline") ? Underline : 0U);
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

    bool hasText() const { return !isInLabel_ && cells_.size() > textFrom_; }
    bool isBlock(const Drawn& tag) const {
        return !document_.isInlineEditableElementName(tag.text) && tag.text != L"fo:footnote" &&
               !tag.text.startsWith(L"qfd:conditional-inline");
    }

    static constexpr std::size_t indent = 4;

    const EditableDocumentBuffer& document_;
    const int width_;
    Line cells_;
    std::size_t textFrom_ = 0; // behind labels and indents
    int lastText_ = -1;
    unsigned style_ = 0;
    bool isStyleKnown_ = false;
    bool isInLabel_ = false;
    bool isEnded_ = false;
};

} // namespace

int Cell::width() const {
    return shown.empty() ? 0 : std::max(1, wcwidth(shown[0]));
}

Paragraph layOut(const EditableDocumentBuffer& document, int start, int width) {
    return Typesetter(document, width).run(start);
}
