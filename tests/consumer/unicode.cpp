#include <forme-unicode/IcuSegmenter.h>
#include <forme/document/EditableDocumentBuffer.h>

#include <iostream>

int main() try {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setTextSegmenter(new IcuSegmenter);
    if (IcuSegmenter().next(TextSegmenter::Unit::Cluster, L"e\x301t", 0) != 2)
        throw Core::Exception(L"a letter is torn from its accent");
    std::cout << "ok\n";
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
