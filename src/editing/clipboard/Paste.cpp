#include "editing/clipboard/Paste.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/caret/Stops.h"
#include "editing/clipboard/BlockPaste.h"
#include "editing/clipboard/PastedMarkup.h"
#include "editing/deletion/Deletion.h"
#include "editing/lists/Lists.h"
#include "editing/typing/Typing.h"
#include "text/Markup.h"

#include <optional>

using Core::String;

namespace {

using Piece = PastedMarkup::Piece;

/// A placeholder gives way to the line, and stays where the line shows nothing.
bool pasteLine(Document& document, const String& line) {
    if (line.empty())
        return false;
    Typing::removePlaceholder(document, document.caret());
    if (Typing::insert(document, line, true, false) != Typing::Insertion::Done)
        return false;
    document.endTyping();
    Placeholders::repairEmptied(document, document.caret(), false);
    return true;
}

/// Whether the paragraph at the caret has something that a pasted one would join.
bool isInFullLine(const Document& document) {
    return Lists::emptyBlockAround(document, document.caret()) < 0 &&
           document.isInEditable(document.caret());
}

bool pastePieces(Document& document, const PastedMarkup& pasted) {
    const std::vector<Piece>& pieces = pasted.pieces();
    const bool isParagraph = pieces.size() == 1 && pieces.front().kind == Piece::Kind::Paragraph;
    if (pasted.isLine() || (isParagraph && isInFullLine(document)))
        return pasteLine(document, pieces.front().content);
    if (BlockPaste paste(document, pieces); paste.fits())
        return paste.run();
    const std::optional<String> lines = pasted.asLines();
    return lines && pasteLine(document, *lines);
}

/// Plain text as a line of markup in which all blanks show.
String asLine(String text) {
    Markup::escape(text);
    text.replaceAll(L"\t", L"<qf:tab/>");
    text.replaceAll(L"  ", L" &#x00A0;");
    const bool beginsWithBlank = text.startsWith(L" ");
    return beginsWithBlank ? L"&#x00A0;" + text.subString(1, static_cast<unsigned>(text.length()))
                           : text;
}

} // namespace

bool Paste::markup(Document& document, const String& xml) {
    String unixText = xml;
    unixText.replaceAll(L"\r\n", L"\n");
    const std::optional<PastedMarkup> pasted = PastedMarkup::read(document.names, unixText);
    if (!pasted || pasted->pieces().empty() || !Typing::canInsert(document, unixText) ||
        !Deletion::isInErasablePlace(document))
        return false;
    RecordedCommand command(document);
    if (document.hasSelection())
        Deletion::removeSelection(document);
    if (Stops::canHoldCaret(document, document.caret()) && pastePieces(document, *pasted) &&
        command.mayStand())
        return true;
    command.takeBack();
    return false;
}

bool Paste::text(Document& document, const String& plain) {
    String unixText = plain;
    unixText.replaceAll(L"\r\n", L"\n");
    unixText.replaceAll(L"\r", L"\n");
    auto lines = unixText.split(L'\n');
    if (lines.size() > 1 && lines.back().empty())
        lines.pop_back(); // what ends with a line end has no further line
    if (lines.size() == 1)
        return Paste::markup(document, asLine(lines.front()));
    String blocks;
    for (const String& line : lines)
        blocks +=
            L"<fo:block>" + (line.empty() ? String(L"&#x00A0;") : asLine(line)) + L"</fo:block>";
    return Paste::markup(document, blocks);
}

bool EditableDocumentBuffer::pasteMarkup(const String& xml) {
    return Paste::markup(*document_, xml);
}

bool EditableDocumentBuffer::pasteText(const String& text) {
    return Paste::text(*document_, text);
}
