// Writes a document as XSL-FO for a formatter, and tells what went wrong where it cannot.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/export/XslFoExport.h>
#include <forme/foundation/Encoder.h>
#include <forme/foundation/xml/ParseException.h>

#include <iostream>

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: export IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));
    try {
        XslFoExport(document.get()).saveToFile(Core::Encoder::convertUTF8ToString(argv[2]));
    } catch (const Xml::ParseException& failure) {
        std::cerr << "line " << failure.getLine() << ": " << failure.what() << '\n';
        return 1;
    }
    const Core::String written = XslFoExport(document.get()).getText();
    std::cout << (written.find(L"<qfd:", 0) < 0 ? "plain XSL-FO\n" : "not plain\n");
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
