#include <forme-html/Html5Parser.h>
#include <forme/document/EditableDocumentBuffer.h>

#include <iostream>

int main(int argc, char** argv) try {
    if (argc != 2)
        throw Core::Exception(L"usage: html IN");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    document->addEditableElement(L"fo:block");
    document->setContentFromFile(argv[1]);
    document->setHtmlParser(new Html5Parser);
    if (!document->pasteHtml(L"<p>pasted<p>again ") ||
        document->getContent().find(L"pasted</fo:block>", 0) < 0)
        throw Core::Exception(L"HTML is not pasted");
    std::cout << "ok\n";
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
