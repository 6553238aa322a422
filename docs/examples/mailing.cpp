// Makes a letter a mailing: tells what its expressions use, and puts a picture in that depends on
// who gets the letter.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/document/history/EditActionGroup.h>
#include <forme/foundation/Encoder.h>
#include <forme/foundation/ObjectId.h>
#include <forme/templates/PropertyValueHandler.h>
#include <forme/templates/QFDTemplateFunctionalBuffer.h>

#include <iostream>

namespace {

/// What a dialog for the variables does: it takes the whole list, and gives the whole list back.
void addVariable(EditableDocumentBuffer& document, const QFDVariable& variable) {
    QFDTemplateFunctionalBuffer data(&document);
    Core::Vector<QFDVariable> variables = data.getVariables();
    variables.push_back(variable);
    data.overrideVariables(variables);
    data.commitChangesToDocumentBuffer();
}

/// A picture at the caret. Which one is chosen when the letters are made: the first row whose
/// condition holds. The picture and its rows are one undo step.
Core::String insertPicture(const SmartPtr<EditableDocumentBuffer>& document) {
    const EditActionGroup step(document.get());
    const Core::String id = ObjectId::generate();
    document->insertText(
        L"<fo:external-graphic fo:src=\"url('clock.png')\" fo:id=\"" + id + L"\"/>", true, false);

    PropertyValueEx source(L"fo:src", id);
    source.setType(PropertyValueType::Conditional);
    source.setConditionalValues({{L"", L"customer/photo", L"customer/photo != ''", true},
                                 {L"friend.png", L"", L"$years > 10", false},
                                 {L"clock.png", L"", L"", false}});
    PropertyValueHandler::write(source, document);
    return id;
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: mailing IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    document->addEditableElement(L"fo:block");
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    addVariable(*document, {L"years", L"year-from-date(current-date()) - customer/since"});
    document->moveCaretHome(false);
    const Core::String id = insertPicture(document);

    PropertyValueEx source(L"fo:src", id);
    PropertyValueHandler::read(document, source);
    std::cout << source.getConditionalValues().size() << " rows\n";

    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
