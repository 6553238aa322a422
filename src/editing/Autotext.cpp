// Stored texts that are put in as one.

#include "document/EditableDocumentBuffer.h"

#include "document/RecordedCommand.h"

using Core::String;

void EditableDocumentBuffer::insertAutotext(const String& text, bool replaceWord) {
    String inserted = text;
    const bool isXml = prepareAutotext(inserted);
    if (inserted.empty() || !canInsertText(inserted))
        return;
    RecordedCommand command(this);
    recordCaret();
    resetSelection();
    if (replaceWord)
        selectWordBeforeCaret();
    if (tryInsertText(inserted, isXml, false) == Insertion::Done)
        endKeyTypingSequence();
    else
        command.takeBack();
}

/// At the start of a block there is none: what stands in the block before is not its word.
void EditableDocumentBuffer::selectWordBeforeCaret() {
    const int caret = caretPos_;
    jumpToPreviousWord(true);
    if (!isInBlockOf(caret, caretPos_))
        setCaret(false, caret);
}

/// Turns a stored text into what is inserted; answers whether that is markup.
bool EditableDocumentBuffer::prepareAutotext(String& text) const {
    String trimmed = text;
    if (trimmed.trim().startsWith(L"xml:"))
        text = trimmed.substringAfter(L"xml:");
    else if (text.find(L'\r', 0) >= 0)
        text = linesWithSoftBreaks(text);
    else if (text.find(L"  ", 0) >= 0)
        text = withVisibleBlanks(text);
    else
        return false;
    return true;
}

String EditableDocumentBuffer::linesWithSoftBreaks(String text) const {
    text.replaceAll(L"\r\n", L"\r");
    auto lines = text.split(L'\r');
    if (lines.back().empty())
        lines.pop_back(); // what ends with a line end has no further line
    String joined;
    for (const String& line : lines) {
        if (&line != &lines.front())
            joined += L"<fo:block />";
        joined += String(line).trim().empty() ? String(L"&#x00A0;") : withVisibleBlanks(line);
    }
    return joined;
}

/// Escaped, and with every second one of the blanks in a row kept from collapsing.
String EditableDocumentBuffer::withVisibleBlanks(String text) const {
    convertToValidXMLText(text);
    text.replaceAll(L"  ", L" &#x00A0;");
    return text;
}
