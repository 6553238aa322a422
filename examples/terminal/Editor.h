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
        for (auto name : {L"fo:inline", L"fo:wrapper", L"fo:basic-link", L"fo:bidi-override"}) {
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
    bool shift = false, ctrl = false; ///< whether these are held, where the terminal tells
    bool isDone = false;

    void draw() {
        const int height = std::max(1, LINES - 1), caret = document->getCaretPos();
        layout_.update(COLS - 1);
        const int row = this->row();
        first_ = std::clamp(first_, std::max(0, row - height + 1), row);
        erase();
        for (int y = 0; y < height && first_ + y < lineCount(); ++y)
            drawLine(y, line(first_ + y));
        attrset(A_REVERSE);
        mvprintw(height, 0, "%ls%s %s %ls", path_.c_str(),
                 document->getTextVersion() != saved_ ? "*" : "", message.c_str(),
                 document->getElementAt(caret).path.c_str());
        move(row - first_, line(row).columnOf(caret));
        refresh();
    }

    void moveRows(int rows) {
        const int to = std::clamp(row() + rows, 0, lineCount() - 1);
        const int column = line(row()).columnOf(document->getCaretPos());
        moveTo(to, column, rows < 0 ? StopSide::Before : StopSide::Behind);
    }
    void moveInRow(int column) { moveTo(row(), column, StopSide::Either); }

    /// In a table that stands in an item of a list, Enter does not break the list.
    void breakLine() {
        const Core::String path = document->getElementAt(document->getCaretPos()).path;
        const int item = path.rFind(L"fo:list-item-body", path.length());
        const bool isInItem = item > path.rFind(L"fo:table-cell", path.length());
        document->insertBreak(isInItem ? BreakType::List : BreakType::Hard, false);
    }

    /// Answers whether something is selected.
    bool copy() {
        const Core::String selected = document->getSelectionAs(TextFormat::Native);
        clipboard = selected.empty() ? clipboard : selected;
        return !selected.empty();
    }
    void cut() {
        if (copy())
            document->erase(false, false);
    }

    /// Saves in UTF-8, which the declaration is made to say.
    void save() {
        const Core::String declared = document->getContent().substringBefore(L"?>").toLower();
        if (declared.find(L"encoding", 0) >= 0 && declared.find(L"utf-8", 0) < 0)
            document->changeXmlEncoding(L"UTF-8");
        document->saveToFile(path_, DocumentEncoding::Utf8);
        saved_ = document->getTextVersion();
        message = "saved";
    }

    void quit() {
        isDone = document->getTextVersion() == saved_ || std::exchange(isWarned_, true);
        message = "not saved: Ctrl+Q again leaves all the same";
    }

private:
    void drawLine(int y, const Line& line) const {
        const auto [from, to] =
            std::minmax({document->getCaretPos(), document->getSelectionPivotPos()});
        attrset(A_NORMAL);
        mvaddwstr(y, 0, line.margin.c_str());
        for (const Cell& cell : line.cells) {
            const bool isSelected = line.offsetOf(cell) >= from && line.offsetOf(cell) < to;
            attrset(cell.style | (isSelected ? A_REVERSE : 0));
            addnwstr(&cell.shown, 1);
        }
    }

    int lineCount() const { return static_cast<int>(layout_.lines().size()); }
    const Line& line(int row) const { return layout_.lines()[static_cast<std::size_t>(row)]; }

    /// Where the caret is shown.
    int row() const {
        const auto begin = layout_.lines().begin(), last = layout_.lines().end() - 1;
        const auto isPassed = [&](auto& line) { return line.end() < document->getCaretPos(); };
        return static_cast<int>(std::partition_point(begin, last, isPassed) - begin);
    }
    void moveTo(int row, int column, StopSide side) {
        const Line& line = this->line(row);
        auto cell = line.cells.end() - 1;
        while (cell != line.cells.begin() && line.columnOf(line.offsetOf(*cell)) > column)
            --cell;
        if (const int stop = document->getNearestStop(line.offsetOf(*cell), side); stop >= 0)
            document->setCaretPos(shift, stop);
    }

    const Core::String path_;
    Layout layout_{*document};
    int first_ = 0; // on the screen
    std::uint64_t saved_ = 0;
    bool isWarned_ = false;
};
