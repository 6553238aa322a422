// A small editor for a terminal: what a host does between a key and the screen.
#include "Layout.h"

#include <forme/editing/lists/ListBuffer.h>
#include <forme/foundation/Encoder.h>
#include <forme/foundation/xml/DomParser.h>
#include <forme/view/ElementPlace.h>
#include <forme/view/StopSide.h>

#include <algorithm>
#include <climits>
#include <clocale>
#include <curses.h>
#include <cwctype>
#include <iostream>

namespace {

using Core::String;

/// A key of curses, or a control character.
struct Key {
    int code;
    bool shift = false;
    bool ctrl = false;
};

struct Editor {
    explicit Editor(const String& path);
    void draw();
    void drawRow(const Line& row) const;
    void press(Key key);
    void type(wint_t character);
    void moveRows(int rows, bool extend);
    void moveInRow(int column, Key key);
    void breakLine(bool isSoft);
    void copy();
    void followMouse();
    void save();
    void quit();
    bool hasChanged() const;
    int offsetAt(int row, int column) const;
    int columnOf(int row, int offset) const;
    const Line& rowAt(int index) const { return *layout.rows()[static_cast<std::size_t>(index)]; }

    String path;
    SmartPtr<EditableDocumentBuffer> document{new EditableDocumentBuffer};
    Layout layout{*document};
    String clipboard;
    std::string message = "Ctrl+S saves, Ctrl+Q quits";
    std::uint64_t saved = 0;
    int top = 0;       // an offset in the first row on the screen
    int goal = 0;      // the column that Up and Down keep to ...
    int goalCaret = 0; // ... while the caret is where they have put it
    bool isLeaving = false;
    bool isDone = false;
};

constexpr int ctrl(char letter) {
    return letter & 0x1F;
}

const struct {
    int code;
    void (*press)(Editor&, Key);
} bindings[] = {
    {KEY_LEFT, [](Editor& e, Key k) { e.document->moveCaretLeft(k.shift, k.ctrl, true); }},
    {KEY_RIGHT, [](Editor& e, Key k) { e.document->moveCaretRight(k.shift, k.ctrl, true); }},
    {KEY_UP, [](Editor& e, Key k) { e.moveRows(-1, k.shift); }},
    {KEY_DOWN, [](Editor& e, Key k) { e.moveRows(1, k.shift); }},
    {KEY_PPAGE, [](Editor& e, Key k) { e.moveRows(2 - LINES, k.shift); }},
    {KEY_NPAGE, [](Editor& e, Key k) { e.moveRows(LINES - 2, k.shift); }},
    {KEY_HOME, [](Editor& e, Key k) { e.moveInRow(0, k); }},
    {KEY_END, [](Editor& e, Key k) { e.moveInRow(INT_MAX, k); }},
    {KEY_BACKSPACE, [](Editor& e, Key) { e.document->erase(false, false); }},
    {ctrl('H'), [](Editor& e, Key) { e.document->erase(false, true); }},
    {KEY_DC, [](Editor& e, Key k) { e.document->erase(true, k.ctrl); }},
    {ctrl('I'), [](Editor& e, Key) { e.document->insertTab(); }},
    {KEY_ENTER, [](Editor& e, Key k) { e.breakLine(k.shift); }},
    {ctrl('P'), [](Editor& e, Key) { e.document->insertBreak(BreakType::Page, false); }},
    {ctrl('L'), [](Editor& e, Key) { e.document->getListBuffer().makeList(ListType::Bullets); }},
    {ctrl('N'), [](Editor& e, Key) { e.document->getListBuffer().makeList(ListType::Numbering); }},
    {ctrl('W'), [](Editor& e, Key) { e.document->selectParent(); }},
    {ctrl('['), [](Editor& e, Key) { e.document->resetSelection(); }},
    {ctrl('C'), [](Editor& e, Key) { e.copy(); }},
    {ctrl('X'), [](Editor& e, Key) { e.copy(), e.document->erase(false, false); }},
    {ctrl('V'), [](Editor& e, Key) { e.document->pasteMarkup(e.clipboard); }},
    {ctrl('Z'), [](Editor& e, Key) { e.document->undo(); }},
    {ctrl('Y'), [](Editor& e, Key) { e.document->redo(); }},
    {ctrl('S'), [](Editor& e, Key) { e.save(); }},
    {ctrl('Q'), [](Editor& e, Key) { e.quit(); }},
    {KEY_MOUSE, [](Editor& e, Key) { e.followMouse(); }},
};

/// What terminals send for keys with modifiers, of which the %d is the sum and 1.
const struct {
    int code;
    const char* sequence;
} modifiedKeys[] = {{KEY_UP, "\033[1;%dA"},   {KEY_DOWN, "\033[1;%dB"},  {KEY_RIGHT, "\033[1;%dC"},
                    {KEY_LEFT, "\033[1;%dD"}, {KEY_END, "\033[1;%dF"},   {KEY_HOME, "\033[1;%dH"},
                    {KEY_DC, "\033[3;%d~"},   {KEY_PPAGE, "\033[5;%d~"}, {KEY_NPAGE, "\033[6;%d~"}};
constexpr int shiftKey = 1;
constexpr int ctrlKey = 4;
constexpr int keyCodes = KEY_MAX + 1;

std::string narrow(const String& text) {
    return Core::Encoder::toDisplayText(text);
}

Editor::Editor(const String& file) : path(file) {
    Xml::DomParser().parseFile(path); // which tells where a text is not well formed
    document->setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"qf:form"})
        document->addEditableElement(name);
    for (const wchar_t* name :
         {L"fo:inline", L"fo:wrapper", L"fo:basic-link", L"fo:bidi-override"}) {
        document->addEditableElement(name);
        document->addInlineEditableElement(name);
    }
    document->setContentFromFile(path);
    saved = document->getTextVersion();
}

