#include "Peers.h"
#include "Typist.h"

#include "foundation/SmartPtr.h"

namespace {

class FormeKeyboard : public Keyboard {
public:
    explicit FormeKeyboard(const Core::String& content) : content_(content) {
        open(*document_, content);
    }

    void type(char letter) override {
        document_->insertText(Core::String(letter, 1), false, false);
    }
    void backspace() override { document_->erase(false, false); }
    void enter() override { document_->insertBreak(BreakType::Hard, false); }
    void left() override { document_->moveCaretLeft(false, false, false); }
    void right() override { document_->moveCaretRight(false, false, false); }
    void undo() override { document_->undo(); }
    void goTo(const Place& place) override { document_->setCaretPos(false, place.inXml); }

    Place caret() const override { return {document_->getCaretPos(), 0}; }
    bool isUnchanged() const override { return document_->getContent() == content_; }

private:
    Core::String content_;
    SmartPtr<EditableDocumentBuffer> document_{new EditableDocumentBuffer};
};

} // namespace

std::shared_ptr<Writer> formeWriter(const PeerDocument& document) {
    // The counted object lives as long as the pointer that is handed out.
    const SmartPtr<Typist> typist(new Typist(document.xml));
    return {typist.get(), [typist](Writer*) {}};
}

std::shared_ptr<Keyboard> formeKeyboard(const PeerDocument& document) {
    return std::make_shared<FormeKeyboard>(document.xml);
}
