#include "editing/clipboard/SelectedText.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "editing/clipboard/SelectedContent.h"
#include "foundation/Format.h"
#include "text/Vocabulary.h"

#include <string>
#include <utility>
#include <vector>

using Core::String;
using XmlScan::Text;

namespace {

/// What stands side by side or below each other: lines of text, of which cells are put into rows.
class PlainTextWriter : public ContentVisitor {
public:
    explicit PlainTextWriter(const Document& document) : text_(document.text()) {}

    void open(int element) override {
        const Text name = text_.tagName(element);
        const Part part = partOf(element);
        if (part != Part::None || endsLines(name))
            endLine(name == L"fo:block" && text_.selfClosingAt(element));
        parts_.push_back(part);
        if (part != Part::None)
            frames_.emplace_back();
        if (part == Part::Cell)
            frames_.back().columns = columnsOf(element);
        if (name == L"qf:tab")
            put(L'\t');
    }

    void close(Text name) override {
        const Part part = parts_.back();
        parts_.pop_back();
        if (part != Part::None || endsLines(name))
            endLine(false);
        if (part == Part::Row)
            endRow();
        else if (part == Part::Cell)
            endCell();
        else if (part == Part::Label)
            endLabel();
    }

    void text(const Run& run) override {
        for (const wchar_t unit : run.plain.view())
            if (unit == L'\n' && run.keepsLineFeeds)
                endLine(true);
            else if (!String::isSpace(unit) || run.keepsBlanks)
                put(unit);
            else
                frame().blankDue = !frame().line.empty();
    }

    String result() {
        endLine(false);
        return String(joined(frame().lines, L'\n'));
    }

private:
    struct Frame {
        std::vector<std::wstring> lines;
        std::wstring line;
        std::wstring label; ///< of the next line
        bool hasLine = false;
        bool blankDue = false;
        int columns = 1; ///< of a cell
    };

    /// What becomes a part of a line. A row that is written for each node holds cells, too.
    enum class Part { None, Row, Cell, Label };

    Part partOf(int element) const {
        const Text name = text_.tagName(element);
        if (name == L"fo:table-cell")
            return Part::Cell;
        if (name == L"fo:list-item-label")
            return Part::Label;
        const bool isRow = name == L"fo:table-row" ||
                           (name == L"qfd:table-row-repeat" &&
                            text_.tagName(text_.firstChild(element)) == L"fo:table-cell");
        return isRow ? Part::Row : Part::None;
    }

    static bool endsLines(Text name) {
        return XmlScan::contains(Vocabulary::blockLevel, name) ||
               XmlScan::contains(Vocabulary::blockContainers, name);
    }

    int columnsOf(int element) const {
        for (int at = text_.nextAttribute(element); at >= 0; at = text_.nextAttribute(at))
            if (text_.attributeName(at) == L"number-columns-spanned") {
                int columns = 1;
                const String value(text_.attributeValue(at));
                return Core::Format::parseInt(value, columns) && columns > 1 && columns < 1000
                           ? columns
                           : 1;
            }
        return 1;
    }

    void put(wchar_t unit) {
        Frame& to = frame();
        if (std::exchange(to.blankDue, false))
            to.line += L' ';
        to.line += unit;
        to.hasLine = true;
    }

    /// An empty line shows only where something says that it is one: a placeholder or a break.
    void endLine(bool isBreak) {
        Frame& of = frame();
        of.blankDue = false;
        if (!of.hasLine && !isBreak)
            return;
        if (of.line == L"\x00A0")
            of.line.clear();
        of.lines.push_back(std::exchange(of.label, std::wstring()) + of.line);
        of.line.clear();
        of.hasLine = false;
    }

    Frame take() {
        Frame taken = std::move(frames_.back());
        frames_.pop_back();
        return taken;
    }

    /// A cell is one line, and empty ones stand behind it for the columns that it spans.
    void endCell() {
        const Frame cell = take();
        std::wstring line = joined(cell.lines, L' ');
        for (wchar_t& unit : line)
            if (unit == L'\t')
                unit = L' ';
        frame().lines.push_back(std::move(line));
        frame().lines.resize(frame().lines.size() + static_cast<std::size_t>(cell.columns) - 1);
    }

    void endRow() {
        const Frame row = take();
        frame().lines.push_back(joined(row.lines, L'\t'));
    }

    void endLabel() {
        const Frame label = take();
        frame().label = joined(label.lines, L' ') + L' ';
    }

    static std::wstring joined(const std::vector<std::wstring>& lines, wchar_t separator) {
        std::wstring all;
        for (const std::wstring& line : lines) {
            if (&line != &lines.front())
                all += separator;
            all += line;
        }
        return all;
    }

    Frame& frame() { return frames_.back(); }

    const XmlText& text_;
    std::vector<Frame> frames_{Frame()};
    std::vector<Part> parts_; // that the elements are which are open
};

} // namespace

String SelectedText::read(const Document& document) {
    PlainTextWriter writer(document);
    SelectedContent::visit(document, writer);
    return writer.result();
}

String EditableDocumentBuffer::getSelectionAsText() const {
    return SelectedText::read(*document_);
}
