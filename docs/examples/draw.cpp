// Draws a screen of a document in cells of one character, and takes a click on it.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>
#include <forme/view/Drawn.h>
#include <forme/view/ElementPlace.h>
#include <forme/view/StopSide.h>

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <vector>

namespace {

class Screen {
public:
    Screen(const EditableDocumentBuffer& document, int from) : document_(document) {
        while (lines_.size() <= height) {
            const std::vector<Drawn> pieces = document_.getDrawn(from, 50);
            if (pieces.empty())
                break;
            for (const Drawn& piece : pieces)
                draw(piece);
            from = pieces.back().end;
        }
        lines_.resize(std::min(lines_.size(), height));
    }

    void print() const {
        for (const Line& line : lines_) {
            Core::String shown;
            for (const Cell& cell : line.cells)
                shown += cell.shown;
            std::cout << Core::Encoder::toDisplayText(shown) << '\n';
        }
    }

    /// Where the caret goes with a click there; beside a line, to its end.
    int stopAt(std::size_t row, std::size_t column) const {
        const Line& line = lines_[row];
        const int offset = column < line.cells.size() ? line.cells[column].offset : line.end;
        return document_.getNearestStop(offset, StopSide::Either);
    }

private:
    static constexpr std::size_t height = 8;
    static constexpr std::size_t width = 64;

    struct Cell {
        wchar_t shown;
        int offset;
    };
    struct Line {
        std::vector<Cell> cells;
        int end = 0; // the offset behind the last of them
    };

    void draw(const Drawn& piece) {
        switch (piece.kind) {
        case DrawnKind::Start:
        case DrawnKind::End:
        case DrawnKind::Empty:
            if (!document_.isInlineEditableElementName(piece.text))
                endLine();
            break;
        case DrawnKind::Text:
            for (int i = 0; i < piece.text.length(); ++i)
                put(piece.text[i], piece.start + i, piece.start + i + 1);
            break;
        case DrawnKind::Character:
        case DrawnKind::Placeholder:
            put(piece.text[0], piece.start, piece.end);
            break;
        case DrawnKind::Object:
            put(L'#', piece.start, piece.end);
            break;
        case DrawnKind::Hidden:
            break;
        }
    }

    void put(wchar_t unit, int start, int end) {
        if (lines_.empty() || lines_.back().cells.size() == width || unit == L'\n' || isLineEnded_)
            lines_.emplace_back();
        isLineEnded_ = false;
        if (unit != L'\n')
            lines_.back().cells.push_back({unit, start});
        lines_.back().end = end;
    }

    void endLine() { isLineEnded_ = true; }

    const EditableDocumentBuffer& document_;
    std::vector<Line> lines_;
    bool isLineEnded_ = false;
};

void setUp(EditableDocumentBuffer& document) {
    document.setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline", L"fo:basic-link"})
        document.addEditableElement(name);
    for (const wchar_t* name : {L"fo:inline", L"fo:basic-link"})
        document.addInlineEditableElement(name);
}

void click(EditableDocumentBuffer& document, const Screen& screen, std::size_t row,
           std::size_t column) {
    document.setCaretPos(false, screen.stopAt(row, column));
    const int caret = document.getCaretPos();
    const ElementPlace place = document.getElementAt(caret);
    std::cout << "row " << row << ", column " << column << ": before \""
              << Core::Encoder::toDisplayText(document.getContent(caret, caret + 9)) << "\" in "
              << Core::Encoder::toDisplayText(place.name) << ", in "
              << Core::Encoder::toDisplayText(document.getComputedProperty(L"font-size", caret))
              << '\n';
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: draw IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUp(*document);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));
    const Screen screen(*document, document->getFirstPageGeneratorPos());
    screen.print();
    click(*document, screen, 1, 3);
    click(*document, screen, 3, 60); // behind the line
    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
