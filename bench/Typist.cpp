#include "Typist.h"

#include "document/Document.h"
#include "foundation/Encoder.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace {

/// A tab counts as a blank, and a line of a single blank as an empty one.
std::string asBlocks(std::string text) {
    std::replace(text.begin(), text.end(), '\t', ' ');
    std::string lines = "\n" + text + "\n";
    for (std::size_t at = 0; (at = lines.find("\n \n", at)) != std::string::npos;)
        lines.erase(at + 1, 1);
    return lines.substr(1, lines.size() - 2);
}

} // namespace

void open(EditableDocumentBuffer& document, const Core::String& content) {
    document.setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline"})
        document.addEditableElement(name);
    document.addInlineEditableElement(L"fo:inline");
    document.setContent(content, true);
}

Typist::Typist(Core::String content) {
    const int end = content.rFind(L"</fo:flow>", static_cast<Core::String::Size>(content.length()));
    content.insert(static_cast<unsigned>(end), L"<fo:block>&#x00A0;</fo:block>");
    open(*this, content);
    start_ = end + Core::String(L"<fo:block>").length();
    at_ = start_;
    setCaretPos(false, start_);
}

void Typist::goTo(int index, const std::string& written) {
    const auto isLineFeed = [&](int at) {
        return at < 0 || written[static_cast<std::size_t>(at)] == '\n';
    };
    for (; index_ < index; ++index_)
        at_ = isLineFeed(index_) ? startOfNextLine() : getNextEditablePositionInXml(at_);
    for (; index_ > index; --index_)
        at_ = isLineFeed(index_ - 1) ? endOfPreviousLine(isLineFeed(index_ - 2))
                                     : getPreviousEditablePositionInXml(at_);
    if (getCaretPos() != at_)
        setCaretPos(false, at_);
}

void Typist::noteIndex(int index, int column) {
    index_ = index;
    at_ = getCaretPos();
    const int line = getCurrentElementPosition(at_);
    if (column > 0 && !elementContainsJustNonBreakingSpace(line))
        return;
    at_ = getNextEditablePositionInXml(line);
    for (; column > 0; --column)
        at_ = getNextEditablePositionInXml(at_);
}

void Typist::typeCharacter(char character) {
    if (character == '\n')
        typeLineFeed();
    else
        insertText(Core::String(character == '\t' ? L' ' : character, 1), false, false);
}

void Typist::type(char character, Costs& costs) {
    costs.time([&] { typeCharacter(character); });
}

void Typist::eraseCharacter(bool backward, char character, Costs& costs) {
    if (character != '\n' && isInBlankLine())
        costs.time([&] { eraseBlankInBlankLine(); });
    else if (backward)
        erasePreviousCharacter(costs);
    else
        eraseNextCharacter(costs);
}

bool Typist::holds(const std::string& text) const {
    return plainText() == asBlocks(text);
}

wchar_t Typist::unitAt(int position) const {
    return Document::of(*this).text().unitAt(position);
}

/// Whether the line holds but blanks, of which one is the placeholder of an empty line.
bool Typist::isInBlankLine() const {
    return elementContainsJustNonBreakingSpace(getCurrentElementPosition(at_));
}

/// Any of the line's blanks; the placeholder stays.
void Typist::eraseBlankInBlankLine() {
    const int end = getLastPositionInElementContaining(at_);
    if (unitAt(end - 1) == L' ')
        deleteContentAtPosition(false, end - 1, end);
}

/// Delete.
void Typist::eraseNextCharacter(Costs& costs) {
    if (isHidden(at_))
        costs.time([&] { deleteContentAtPosition(false, at_, at_ + 1); });
    else
        costs.time([&] { erase(true, false); });
}

/// Backspace. The character between two blanks is deleted from its front, since Backspace would
/// leave one blank of the two.
void Typist::erasePreviousCharacter(Costs& costs) {
    const int character = getPreviousEditablePositionInXml(at_);
    if (isHidden(character) || (unitAt(character - 1) == L' ' && unitAt(at_) == L' ')) {
        at_ = character;
        setCaretPos(false, at_);
        eraseNextCharacter(costs);
        return;
    }
    costs.time([&] { erase(false, false); });
}

/// Where only blanks stand before the caret, that line is empty to us and gets a placeholder, which
/// is one of the blanks.
void Typist::typeLineFeed() {
    const int start = getNextEditablePositionInXml(getCurrentElementPosition(getCaretPos()));
    const bool hidesBlank = isHidden(start);
    insertBreak(BreakType::Hard, false);
    if (hidesBlank && elementContainsJustNonBreakingSpace(getCurrentElementPosition(start)))
        deleteContentAtPosition(true, start, start + 1);
}

/// What was typed, with blanks for tabs and non-breaking spaces.
std::string Typist::plainText() const {
    Core::String text;
    const int firstLine = getCurrentElementPosition(start_);
    for (int line = firstLine; line >= 0; line = getNextElementPosition(line))
        text += (line > firstLine ? L"\n" : L"") + lineAt(line);
    text.replaceAll(L"&#x00A0;", L" ");
    text.replaceAll(L"\x00A0", L" ");
    text.replaceAll(L"&lt;", L"<");
    text.replaceAll(L"&gt;", L">");
    text.replaceAll(L"&quot;", L"\"");
    text.replaceAll(L"&apos;", L"'");
    text.replaceAll(L"&amp;", L"&");
    return Core::Encoder::toDisplayText(text);
}

Core::String Typist::lineAt(int line) const {
    const int start = getNextEditablePositionInXml(line);
    const int end = getClosingTagForTagAtPosition(line);
    const Core::String content = Document::of(*this).text().slice(start, end);
    return content == L"&#x00A0;" || content == L"\x00A0" ? Core::String() : content;
}

/// Whether a blank stands there that does not show, as at the end of a line.
bool Typist::isHidden(int position) const {
    int shown = position;
    skipSpacesFromPos(shown, false);
    return unitAt(position) == L' ' && shown > position;
}

int Typist::startOfNextLine() const {
    const int end = getLastPositionInElementContaining(at_);
    return getNextEditablePositionInXml(getNextElementPosition(end));
}

/// An empty line has its placeholder, before which it ends.
int Typist::endOfPreviousLine(bool isEmpty) const {
    const int line = getPreviousElementPosition(at_);
    return isEmpty ? getNonBreakingSpacePosition(line) : getClosingTagForTagAtPosition(line);
}
