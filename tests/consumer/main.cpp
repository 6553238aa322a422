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

void run(const Core::String& in, const Core::String& out) {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    document->addEditableElement(L"fo:block");
    document->setContentFromFile(in);
    const Core::String loaded = document->getContent();
    require(document->getCaretPos() > 0, "the caret has its first place");

    Core::String changed = loaded;
    require(changed.replaceAll(L"Dear Ms Thackwray", L"Dear Elinor") == 1,
            "the salutation is there");
    {
        EditActionGroup step(document.get());
        document->setContent(changed, false);
    }
    document->undo();
    require(document->getContent() == loaded, "undo brings the old text back");
    document->redo();
    document->saveToFile(out, DocumentEncoding::Utf16WithMark);
    document->setContentFromFile(out);
    require(document->getContent() == changed, "what was saved is read back");
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
