#pragma once

#include "Layout.h"

#include <forme/foundation/xml/DomParser.h>

/// Whether these are held, where the terminal tells.
struct Key {
    bool shift;
    bool ctrl;
};

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
        saved_ = document->getTextVersion();
    }

    const SmartPtr<EditableDocumentBuffer> document{new EditableDocumentBuffer};
    Core::String clipboard;
    std::string message = "Ctrl+S saves, Ctrl+Q quits";
    bool isDone = false;

    void draw() {
        const int height = LINES - 1;
        const int caret = document->getCaretPos();
        layout_.update(height, COLS - 1);
        const int row = this->row();
        first_ = std::clamp(layout_.rowOf(top_), std::max(0, row - height + 1), row);
        top_ = offsetAt(first_, 0);
        erase();
        for (int y = 0; y < height && first_ + y < layout_.rowCount(); ++y)
            drawRow(y, layout_.row(first_ + y));
        attrset(A_REVERSE);
        mvprintw(height, 0, "%ls%s %d%s %s %ls", path_.c_str(), hasChanged() ? "*" : "", caret,
                 document->canUndo() ? " undo" : "", message.c_str(),
                 document->getElementAt(caret).path.c_str());
        move(row - first_, columnOf(row, caret));
        refresh();
    }

    void moveRows(int rows, bool extend) {
        const int caret = document->getCaretPos();
        const int step = rows < 0 ? -1 : 1;
        const int last = layout_.rowCount() - 1;
        goal_ = caret == goalCaret_ ? goal_ : columnOf(row(), caret);
        int to = std::clamp(row() + rows, 0, last);
        while ((stopAt(to, goal_) - caret) * step <= 0 && to + step >= 0 && to + step <= last)
            to += step;
        if ((stopAt(to, goal_) - caret) * step > 0)
            moveTo(to, goal_, extend);
        goalCaret_ = document->getCaretPos();
    }
    void moveHome(Key key) {
        key.ctrl ? document->moveCaretHome(key.shift) : moveTo(row(), 0, key.shift);
    }
    void moveToEnd(Key key) {
        key.ctrl ? document->moveCaretToEnd(key.shift) : moveTo(row(), COLS, key.shift);
    }
    void followMouse() {
        MEVENT event;
        if (getmouse(&event) == OK)
            moveTo(std::min(first_ + event.y, layout_.rowCount() - 1), event.x,
                   (event.bstate & BUTTON1_PRESSED) == 0);
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

    void drawRow(int y, const Line& row) const {
        const auto [from, to] =
            std::minmax({document->getCaretPos(), document->getSelectionPivotPos()});
        move(y, 0);
        for (const Cell& cell : row) {
            const bool isSelected = cell.offset >= from && cell.offset < to;
            attrset(cell.style | (isSelected ? A_REVERSE : 0));
            addwstr(cell.shown.c_str());
        }
    }

    int row() const { return layout_.rowOf(document->getCaretPos()); }
    void moveTo(int row, int column, bool extend) {
        document->setCaretPos(extend, stopAt(row, column));
    }
    int columnOf(int row, int offset) const {
        int column = 0;
        for (const Cell& cell : layout_.row(row)) {
            if (cell.offset >= offset)
                break;
            column += cell.width();
        }
        return column;
    }
    int offsetAt(int row, int column) const {
        int found = -1;
        for (const Cell& cell : layout_.row(row)) {
            if (cell.offset >= 0 && (found < 0 || column >= 0))
                found = cell.offset;
            column -= cell.width();
        }
        return found;
    }
    /// Where the caret goes for a place on the screen.
    int stopAt(int row, int column) const {
        return document->getNearestStop(offsetAt(row, column), StopSide::Either);
    }

    const Core::String path_;
    Layout layout_{*document};
    std::uint64_t saved_ = 0;
    int first_ = 0;      // the first row on the screen, and ...
    int top_ = 0;        // ... an offset in it
    int goal_ = 0;       // the column that Up and Down keep to ...
    int goalCaret_ = -1; // ... while the caret is where they have put it
    bool isWarned_ = false;
};
