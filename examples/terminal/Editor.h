#pragma once

#include "Layout.h"

#include <forme/foundation/xml/DomParser.h>
#include <forme/view/StopSide.h>

/// A document on the screen, and what a key does beyond calling one operation of it.
class Editor {
public:
    explicit Editor(const Core::String& path) : path_(path) {
        Xml::DomParser().parseFile(path); // which tells where a text is not well formed
        document->setRootElement(L"qfd:document");
        document->addEditableElement(L"fo:block");
        for (const wchar_t* name :
             {L"fo:inline", L"fo:wrapper", L"fo:basic-link", L"fo:bidi-override"}) {
            document->addEditableElement(name);
            document->addInlineEditableElement(name);
        }
        document->setContentFromFile(path);
        if (document->getCaretPos() < 0)
            throw Core::Exception(path + L": there is no text to edit in it");
        saved_ = document->getTextVersion();
    }

    const SmartPtr<EditableDocumentBuffer> document{new EditableDocumentBuffer};
    Core::String clipboard;
    std::string message = "Ctrl+S saves, Ctrl+Q quits";
    bool shift = false; ///< whether these are held, where the terminal tells
    bool ctrl = false;
    bool isDone = false;

    void draw() {
        const int height = std::max(1, LINES - 1);
        const int caret = document->getCaretPos();
        layout_.update(COLS - 1);
        rows_ = layout_.rows();
        const int row = this->row();
        first_ = std::clamp(first_, std::max(0, row - height + 1), row);
        erase();
        for (int y = 0; y < height && first_ + y < rowCount(); ++y)
            drawRow(y, rowAt(first_ + y));
        attrset(A_REVERSE);
        mvprintw(height, 0, "%ls%s %d%s %s %ls", path_.c_str(), hasChanged() ? "*" : "", caret,
                 document->canUndo() ? " undo" : "", message.c_str(),
                 document->getElementAt(caret).path.c_str());
        move(row - first_, column());
        refresh();
    }

    void moveInRow(int column) { moveTo(row(), column); }
    /// Passes rows in which the caret has no place.
    void moveRows(int rows) {
        const int step = rows < 0 ? -1 : 1;
        int to = std::clamp(row() + rows, 0, rowCount() - 1);
        for (; to >= 0 && to < rowCount(); to += step)
            if ((stopAt(to, column()) - document->getCaretPos()) * step > 0)
                return moveTo(to, column());
    }
    void followMouse() {
        if (MEVENT event; getmouse(&event) == OK) {
            shift = (event.bstate & BUTTON1_PRESSED) == 0;
            moveTo(std::min(first_ + event.y, rowCount() - 1), event.x);
        }
    }

    /// In a table that stands in an item of a list, Enter does not break the list.
    void breakLine() {
        const Core::String path = document->getElementAt(document->getCaretPos()).path;
        const int item = path.rFind(L"fo:list-item-body", path.length());
        const bool isInItem = item > path.rFind(L"fo:table-cell", path.length());
        document->insertBreak(isInItem ? BreakType::List : BreakType::Hard, false);
    }

    void copy() {
        if (document->getCaretPos() != document->getSelectionPivotPos())
            clipboard = document->getSelectionAs(TextFormat::Native);
    }

    /// Saves in UTF-8, which the declaration is made to say.
    void save() try {
        const Core::String declared = document->getContent().substringBefore(L"?>").toLower();
        if (declared.find(L"encoding", 0) >= 0 && declared.find(L"utf-8", 0) < 0)
            document->changeXmlEncoding(L"UTF-8");
        document->saveToFile(path_, DocumentEncoding::Utf8);
        saved_ = document->getTextVersion();
        message = "saved";
    } catch (const Core::Exception& failure) {
        message = failure.what();
    }

    void quit() {
        isDone = !hasChanged() || std::exchange(isWarned_, true);
        message = "not saved: Ctrl+Q again leaves all the same";
    }

private:
    bool hasChanged() const {
        const auto change = document->changeSince(saved_);
        return !change || !change->empty();
    }

    void drawRow(int y, const Row& row) const {
        const auto [from, to] =
            std::minmax({document->getCaretPos(), document->getSelectionPivotPos()});
        attrset(A_NORMAL);
        mvaddwstr(y, 0, row.paragraph.margin.c_str());
        for (const Cell& cell : row.line) {
            const bool isSelected = row.offsetOf(cell) >= from && row.offsetOf(cell) < to;
            attrset(cell.style | (isSelected ? A_REVERSE : 0));
            addnwstr(&cell.shown, 1);
        }
    }

    int rowCount() const { return static_cast<int>(rows_.size()); }
    const Row& rowAt(int index) const { return rows_[static_cast<std::size_t>(index)]; }
    int column() const {
        const Row& row = rowAt(this->row());
        auto column = static_cast<int>(row.paragraph.margin.size());
        for (const Cell& cell : row.line)
            column += row.offsetOf(cell) < document->getCaretPos() ? cell.width() : 0;
        return column;
    }

    /// Where the caret is shown.
    int row() const {
        const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) {
            return row.offsetOf(row.line.back()) >= document->getCaretPos();
        });
        return std::min(static_cast<int>(found - rows_.begin()), rowCount() - 1);
    }
    /// Where the caret goes for a place on the screen.
    int stopAt(int index, int column) const {
        const Row& row = rowAt(index);
        column -= static_cast<int>(row.paragraph.margin.size());
        auto cell = row.line.begin();
        for (; cell + 1 != row.line.end() && column >= cell->width(); ++cell)
            column -= cell->width();
        return document->getNearestStop(row.offsetOf(*cell), StopSide::Either);
    }

    void moveTo(int row, int column) { document->setCaretPos(shift, stopAt(row, column)); }

    const Core::String path_;
    Layout layout_{*document};
    std::vector<Row> rows_;
    int first_ = 0; // on the screen
    std::uint64_t saved_ = 0;
    bool isWarned_ = false;
};
