#include <forme-hunspell/HunspellChecker.h>
#include <forme/document/EditableDocumentBuffer.h>

#include <iostream>
#include <stdexcept>

namespace {

void require(bool condition, const char* what) {
    if (!condition)
        throw std::runtime_error(what);
}

void run(const Core::String& in) {
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    document->addEditableElement(L"fo:block");
    document->setContentFromFile(in);
    document->setSpellChecker(new HunspellChecker);
    const auto error = document->getNextSpellingError(L"en_US", true);
    require(static_cast<bool>(error), "the letter holds a name that is no word");
    require(document->getSelectionAs(TextFormat::Plain).startsWith(L"Thackwray"),
            "the word is selected");
    require(!error->suggestions.empty(), "there are suggestions");
    try {
        document->getNextSpellingError(L"no_SUCH", false);
    } catch (const Core::Exception& failure) {
        require(failure.getMessage().find(L"no_SUCH", 0) >= 0, "the failure names the dictionary");
        return;
    }
    throw std::runtime_error("a missing dictionary is told");
}

} // namespace

int main(int argc, char** argv) try {
    require(argc == 2, "usage: spelling IN");
    run(argv[1]);
    std::cout << "ok\n";
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
