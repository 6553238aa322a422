// Enter, Shift+Enter, and the breaks of pages and columns.

#include "document/EditableDocumentBuffer.h"

#include "document/RecordedCommand.h"
#include "editing/HardBreak.h"
#include "editing/LineBreak.h"
#include "editing/ListBuffer.h"
#include "text/XmlScan.h"

using Core::String;

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

} // namespace

// The commands

void EditableDocumentBuffer::insertBreak(BreakType type, bool after) {
    if (type == BreakType::List) {
        insertListBreak();
        return;
    }
    if (inListItemLabel(caretPos_) || !(hasSelectedText() || canHoldCaret(caretPos_)))
        return;
    RecordedCommand command(this);
    if (hasSelectedText())
        removeSelectionBeforeInsertion();
    if (!canHoldCaret(caretPos_)) {
        command.takeBack();
        return;
    }
    const int block = insertLineBreak(type != BreakType::Soft);
    const wchar_t* const value = breakValue(type);
    if (value && block >= 0)
        setBreakProperty(block, {after ? L"fo:break-after" : L"fo:break-before", value});
    if (!command.mayStand())
        command.takeBack();
}

void EditableDocumentBuffer::insertListBreak() {
    getListBuffer().breakList();
}

/// Gives the block the property. Of its other attributes those stay that say how it looks, and what
/// its content needs to be understood.
void EditableDocumentBuffer::setBreakProperty(int block, const EditableProperty& property) {
    const PropertyCollection all = getPropertiesFromElementAt(block);
    PropertyCollection kept = all;
    kept.removeNonFormattingProperties();
    for (const EditableProperty& attribute : all.getPropertyList())
        if (attribute.getNamespace() == L"xmlns")
            kept.addProperty(attribute, true);
    kept.addProperty(property, true);
    replaceProperties(block, kept);
}

int EditableDocumentBuffer::insertLineBreak(bool hard) {
    if (hard)
        return LineBreak(*this).run();
    handleElementsContainingJustWhiteSpaces(caretPos_, true);
    insertSoftBreak();
    return -1;
}

int EditableDocumentBuffer::insertHardBreak() {
    return HardBreak(*this).run();
}

// The soft break

/// A line that has nothing but soft breaks around it keeps a placeholder.
void EditableDocumentBuffer::insertSoftBreak() {
    static const String placeholder(XmlScan::nbspEntity);
    if (!inEditableElement(caretPos_)) // beside a table, in no block yet
        insertXmlTextAtEditablePosition(caretPos_, placeholder);
    bool isCharacter = false;
    bool follows = false;
    const bool isOwnLine = singleNbspBetweenLineBreakTags(caretPos_, isCharacter, follows);
    const bool isBeforeLine =
        getNameForTagAtPosition(caretPos_, true).substringAfter(L"/") == L"fo:block";
    const bool isInLastInline = !isBeforeLine && isLastOnLine(caretPos_);
    String text = L"<fo:block />";
    if (isOwnLine || isFirstOnLine(caretPos_))
        text = placeholder + text;
    if (isOwnLine || isBeforeLine || isInLastInline)
        text += placeholder;
    const InsertedRange inserted = insertXmlTextAtEditablePosition(caretPos_, text);
    if (caretPos_ <= inserted.start) // went back over layout at the start of the new line
        setCaret(false, inserted.end);
    if (isInLastInline && !isOwnLine)
        moveCaretLeft(false, false, false);
    leaveSkippedPlaceInLine();
    recordCaret();
    notifySelectionChanged();
}

/// Whether nothing shows between the start of a line and the position, or only tags stand between
/// the start of its block and the position.
bool EditableDocumentBuffer::isFirstOnLine(int position) const {
    const String before = getNameForTagAtPosition(getPreviousEditablePositionInXml(position), true);
    const int block = searchParent(L"fo:block", position, false, true, L"");
    return isLineStart(position) ||
           (!before.empty() && block >= 0 && position == getNextValidCaretPos(block));
}

/// Whether an element ends at the position and nothing more shows in its block or, behind an
/// inline, on its line.
bool EditableDocumentBuffer::isLastOnLine(int position) const {
    if (isInlineEditableElementClosingTagName(getNameForTagAtPosition(position, true)) &&
        isLineEnd(position))
        return true;
    const int block = searchParent(L"fo:block", position, false, true, L"");
    return XmlScan::closingAt(text_.view(), position) && block >= 0 &&
           position == getPreviousValidCaretPos(getClosingTagForTagAtPosition(block));
}

/// Where nothing shows right at the caret, the caret goes on over white space, and back from a tag
/// on the same line, to the next stop of its block.
void EditableDocumentBuffer::leaveSkippedPlaceInLine() {
    if (!isSkippedByCaret(caretPos_))
        return;
    const int next = getNextValidCaretPos(caretPos_);
    const int previous = getPreviousValidCaretPos(caretPos_);
    const bool staysOnLine =
        onTagStartPosition(caretPos_) && !blockTagLiesBetween(previous, caretPos_);
    const bool goesBack =
        isInBlockOf(caretPos_, previous) && (staysOnLine || !isInBlockOf(caretPos_, next));
    const int stop = goesBack ? previous : next;
    if (!isOnInvalidPosition(stop))
        setCaret(false, stop);
}