void Editor::draw() {
    const int height = LINES - 1;
    const int caret = document->getCaretPos();
    layout.update(height, COLS - 1);
    const int row = layout.rowOf(caret);
    const int first = std::clamp(layout.rowOf(top), std::max(0, row - height + 1), row);
    const int behind = std::min(first + height, static_cast<int>(layout.rows().size()));
    top = offsetAt(first, 0);
    erase();
    for (int shown = first; shown < behind; ++shown) {
        move(shown - first, 0);
        drawRow(rowAt(shown));
    }
    attrset(A_REVERSE);
    const std::string status = narrow(path) + (hasChanged() ? "* " : " ") + std::to_string(caret) +
                               (document->canUndo() ? " undo " : " ") +
                               narrow(document->getElementAt(caret).path) + ' ' + message;
    mvaddnstr(height, 0, status.c_str(), COLS);
    move(row - first, columnOf(row, caret));
    refresh();
}

void Editor::drawRow(const Line& row) const {
    const auto [from, to] =
        std::minmax({document->getCaretPos(), document->getSelectionPivotPos()});
    for (const Cell& cell : row) {
        attrset((cell.style & Bold ? A_BOLD : 0) | (cell.style & Italic ? A_ITALIC : 0) |
                (cell.style & Underline ? A_UNDERLINE : 0) |
                (cell.offset >= from && cell.offset < to ? A_REVERSE : 0));
        const bool isShown =
            cell.shown.empty() || std::iswprint(static_cast<wint_t>(cell.shown[0]));
        addwstr(isShown ? cell.shown.c_str() : L" ");
    }
}

void Editor::press(Key key) {
    message.clear();
    for (const auto& [code, run] : bindings)
        if (code == key.code)
            run(*this, key);
}

void Editor::type(wint_t character) {
    document->insertText(std::wstring(1, static_cast<wchar_t>(character)).c_str(), false, false);
}

void Editor::moveRows(int rows, bool extend) {
    const int caret = document->getCaretPos();
    const int last = static_cast<int>(layout.rows().size()) - 1;
    const int from = layout.rowOf(caret);
    const int step = rows < 0 ? -1 : 1;
    if (caret != goalCaret)
        goal = columnOf(from, caret);
    int stop = caret;
    for (int row = std::clamp(from + rows, 0, last); (stop - caret) * step <= 0; row += step) {
        if (row < 0 || row > last)
            return;
        stop = document->getNearestStop(offsetAt(row, goal), StopSide::Either);
    }
    document->setCaretPos(extend, stop);
    goalCaret = document->getCaretPos();
}

void Editor::moveInRow(int column, Key key) {
    if (key.ctrl)
        return column == 0 ? document->moveCaretHome(key.shift)
                           : document->moveCaretToEnd(key.shift);
    const int offset = offsetAt(layout.rowOf(document->getCaretPos()), column);
    document->setCaretPos(key.shift, document->getNearestStop(offset, StopSide::Either));
}

