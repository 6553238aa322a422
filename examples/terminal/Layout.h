#pragma once

#include <forme/document/EditableDocumentBuffer.h>
#include <forme/view/Drawn.h>
#include <forme/view/ElementPlace.h>

#include <algorithm>
#include <cstdint>
#include <curses.h>
#include <cwchar>
#include <string>
#include <utility>
#include <vector>

struct Cell {
    wchar_t shown = 0;  ///< 0 where only the caret can stand, as at a line's end
    int offset = 0;     ///< where it stands, from the start of its paragraph on
    unsigned style = 0; ///< attributes of curses
    int width() const { return std::max(0, wcwidth(shown)); }
    bool operator==(const Cell&) const = default;
};

struct Line {
    int paragraph = 0; ///< where that starts
    std::wstring margin{};
    std::vector<Cell> cells{};
    int offsetOf(const Cell& cell) const { return paragraph + cell.offset; }
    int end() const { return offsetOf(cells.back()); } ///< the last place in it
    int columnOf(int offset) const {
        auto column = static_cast<int>(margin.size());
        for (const Cell& cell : cells)
            column += offsetOf(cell) < offset ? cell.width() : 0;
        return column;
    }
    bool operator==(const Line&) const = default;
};

/// Lays out the paragraph that starts at an offset; what comes before makes no difference.
class Typesetter {
public:
    Typesetter(const EditableDocumentBuffer& document, int width, int start)
        : document_(document), width_(width), start_(start) {}

    /// Puts its lines behind others; answers where the next paragraph starts.
    int run(std::vector<Line>& lines) {
        for (auto next = document_.getDrawn(end_, 1); !next.empty() && take(next.front());)
            next = document_.getDrawn(end_, 1);
        for (auto at = cells_.cbegin(); at != cells_.cend(); at = endOfLine(at))
            lines.push_back({start_, margin_, {at, endOfLine(at)}});
        return end_;
    }

private:
    /// A paragraph ends with the tag of a block behind a place for the caret: a label has none and
    /// so stands beside what it labels.
    bool take(const Drawn& piece) {
        const bool isTag = piece.kind <= DrawnKind::Empty;
        const bool isObject = piece.kind == DrawnKind::Object;
        const Core::String text = isObject ? L"[" + piece.text + L"]" : piece.text;
        const unsigned style = isTag ? 0 : styleAt(piece.start);
        if (piece.kind == DrawnKind::Start && piece.text == L"fo:list-item-body")
            push(L' ', piece.start); // behind the label
        if (piece.isStop && (isTag || text.empty()))
            push(0, piece.start);
        for (int i = 0; !isTag && i < text.length(); ++i)
            push(text[i], piece.start + (piece.kind == DrawnKind::Text ? i : 0), style);
        end_ = piece.end;
        hasStop_ = hasStop_ || piece.isStop;
        return !isTag || !hasStop_ || document_.isInlineEditableElementName(piece.text);
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
            margin_ = marginAt(offset);
        if (cells_.empty() || unit < 0xDC00 || unit > 0xDFFF)
            return cells_.push_back({unit == L'\t' ? L' ' : unit, offset - start_, style});
        wchar_t& first = cells_.back().shown; // of two halves of a character
        first = static_cast<wchar_t>(0x10000 + ((first & 0x3FF) << 10) + (unit & 0x3FF));
    }

    std::wstring marginAt(int offset) const {
        std::wstring margin;
        for (const Core::String& name : document_.getElementAt(offset).path.split(L'/'))
            if (name == L"fo:table-cell" || name == L"fo:list-item")
                margin += name == L"fo:table-cell" ? L"│ " : L"  ";
        return margin;
    }

    /// Behind the last blank that fits or, where there is none, in the word.
    std::vector<Cell>::const_iterator endOfLine(std::vector<Cell>::const_iterator start) const {
        auto end = start, blank = start;
        int room = std::max(2, width_ - static_cast<int>(margin_.size()));
        for (; end != cells_.end() && (room -= end->width()) >= 0; ++end) {
            if (end->shown == L'\n')
                return end + 1;
            blank = end->shown == L' ' ? end + 1 : blank;
        }
        return end == cells_.end() || blank == start ? end : blank;
    }

    const EditableDocumentBuffer& document_;
    const int width_, start_;
    int end_ = start_;
    std::wstring margin_;
    std::vector<Cell> cells_;
    bool hasStop_ = false;
};

/// The whole document in lines. What a change has touched is laid out anew; the rest moves.
class Layout {
public:
    explicit Layout(const EditableDocumentBuffer& document) : document_(document) {}

    void update(int width) {
        const auto change = document_.changeSince(std::exchange(seen_, document_.getTextVersion()));
        const bool isResized = std::exchange(width_, width) != width;
        if (!change || isResized)
            lines_.clear();
        if (lines_.empty() || !change->empty())
            takeUp(change.value_or(TextChange{}));
    }

    const std::vector<Line>& lines() const { return lines_; } ///< in the order of the text
    int laidOut() const { return laidOut_; }                  ///< how many paragraphs, up to now

private:
    /// Lays out from one paragraph before the change through one behind it, since whether the caret
    /// stops before a tag depends on what stands beside it.
    void takeUp(const TextChange& change) {
        const auto end = lines_.end();
        const auto lineFrom = [&](auto from, int at) {
            return std::partition_point(from, end, [=](auto& line) { return line.paragraph < at; });
        };
        auto first = lineFrom(lines_.begin(), change.start);
        auto kept = lineFrom(first, change.start + change.removed);
        for (int i = 0; i < 2 && first != lines_.begin(); ++i)
            first = lineFrom(lines_.begin(), (first - 1)->paragraph);
        for (auto line = kept; line != end; ++line)
            line->paragraph += change.inserted - change.removed;
        while (kept != end && looksOtherwise(*kept, change))
            ++kept;
        kept = kept != end ? lineFrom(kept, kept->paragraph + 1) : end;

        std::vector<Line> made;
        int at = first != lines_.begin() ? first->paragraph : 0;
        while (kept != end ? kept->paragraph != at : !document_.getDrawn(at, 1).empty()) {
            at = Typesetter(document_, width_, at).run(made);
            kept = lineFrom(kept, at);
            ++laidOut_;
        }
        lines_.insert(lines_.erase(first, kept), made.begin(), made.end());
    }

    /// Whether a start tag in the change, or one that it is a part of, is of an element around.
    bool looksOtherwise(const Line& line, const TextChange& change) const {
        const std::vector<Drawn> tag = document_.getDrawn(change.start, 1);
        const int from = tag.empty() ? change.start : std::min(tag.front().start, change.start);
        const std::vector<int> around = document_.getElementAt(line.paragraph).around;
        const auto element = std::lower_bound(around.begin(), around.end(), from);
        return element != around.end() && *element < change.start + change.inserted;
    }

    const EditableDocumentBuffer& document_;
    std::vector<Line> lines_;
    std::uint64_t seen_ = 0;
    int width_ = 0, laidOut_ = 0;
};
