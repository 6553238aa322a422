// A small editor for a terminal: what a host does between a key and the screen.
#include "Editor.h"

#include <forme/editing/lists/ListBuffer.h>
#include <forme/foundation/Encoder.h>

#include <clocale>
#include <cwctype>
#include <iostream>
#include <stdexcept>

namespace {

constexpr auto ctrl = [](char letter) { return letter & 0x1F; };
const std::pair<int, void (*)(Editor&)> bindings[] = {
    {KEY_LEFT, [](Editor& e) { e.document->moveCaretLeft(e.shift, e.ctrl, true); }},
    {KEY_RIGHT, [](Editor& e) { e.document->moveCaretRight(e.shift, e.ctrl, true); }},
    {KEY_UP, [](Editor& e) { e.moveRows(-1); }},
    {KEY_DOWN, [](Editor& e) { e.moveRows(1); }},
    {KEY_PPAGE, [](Editor& e) { e.moveRows(2 - LINES); }},
    {KEY_NPAGE, [](Editor& e) { e.moveRows(LINES - 2); }},
    {KEY_HOME, [](Editor& e) { e.ctrl ? e.document->moveCaretHome(e.shift) : e.moveInRow(0); }},
    {KEY_END, [](Editor& e) { e.ctrl ? e.document->moveCaretToEnd(e.shift) : e.moveInRow(COLS); }},
    {KEY_BACKSPACE, [](Editor& e) { e.document->erase(false, false); }},
    {ctrl('H'), [](Editor& e) { e.document->erase(false, true); }}, // Ctrl+Backspace
    {KEY_DC, [](Editor& e) { e.document->erase(true, e.ctrl); }},
    {ctrl('I'), [](Editor& e) { e.document->insertTab(); }},
    {ctrl('M'), [](Editor& e) { e.breakLine(); }},
    {ctrl('J'), [](Editor& e) { e.document->insertBreak(BreakType::Soft, false); }},
    {ctrl('P'), [](Editor& e) { e.document->insertBreak(BreakType::Page, false); }},
    {ctrl('L'), [](Editor& e) { e.document->getListBuffer().makeList(ListType::Bullets); }},
    {ctrl('N'), [](Editor& e) { e.document->getListBuffer().makeList(ListType::Numbering); }},
    {ctrl('W'), [](Editor& e) { e.document->selectParent(); }},
    {ctrl('['), [](Editor& e) { e.document->resetSelection(); }},
    {ctrl('C'), [](Editor& e) { e.copy(); }},
    {ctrl('X'), [](Editor& e) { e.cut(); }},
    {ctrl('V'), [](Editor& e) { e.document->pasteMarkup(e.clipboard); }},
    {ctrl('Z'), [](Editor& e) { e.document->undo(); }},
    {ctrl('Y'), [](Editor& e) { e.document->redo(); }},
    {ctrl('S'), [](Editor& e) { e.save(); }},
    {ctrl('Q'), [](Editor& e) { e.quit(); }},
};

/// With modifiers, counted from 1, terminals send "\033[", the first, ";", these, the second.
const std::pair<int, const char*> modifiedKeys[] = {
    {KEY_UP, "1A"},   {KEY_DOWN, "1B"}, {KEY_RIGHT, "1C"}, {KEY_LEFT, "1D"}, {KEY_END, "1F"},
    {KEY_HOME, "1H"}, {KEY_DC, "3~"},   {KEY_PPAGE, "5~"}, {KEY_NPAGE, "6~"}};
constexpr int keyCodes = KEY_MAX + 1;

struct Terminal {
    Terminal() {
        initscr();
        raw(); // Ctrl+C and its like are keys
        noecho();
        nonl();
        keypad(stdscr, TRUE);
        set_escdelay(25);
        define_key("\033\r", ctrl('J')); // Alt+Enter, since few terminals tell of Shift+Enter
        for (const auto& [code, ends] : modifiedKeys)
            for (char modifiers = 1; modifiers < 8; ++modifiers) {
                const char sent[] = {'\033', '[', ends[0], ';', char('1' + modifiers), ends[1], 0};
                define_key(sent, code + modifiers * keyCodes);
            }
    }
    ~Terminal() { endwin(); }
};

void takeKey(Editor& editor) try {
    wint_t got = 0;
    const int kind = get_wch(&got), code = static_cast<int>(got);
    if (kind == ERR)
        throw std::runtime_error("the terminal is gone");
    editor.message.clear();
    editor.shift = (code / keyCodes & 1) != 0;
    editor.ctrl = (code / keyCodes & 4) != 0;
    if (kind == OK && std::iswprint(got))
        editor.document->insertText(std::wstring(1, wchar_t(got)).c_str(), false, false);
    else
        for (const auto& [bound, press] : bindings)
            if (bound == code % keyCodes)
                press(editor);
} catch (const Core::Exception& failure) {
    editor.message = failure.what();
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 2)
        throw Core::Exception(L"usage: forme_terminal FILE");
    std::setlocale(LC_ALL, "");
    Editor editor(Core::Encoder::convertUTF8ToString(argv[1]));
    const Terminal terminal;
    for (editor.draw(); !editor.isDone; editor.draw())
        takeKey(editor);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