/// In a table that stands in an item of a list, Enter is no break of the list.
void Editor::breakLine(bool isSoft) {
    const String element = document->getElementAt(document->getCaretPos()).path;
    const bool isInItem = element.rFind(L"fo:list-item", INT_MAX) > element.rFind(L"fo:table-cell", INT_MAX);
    const BreakType hard = isInItem ? BreakType::List : BreakType::Hard;
    document->insertBreak(isSoft ? BreakType::Soft : hard, false);
}

void Editor::copy() {
    if (document->getCaretPos() != document->getSelectionPivotPos())
        clipboard = document->getSelectionAs(TextFormat::Native);
}

void Editor::followMouse() {
    MEVENT event;
    if (getmouse(&event) != OK)
        return;
    const int row =
        std::min(layout.rowOf(top) + event.y, static_cast<int>(layout.rows().size()) - 1);
    const int stop = document->getNearestStop(offsetAt(row, event.x), StopSide::Either);
    document->setCaretPos(!(event.bstate & BUTTON1_PRESSED), stop);
}

/// In UTF-8, which a declaration of another encoding is made to say.
void Editor::save() try {
    const String text = document->getContent();
    const String declared = text.startsWith(L"<?xml") ? text.substringBefore(L"?>").toLower() : L"";
    if (declared.find(L"encoding", 0) >= 0 && declared.find(L"utf-8", 0) < 0)
        document->changeXmlEncoding(L"UTF-8");
    document->saveToFile(path, DocumentEncoding::Utf8);
    saved = document->getTextVersion();
    message = "saved";
} catch (const Core::Exception& failure) {
    message = failure.what();
}

void Editor::quit() {
    isDone = isLeaving || !hasChanged();
    isLeaving = true;
    message = "Not saved: Ctrl+Q again leaves all the same";
}

bool Editor::hasChanged() const {
    const auto change = document->changeSince(saved);
    return !change || !change->empty();
}

/// What stands at a column, or else the last before.
int Editor::offsetAt(int row, int column) const {
    int found = -1;
    int at = 0;
    int left = 0;
    for (const Cell& cell : rowAt(row)) {
        if (cell.offset >= 0 && (found < 0 || (left <= column && left > at))) {
            found = cell.offset;
            at = left;
        }
        left += cell.width();
    }
    return found;
}

int Editor::columnOf(int row, int offset) const {
    int column = 0;
    for (const Cell& cell : rowAt(row)) {
        if (cell.offset >= offset)
            break;
        column += cell.width();
    }
    return column;
}

/// The terminal while it shows the editor.
class Terminal {
public:
    Terminal() {
        initscr();
        raw(); // Ctrl+C and its like are keys
        noecho();
        nonl();
        keypad(stdscr, TRUE);
        set_escdelay(25);
        mouseinterval(0);
        mousemask(BUTTON1_PRESSED | BUTTON1_RELEASED | REPORT_MOUSE_POSITION, nullptr);
        define_key("\r", KEY_ENTER);
        define_key("\033\r", KEY_ENTER + shiftKey * keyCodes); // few tell of Shift+Enter
        for (const auto& [code, sequence] : modifiedKeys)
            for (int modifiers = 1; modifiers < 8; ++modifiers) {
                char text[16];
                std::snprintf(text, sizeof text, sequence, modifiers + 1);
                define_key(text, code + modifiers * keyCodes);
            }
    }
    ~Terminal() { endwin(); }
};

} // namespace

int main(int argc, char** argv) try {
    if (argc != 2)
        throw Core::Exception(L"usage: forme_terminal FILE");
    std::setlocale(LC_ALL, "");
    Editor editor(Core::Encoder::convertUTF8ToString(argv[1]));
    const Terminal terminal;
    while (!editor.isDone) {
        editor.draw();
        wint_t got = 0;
        const int kind = get_wch(&got);
        const auto code = static_cast<int>(got);
        if (kind == OK && std::iswprint(got))
            editor.type(got);
        else if (kind != ERR)
            editor.press({code % keyCodes, (code / keyCodes & shiftKey) != 0,
                          (code / keyCodes & ctrlKey) != 0});
    }
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
