// Copies the head of a document in the forms that other programs take, and pastes at its end.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>

#include <iostream>

namespace {

/// What the system's clipboard holds: the same content in several forms.
struct Clipboard {
    Core::String markup; ///< of this program's own, under a name of its own
    Core::String html;
    Core::String text;
};

Clipboard copy(const EditableDocumentBuffer& document) {
    return {document.getSelectionAs(TextFormat::Native), document.getSelectionAsHtml(),
            document.getSelectionAsText()};
}

/// Takes the form that tells most. HTML that cannot be read comes as text.
bool paste(EditableDocumentBuffer& document, const Clipboard& clipboard) {
    if (!clipboard.markup.empty())
        return document.pasteMarkup(clipboard.markup);
    try {
        if (!clipboard.html.empty())
            return document.pasteHtml(clipboard.html);
    } catch (const Core::Exception& failure) {
        std::cout << "as text: " << failure.what() << '\n';
    }
    return document.pasteText(clipboard.text);
}

void setUp(EditableDocumentBuffer& document) {
    document.setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline", L"fo:basic-link"})
        document.addEditableElement(name);
    for (const wchar_t* name : {L"fo:inline", L"fo:basic-link"})
        document.addInlineEditableElement(name);
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: clipboard IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUp(*document);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    document->moveCaretHome(false);
    for (int words = 0; words < 12; ++words)
        document->jumpToNextWord(true);
    const Clipboard copied = copy(*document);
    std::cout << Core::Encoder::toDisplayText(copied.text) << '\n'
              << Core::Encoder::toDisplayText(copied.html) << '\n';

    document->moveCaretToEnd(false);
    const Core::String before = document->getContent();
    if (!paste(*document, copied) || !paste(*document, {{}, {}, L" and\nmore"}))
        throw Core::Exception(L"nothing can be pasted there");
    document->undo();
    document->undo();
    if (document->getContent() != before)
        throw Core::Exception(L"undo did not bring the text back");
    document->redo();
    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
