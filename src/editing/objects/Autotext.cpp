// Stored texts that are put in as one.

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"
#include "document/caret/Lines.h"
#include "document/caret/Selection.h"
#include "document/caret/Words.h"
#include "editing/typing/Typing.h"
#include "text/Markup.h"

using Core::String;
using Typing::Insertion;

namespace {

/// At the start of a block there is none: what stands in the block before is not its word.
void selectWordBeforeCaret(Document& document) {
    const int caret = document.caret();
    Words::stepLeft(document, true);
    if (!Lines::areInOneBlock(document, caret, document.caret()))
        document.setCaret(caret);
}

/// Escaped, and with every second one of the blanks in a row kept from collapsing.
String withVisibleBlanks(String text) {
    Markup::escape(text);
    text.replaceAll(L"  ", L" &#x00A0;");
    return text;
}

String linesWithSoftBreaks(String text) {
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

/// Turns a stored text into what is inserted; answers whether that is markup.
bool prepareAutotext(String& text) {
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

} // namespace

void EditableDocumentBuffer::insertAutotext(const String& text, bool replaceWord) {
    Document& document = *document_;
    String inserted = text;
    const bool isXml = prepareAutotext(inserted);
    if (inserted.empty() || !Typing::canInsert(document, inserted))
        return;
    RecordedCommand command(document);
    document.recordCaret();
    Selection::collapse(document);
    if (replaceWord)
        selectWordBeforeCaret(document);
    if (Typing::insert(document, inserted, isXml, false) == Insertion::Done)
        document.endTyping();
    else
        command.takeBack();
}
