#include <forme/document/EditableDocumentBuffer.h>
#include <forme/document/history/EditActionGroup.h>
#include <forme/foundation/SmartPtr.h>

#include <iostream>
#include <stdexcept>

namespace {

void require(bool condition, const char* what) {
    if (!condition)
        throw std::runtime_error(what);
}

SmartPtr<EditableDocumentBuffer> newDocument() {
    SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    document->addEditableElement(L"fo:block");
    document->addEditableElement(L"fo:inline");
    document->addInlineEditableElement(L"fo:inline");
    return document;
}

void replaceAsOneStep(EditableDocumentBuffer& document, const Core::String& content) {
    EditActionGroup step(&document);
    document.setContent(content, false);
}

void run(const Core::String& in, const Core::String& out) {
    const SmartPtr<EditableDocumentBuffer> document = newDocument();
    document->setContentFromFile(in);
    const Core::String loaded = document->getContent();
    require(loaded.startsWith(L"<?xml"), "the document was loaded");
    require(document->getCaretPos() > 0, "the caret has its first place");
    require(!document->canUndo(), "nothing was done that could be undone");

    Core::String changed = loaded;
    require(changed.replaceAll(L"Dear Ms Thackwray", L"Dear Elinor") == 1,
            "the salutation is there");
    replaceAsOneStep(*document, changed);
    require(document->getContent() == changed, "the text was replaced");
    document->undo();
    require(document->getContent() == loaded, "undo brings the old text back");
    document->redo();
    require(document->getContent() == changed, "redo brings the new text back");

    document->saveToFile(out, DocumentEncoding::Utf16WithMark);
    const SmartPtr<EditableDocumentBuffer> again = newDocument();
    again->setContentFromFile(out);
    require(again->getContent() == document->getContent(), "what was saved is read back");
}

} // namespace

int main(int argc, char** argv) try {
    require(argc == 3, "usage: consumer IN OUT");
    run(argv[1], argv[2]);
    std::cout << "ok\n";
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
