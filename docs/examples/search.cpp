// Replaces a word in a whole document, as the "Replace all" of a dialog does, and saves.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/document/FreezeNotifications.h>
#include <forme/document/history/EditActionGroup.h>
#include <forme/foundation/Encoder.h>

#include <iostream>

namespace {

/// One undo step and one notice of a kind for all of them; answers how many there were.
int replaceAll(EditableDocumentBuffer& document, const Core::String& find,
               const Core::String& replacement) {
    FreezeNotifications quiet(&document);
    EditActionGroup step(&document);
    document.resetSelection();
    document.resetfindReplaceStartPos();
    int count = 0;
    while (document.findReplace(find, replacement, true, false, Direction::Forward, true) >= 0)
        ++count;
    document.resetfindReplaceStartPos();
    return count;
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
        throw Core::Exception(L"usage: search IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUp(*document);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));
    std::cout << replaceAll(*document, L"Harrowgate", L"Harrogate") << " replaced\n";
    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
