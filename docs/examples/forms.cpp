// Puts a reply form at the end of a letter: a field, a choice of two, a button, all in one colour.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/forms/FormBuffer.h>
#include <forme/foundation/Encoder.h>

#include <iostream>

using Xml::FormControlType;

namespace {

void type(EditableDocumentBuffer& document, const Core::String& text) {
    document.insertText(text, false, false);
}

/// A line in the block: a new block at the end of a form would stand behind the form.
void newLine(EditableDocumentBuffer& document) {
    document.insertBreak(BreakType::Soft, false);
}

/// A form at the caret, which is in its first line afterwards.
void beginForm(EditableDocumentBuffer& document) {
    document.getFormBuffer().insertEmptyForm(false);
}

/// A field that shows what the data say of the customer until somebody writes into it.
void addField(EditableDocumentBuffer& document, const Core::String& label,
              const Core::String& expression) {
    type(document, label);
    document.getFormBuffer().insertFormControl(FormControlType::Text, true, false, expression);
}

/// A radio button; all but the first of a choice join the group of the one before.
void addChoice(EditableDocumentBuffer& document, const Core::String& label, bool isFirst) {
    document.getFormBuffer().insertFormControl(FormControlType::RadioButton, true, !isFirst, L"");
    type(document, label);
}

/// What a click on the last radio button does: it is checked, and no other of its group.
void checkLastChoice(EditableDocumentBuffer& document) {
    FormBuffer forms = document.getFormBuffer();
    forms.uncheckRadioButtonGroup(forms.getPreviousControlAttribute(L"radiobutton", L"qf:name"));
    PropertyCollection checked;
    checked.addProperty({L"qf:checked", L"true"}, true);
    document.setProperties(checked, L"qf:form-control",
                           forms.getPreviousControlPos(FormControlType::RadioButton));
}

void paint(EditableDocumentBuffer& document, const Core::String& color) {
    PropertyCollection skin;
    skin.addProperty({L"fo:color", color}, true);
    document.getFormBuffer().applySkinOnForm(skin);
}

/// Whether the last choice before the caret is checked, for a menu to show.
bool isLastChoiceChecked(EditableDocumentBuffer& document) {
    return document.getFormBuffer().getPreviousControlAttribute(L"radiobutton", L"qf:checked") ==
           L"true";
}

void setUp(EditableDocumentBuffer& document) {
    document.setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline", L"qf:form"})
        document.addEditableElement(name);
    document.addInlineEditableElement(L"fo:inline");
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: forms IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUp(*document);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    document->moveCaretToEnd(false);
    document->insertBreak(BreakType::Hard, false);
    beginForm(*document);
    addField(*document, L"Your name: ", L"/customer/name");
    newLine(*document);
    addChoice(*document, L" please call me", true);
    addChoice(*document, L" please write", false);
    checkLastChoice(*document);
    newLine(*document);
    document->getFormBuffer().insertFormControl(FormControlType::Submit, true, false, L"");
    paint(*document, L"#203040");
    std::cout << "please write: " << (isLastChoiceChecked(*document) ? "yes" : "no") << '\n';

    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
