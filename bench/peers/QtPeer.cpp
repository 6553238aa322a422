#include "Peers.h"

#include <QAbstractTextDocumentLayout>
#include <QString>
#include <QTextCursor>
#include <QTextDocument>

#include <stdexcept>
#include <string>

namespace {

/// Nothing that is called here asks for documentLayout(), which would make one: a caret that moves
/// to the left or right only has the text of its block cut into characters. textFrom() holds that
/// to be true.
class QtKeyboard : public Keyboard {
public:
    explicit QtKeyboard(const std::wstring& text) : content_(QString::fromStdWString(text)) {
        document_.setUndoRedoEnabled(false);
        cursor_.insertText(content_);
        document_.setUndoRedoEnabled(true);
    }

    void type(char letter) override {
        inEditBlock([&] { cursor_.insertText(QString(QLatin1Char(letter))); });
    }
    void backspace() override {
        inEditBlock([&] { cursor_.deletePreviousChar(); });
    }
    void eraseNext() {
        inEditBlock([&] { cursor_.deleteChar(); });
    }
    void enter() override {
        inEditBlock([&] { cursor_.insertBlock(); });
    }
    void left() override { cursor_.movePosition(QTextCursor::Left); }
    void right() override { cursor_.movePosition(QTextCursor::Right); }
    void undo() override { document_.undo(&cursor_); }
    void goTo(const Place& place) override { cursor_.setPosition(place.inText); }

    Place caret() const override { return {0, cursor_.position()}; }
    bool isUnchanged() const override { return textFrom(0) == content_; }

    /// With a line feed between blocks.
    QString textFrom(int start) const {
        if (document_.findChild<QAbstractTextDocumentLayout*>() != nullptr)
            throw std::logic_error("QTextDocument has made itself a layout, so this is no measure");
        QTextCursor all(cursor_);
        all.setPosition(start);
        all.setPosition(document_.characterCount() - 1, QTextCursor::KeepAnchor);
        return all.selectedText().replace(QChar::ParagraphSeparator, u'\n');
    }

private:
    template <typename Change>
    void inEditBlock(Change change) {
        cursor_.beginEditBlock();
        change();
        cursor_.endEditBlock();
    }

    QString content_;
    QTextDocument document_;
    QTextCursor cursor_{&document_};
};

class QtWriter : public Writer {
public:
    explicit QtWriter(const std::wstring& text) : keyboard_(text) {}

    int index() const override { return keyboard_.caret().inText - start_; }
    void goTo(int index, const std::string& /*written*/) override {
        keyboard_.goTo({0, start_ + index});
    }
    void noteIndex(int /*index*/, int /*column*/) override {}

    void type(char character, Costs& costs) override {
        costs.time([&] { character == '\n' ? keyboard_.enter() : keyboard_.type(character); });
    }
    void eraseCharacter(bool backward, char /*character*/, Costs& costs) override {
        costs.time([&] { backward ? keyboard_.backspace() : keyboard_.eraseNext(); });
    }

    bool holds(const std::string& text) const override {
        return keyboard_.textFrom(start_).toStdString() == text;
    }

private:
    QtKeyboard keyboard_;
    int start_ = keyboard_.caret().inText;
};

} // namespace

std::shared_ptr<Writer> qtWriter(const PeerDocument& document) {
    return std::make_shared<QtWriter>(document.text);
}

std::shared_ptr<Keyboard> qtKeyboard(const PeerDocument& document) {
    return std::make_shared<QtKeyboard>(document.text);
}
