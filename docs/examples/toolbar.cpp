// Presses a few buttons of a toolbar: bold, centred and a colour on the first words of a document.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>
#include <forme/view/EditingState.h>

#include <iostream>

namespace {

/// What the toolbar shows for the caret or the selection; nothing where that is not one value.
Core::String shownValue(const EditableDocumentBuffer& document, const Core::String& name) {
    const EditingState state = document.getEditingState();
    const Format* const format = state.format(name);
    return format && !format->isMixed ? format->value : Core::String();
}

/// Buttons for bold, italic, a font or a colour: a format of text.
void formatText(EditableDocumentBuffer& document, const EditableProperty& property) {
    if (document.hasSelectedText())
        document.setProperty(property, L"");
}

void toggleBold(EditableDocumentBuffer& document) {
    const bool isBold = shownValue(document, L"fo:font-weight") == L"bold";
    formatText(document, {L"fo:font-weight", isBold ? L"normal" : L"bold"});
}

/// Buttons for alignment, indents or space above and below: a format of blocks.
void formatBlock(EditableDocumentBuffer& document, const EditableProperty& property) {
    PropertyCollection properties;
    properties.addProperty(property, true);
    document.setProperties(properties, L"fo:block", document.getCaretPos());
}

/// Alignment is known to belong to blocks, so that a selection can have it in all of its blocks.
void align(EditableDocumentBuffer& document, const Core::String& side) {
    if (document.hasSelectedText())
        document.setProperty({L"fo:text-align", side}, L"");
    else
        formatBlock(document, {L"fo:text-align", side});
}

void print(const EditableDocumentBuffer& document) {
    for (const wchar_t* name : {L"fo:font-weight", L"fo:text-align", L"fo:color", L"fo:font-size"})
        std::cout << Core::Encoder::toDisplayText(name) << " is \""
                  << Core::Encoder::toDisplayText(shownValue(document, name)) << "\"\n";
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
        throw Core::Exception(L"usage: toolbar IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUp(*document);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    document->jumpToNextWord(false);
    document->jumpToNextWord(true); // the second word
    toggleBold(*document);
    formatText(*document, {L"fo:color", L"#204060"});
    align(*document, L"center");
    formatBlock(*document, {L"fo:space-after", L"6mm"});
    print(*document);

    toggleBold(*document); // off again
    document->undo();      // and on
    std::cout << Core::Encoder::toDisplayText(document->getSelectionAs(TextFormat::Native)) << '\n';

    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
