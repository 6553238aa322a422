// Reads a document by words, sentences and characters as a person does.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>

#include <iostream>

namespace {

/// A double click selects a word, a triple click the sentence.
bool select(EditableDocumentBuffer& document, TextUnit unit, int position) {
    const auto range = document.getRangeAround(unit, position);
    if (!range)
        return false;
    document.setCaretPos(false, range->start);
    document.setCaretPos(true, range->end);
    return true;
}

void print(const EditableDocumentBuffer& document) {
    std::cout << Core::Encoder::toDisplayText(document.getSelectionAsText()) << '\n';
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
        throw Core::Exception(L"usage: units IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUp(*document);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    const int clicked = document->getContent().find(L"clock in the house", 0) + 3;
    for (const TextUnit unit : {TextUnit::Word, TextUnit::Sentence}) {
        if (!select(*document, unit, clicked))
            throw Core::Exception(L"there is no text");
        print(*document);
    }
    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
