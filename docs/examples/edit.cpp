// Corrects a word in a document, takes it back, does it again and saves.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/document/FreezeNotifications.h>
#include <forme/document/history/EditActionGroup.h>
#include <forme/foundation/Encoder.h>

#include <iostream>

namespace {

class Screen : public IEditableBufferMonitor {
public:
    void onBufferChanged() override { std::cout << "text changed\n"; }
    void onCaretChanged() override { std::cout << "caret moved\n"; }
    void onSelectionChanged() override { std::cout << "selection changed\n"; }
};

SmartPtr<EditableDocumentBuffer> newDocument() {
    SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline", L"fo:wrapper", L"fo:basic-link",
                                L"fo:bidi-override", L"qf:form"})
        document->addEditableElement(name);
    for (const wchar_t* name : {L"fo:inline", L"fo:wrapper", L"fo:basic-link", L"fo:bidi-override"})
        document->addInlineEditableElement(name);
    return document;
}

/// Puts `with` in the place of `count` units from `start`: one undo step and one notice of a kind.
void replace(EditableDocumentBuffer& document, int start, int count, const Core::String& with) {
    FreezeNotifications quiet(&document);
    EditActionGroup step(&document);
    EditActionStack& history = document.getEditActionStack();

    const auto record = [&](EditAction::EditActionType type, const Core::String& text) {
        history.addAction(
            EditAction(type, start, document.getCaretPos(), document.getSelectionPivotPos(), text));
    };
    record(EditAction::EditCaret, L"");
    record(EditAction::EditDelete, document.deleteXmlText(start, start + count - 1));
    document.insertXmlTextAtPosition(start, with);
    record(EditAction::EditInsert, with);
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: edit IN OUT");
    Screen screen;
    const SmartPtr<EditableDocumentBuffer> document = newDocument();
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));
    document->setMonitor(&screen);

    const Core::String before = document->getContent();
    const Core::String word = L"delighted";
    const int start = before.find(word, 0);
    if (start == -1)
        throw Core::Exception(L"the word is not in the document");
    replace(*document, start, word.length(), L"proud");

    document->undo();
    if (document->getContent() != before)
        throw Core::Exception(L"undo did not bring the text back");
    document->redo();

    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
    document->setMonitor(nullptr);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
