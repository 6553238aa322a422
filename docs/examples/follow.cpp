// Keeps a copy of a document's text without reading the text a second time.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>

#include <iostream>

namespace {

/// What a layout needs of the document: which units are new. Notices only say that there are some.
class View : public IEditableBufferMonitor {
public:
    explicit View(const EditableDocumentBuffer& document) : document_(document) {}

    void onBufferChanged() override { isStale_ = true; }
    void onCaretChanged() override {}
    void onSelectionChanged() override {}

    /// To be called when the host has time to draw.
    void update() {
        if (!isStale_)
            return;
        if (const auto change = document_.changeSince(version_))
            takeUp(*change);
        else
            text_ = document_.getContent();
        version_ = document_.getTextVersion();
        isStale_ = false;
    }

    const Core::String& text() const { return text_; }

private:
    void takeUp(const TextChange& change) {
        const Core::String inserted =
            document_.getContent(change.start, change.start + change.inserted);
        text_.replace(change.start, change.removed, inserted);
        std::cout << change.removed << " units gave way to \""
                  << Core::Encoder::toDisplayText(inserted) << "\"\n";
    }

    const EditableDocumentBuffer& document_;
    std::uint64_t version_ = document_.getTextVersion();
    Core::String text_ = document_.getContent();
    bool isStale_ = false;
};

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: follow IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    document->addEditableElement(L"fo:block");
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    View view(*document);
    document->setMonitor(&view);
    document->insertText(L"To", false, false);
    view.update();
    document->insertText(L":", false, false);
    document->insertBreak(BreakType::Soft, false);
    view.update(); // of both
    document->insertText(L"</fo:block>", true, false);
    view.update(); // which was refused
    document->undo();
    view.update();
    if (view.text() != document->getContent())
        throw Core::Exception(L"the view has another text");
    document->setMonitor(nullptr);
    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
