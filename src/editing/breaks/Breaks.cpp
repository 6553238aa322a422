// Enter, Shift+Enter, and the breaks of pages and columns.

#include "editing/breaks/Breaks.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/caret/Lines.h"
#include "document/caret/Moves.h"
#include "document/caret/Stops.h"
#include "editing/breaks/HardBreak.h"
#include "editing/breaks/LineBreak.h"
#include "editing/deletion/Deletion.h"
#include "editing/lists/ListBuffer.h"
#include "editing/lists/Lists.h"
#include "editing/typing/Typing.h"
#include "text/XmlScan.h"

using Core::String;
using Typing::InsertedRange;

namespace {

/// What the property says that puts a block on another page; null where the break needs none.
const wchar_t* breakValue(BreakType type) {
    switch (type) {
    case BreakType::Page:
        return L"page";
    case BreakType::Column:
        return L"column";
    case BreakType::OddPage:
        return L"odd-page";
    case BreakType::EvenPage:
        return L"even-page";
    default:
        return nullptr;
    }
}

/// Gives the block the property. Of its other attributes those stay that say how it looks, and what
/// its content needs to be understood.
void setBreakProperty(Document& document, int block, const EditableProperty& property) {
    const PropertyCollection all = Attributes::of(document, block);
    PropertyCollection kept = all;
    kept.removeNonFormattingProperties();
    for (const EditableProperty& attribute : all.getPropertyList())
        if (attribute.getNamespace() == L"xmlns")
            kept.addProperty(attribute, true);
    kept.addProperty(property, true);
    Attributes::replace(document, block, kept);
}

/// Whether nothing shows between the start of a line and the position, or only tags stand between
/// the start of its block and the position.
bool isFirstOnLine(const Document& document, int position) {
    const XmlText& text = document.text();
    const String before = text.nameAt(text.previous(position));
    const int block = text.ancestor(position, L"fo:block");
    return Lines::isStart(document, position) ||
           (!before.empty() && block >= 0 && position == Stops::next(document, block));
}

/// Whether an element ends at the position and nothing more shows in its block or, behind an
/// inline, on its line.
bool isLastOnLine(const Document& document, int position) {
    const XmlText& text = document.text();
    if (document.names.closesInline(text.tagName(position)) && Lines::isEnd(document, position))
        return true;
    const int block = text.ancestor(position, L"fo:block");
    return text.closingAt(position) && block >= 0 &&
           position == Stops::previous(document, text.closingTag(block));
}

} // namespace

void Breaks::insertListBreak(Document& document) {
    Lists::breakList(document);
}

int Breaks::insertLineBreak(Document& document, bool hard) {
    if (hard)
        return LineBreak(document).run();
    Placeholders::repairEmptied(document, document.caret(), true);
    Breaks::insertSoftBreak(document);
    return -1;
}

int Breaks::insertHardBreak(Document& document) {
    return HardBreak(document).run();
}

void Breaks::insertSoftBreak(Document& document) {
    static const String placeholder(XmlScan::nbspEntity);
    if (!document.isInEditable(document.caret())) // beside a table, in no block yet
        Typing::insertMarkupAt(document, document.caret(), placeholder);
    bool isCharacter = false;
    bool follows = false;
    const bool isOwnLine =
        Placeholders::isBetweenBreaks(document, document.caret(), isCharacter, follows);
    const bool isBeforeLine =
        document.text().nameAt(document.caret()).substringAfter(L"/") == L"fo:block";
    const bool isInLastInline = !isBeforeLine && isLastOnLine(document, document.caret());
    String text = L"<fo:block />";
    if (isOwnLine || isFirstOnLine(document, document.caret()))
        text = placeholder + text;
    if (isOwnLine || isBeforeLine || isInLastInline)
        text += placeholder;
    const InsertedRange inserted = Typing::insertMarkupAt(document, document.caret(), text);
    if (document.caret() <= inserted.start) // went back over layout at the start of the new line
        document.setCaret(inserted.end);
    if (isInLastInline && !isOwnLine)
        Moves::left(document);
    Breaks::leaveSkippedPlace(document);
    document.recordCaret();
    document.notifySelectionChanged();
}

void Breaks::leaveSkippedPlace(Document& document) {
    if (!Stops::isSkipped(document, document.caret()))
        return;
    const int next = Stops::next(document, document.caret());
    const int previous = Stops::previous(document, document.caret());
    const bool staysOnLine = document.text().onTagStart(document.caret()) &&
                             !Lines::blockTagLiesBetween(document, previous, document.caret());
    const bool goesBack = Lines::areInOneBlock(document, document.caret(), previous) &&
                          (staysOnLine || !Lines::areInOneBlock(document, document.caret(), next));
    const int stop = goesBack ? previous : next;
    if (document.text().isValid(stop))
        document.setCaret(stop);
}

void EditableDocumentBuffer::insertBreak(BreakType type, bool after) {
    Document& document = *document_;
    if (type == BreakType::List) {
        Breaks::insertListBreak(document);
        return;
    }
    if (document.text().isInLabel(document.caret()) ||
        !(document.hasSelection() || Stops::canHoldCaret(document, document.caret())))
        return;
    RecordedCommand command(document);
    if (document.hasSelection())
        Deletion::removeSelection(document);
    if (!Stops::canHoldCaret(document, document.caret())) {
        command.takeBack();
        return;
    }
    const int block = Breaks::insertLineBreak(document, type != BreakType::Soft);
    const wchar_t* const value = breakValue(type);
    if (value && block >= 0)
        setBreakProperty(document, block, {after ? L"fo:break-after" : L"fo:break-before", value});
    if (!command.mayStand())
        command.takeBack();
}

void EditableDocumentBuffer::insertListBreak() {
    Breaks::insertListBreak(*document_);
}

void EditableDocumentBuffer::insertLineBreak(bool hard) {
    Document& document = *document_;
    if (!document.text().isValid(document.caret()))
        return;
    carryOut(document, [&] {
        if (document.hasSelection())
            Deletion::removeSelection(document);
        Breaks::insertLineBreak(document, hard);
    });
}

String EditableDocumentBuffer::insertHardBreak() {
    if (document_->hasSelection())
        Deletion::removeSelection(*document_);
    HardBreak hardBreak(*document_);
    hardBreak.run();
    return hardBreak.inserted();
}

void EditableDocumentBuffer::insertSoftBreak() {
    Breaks::insertSoftBreak(*document_);
}
