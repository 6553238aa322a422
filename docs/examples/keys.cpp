// Plays a short piece of work at the keyboard into a document and saves it.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>

#include <iostream>

namespace {

enum class Key { Left, Right, Home, End, Escape, Backspace, Delete, Tab, Enter, Undo, Redo };

/// What a key means to the document. With `shift` the caret takes the selection along, and Enter
/// begins a line and no block.
void press(EditableDocumentBuffer& document, Key key, bool shift = false) {
    switch (key) {
    case Key::Left:
        return document.moveCaretLeft(shift, false, true);
    case Key::Right:
        return document.moveCaretRight(shift, false, true);
    case Key::Home:
        return document.moveCaretHome(shift);
    case Key::End:
        return document.moveCaretToEnd(shift);
    case Key::Escape:
        return document.resetSelection();
    case Key::Backspace:
        return document.erase(false, false);
    case Key::Delete:
        return document.erase(true, false);
    case Key::Tab:
        return document.insertTab();
    case Key::Enter:
        return document.insertBreak(shift ? BreakType::Soft : BreakType::Hard, false);
    case Key::Undo:
        return document.undo();
    case Key::Redo:
        return document.redo();
    }
}

/// Characters come one by one, as from a keyboard.
void type(EditableDocumentBuffer& document, const Core::String& text) {
    for (int i = 0; i < text.length(); ++i)
        document.insertText(Core::String(text[i], 1), false, false);
}

void setUp(EditableDocumentBuffer& document) {
    document.setRootElement(L"qfd:document");
    document.addEditableElement(L"fo:block");
    document.addEditableElement(L"fo:inline");
    document.addInlineEditableElement(L"fo:inline");
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: keys IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUp(*document);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    press(*document, Key::Home);
    type(*document, L"Draft < 1: ");
    press(*document, Key::Left, true); // the blank is selected ...
    press(*document, Key::Tab);        // ... and becomes a tab
    press(*document, Key::Undo);       // the tab
    press(*document, Key::Undo);       // all that was typed in one run
    press(*document, Key::Redo);

    press(*document, Key::Enter);       // a block begins ...
    press(*document, Key::Enter, true); // ... and in it a line
    press(*document, Key::Backspace);   // the line goes ...
    press(*document, Key::Backspace);   // ... and the blocks are one again

    press(*document, Key::Home);
    press(*document, Key::End, true);
    std::cout << document->getSelectionAs(TextFormat::Plain).length() << " characters selected\n";
    press(*document, Key::Escape);

    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
