#pragma once

#include "Replay.h"

#include "document/EditableDocumentBuffer.h"

/// Tells the document of the elements that a generated one has, and gives it the text.
void open(EditableDocumentBuffer& document, const Core::String& content);

/// Types into the last flow. A line of the person's text is a block of ours, and a character a
/// unit: a character, an entity, or for a blank that would not show, the entity of the non-breaking
/// space.
class Typist : public EditableDocumentBuffer, public Writer {
public:
    /// Gets a block of its own behind that content.
    explicit Typist(Core::String content);

    int index() const override { return index_; }
    void goTo(int index, const std::string& written) override;
    /// Where our caret is at the start of a line, blanks that do not show are before it, and in a
    /// line of nothing but blanks it stands before the first.
    void noteIndex(int index, int column) override;

    void typeCharacter(char character);
    void type(char character, Costs& costs) override;
    void eraseCharacter(bool backward, char character, Costs& costs) override;

    /// To us a tab is a blank, and a line of a single blank is empty.
    bool holds(const std::string& text) const override;

private:
    wchar_t unitAt(int position) const;
    bool isInBlankLine() const;
    void eraseBlankInBlankLine();
    void eraseNextCharacter(Costs& costs);
    void erasePreviousCharacter(Costs& costs);
    void typeLineFeed();
    std::string plainText() const;
    Core::String lineAt(int line) const;
    bool isHidden(int position) const;
    int startOfNextLine() const;
    int endOfPreviousLine(bool isEmpty) const;

    int start_ = 0;
    int index_ = 0; // in the person's text
    int at_ = 0;    // the same place in ours
};
