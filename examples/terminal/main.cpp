// A small editor for a terminal: what a host does between a key and the screen.
#include "Editor.h"

#include <forme/editing/lists/ListBuffer.h>
#include <forme/foundation/Encoder.h>

#include <clocale>
#include <cwctype>
#include <iostream>

namespace {

constexpr auto ctrl = [](char letter) { return letter & 0x1F; };

const struct {
    int code;
    void (*press)(Editor&);
} bindings[] = {
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
    {ctrl('X'), [](Editor& e) { e.copy(), e.document->erase(false, false); }},
    {ctrl('V'), [](Editor& e) { e.document->pasteMarkup(e.clipboard); }},
    {ctrl('Z'), [](Editor& e) { e.document->undo(); }},
    {ctrl('Y'), [](Editor& e) { e.document->redo(); }},
    {ctrl('S'), [](Editor& e) { e.save(); }},
    {ctrl('Q'), [](Editor& e) { e.quit(); }},
    {KEY_MOUSE, [](Editor& e) { e.followMouse(); }},
};

/// Terminals send these with the modifiers in the place of the %d, counted from 1.
const std::pair<int, const char*> modifiedKeys[] = {
    {KEY_UP, "\033[1;%dA"},   {KEY_DOWN, "\033[1;%dB"},  {KEY_RIGHT, "\033[1;%dC"},
    {KEY_LEFT, "\033[1;%dD"}, {KEY_END, "\033[1;%dF"},   {KEY_HOME, "\033[1;%dH"},
    {KEY_DC, "\033[3;%d~"},   {KEY_PPAGE, "\033[5;%d~"}, {KEY_NPAGE, "\033[6;%d~"}};

constexpr int keyCodes = KEY_MAX + 1;

struct Terminal {
    Terminal() {
        initscr();
        raw(); // Ctrl+C and its like are keys
        noecho();
        nonl();
        keypad(stdscr, TRUE);
        set_escdelay(25);
        mouseinterval(0);
        mousemask(BUTTON1_PRESSED | BUTTON1_RELEASED, nullptr);
        define_key("\033\r", ctrl('J')); // Alt+Enter, since few terminals tell of Shift+Enter
        for (const auto& [code, sequence] : modifiedKeys)
            for (int modifiers = 1; modifiers < 8; ++modifiers) {
                char sent[16];
                std::snprintf(sent, sizeof sent, sequence, modifiers + 1);
                define_key(sent, code + modifiers * keyCodes);
            }
    }
    ~Terminal() { endwin(); }
};

void press(Editor& editor, int code) {
    editor.shift = (code / keyCodes & 1) != 0;
    editor.ctrl = (code / keyCodes & 4) != 0;
    for (const auto& [bound, press] : bindings)
        if (bound == code % keyCodes)
            press(editor);
}

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
        if (kind == ERR)
            throw Core::Exception(L"the terminal is gone");
        editor.message.clear();
        if (kind == OK && std::iswprint(got))
            editor.document->insertText(std::wstring(1, wchar_t(got)).c_str(), false, false);
        else
            press(editor, static_cast<int>(got));
    }
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
