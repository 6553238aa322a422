// Text and markup put in at the caret.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "document/EditActionGroup.h"
#include "document/EditableDocumentBufferState.h"
#include "document/MarkupChange.h"
#include "document/RecordedCommand.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <optional>

using Core::String;
using XmlScan::Text;

namespace {

constexpr const wchar_t* entity = L"&#x00A0;";
constexpr int entityLength = 8;

bool isPlaceholder(const String& text) {
    return text == entity || text == L"\x00A0";
}

bool startsWithSpace(const String& text) {
    return (!text.empty() && String::isSpace(text.charAt(0))) || text.startsWith(entity);
}

bool isBlank(const String& text) {
    const Text units = text.view();
    return std::all_of(units.begin(), units.end(), String::isSpace);
}

} // namespace

// The commands

bool EditableDocumentBuffer::insertText(const String& text, bool isXml, bool selectInserted) {
    return tryInsertText(text, isXml, selectInserted) != Insertion::None;
}

void EditableDocumentBuffer::insertText(const String& text, const PropertyCollection& properties,
                                        bool isXml, bool selectInserted) {
    if (properties.isEmpty() || text.empty()) {
        insertText(text, isXml, selectInserted);
        return;
    }
    if (!canInsertText(text))
        return;
    RecordedCommand command(this);
    const int element = getCurrentElementPosition(caretPos_);
    const bool onPlaceholder = isOnlyPlaceholderAround(element);
    if (!isXml && hasSelectedText())
        removeSelectionBeforeInsertion();
    if (!isXml && !canHoldCaret(caretPos_)) {
        command.takeBack();
        return;
    }
    PropertyCollection own = properties;
    PropertyCollection ofBlock;
    if (!onPlaceholder || isInlineEditableElementName(getNameForTagAtPosition(element, true))) {
        own.setNamespaceForProperties(L"fo");
        ofBlock = getAndRemoveNonInlineProperties(own);
    }
    if (onPlaceholder && !own.isEmpty())
        setPropertiesForElementAt(element, own);
    const Insertion insertion = onPlaceholder || own.isEmpty()
                                    ? tryInsertText(text, isXml, selectInserted)
                                    : insertInline(text, own, isXml, selectInserted);
    if (insertion == Insertion::Done)
        formatBlockAround(getSelectionStartIndex(), ofBlock);
    if (insertion != Insertion::Done || !command.mayStand())
        command.takeBack();
}

/// Whether nothing is selected and the element is editable and holds just its placeholder.
bool EditableDocumentBuffer::isOnlyPlaceholderAround(int element) const {
    return !hasSelectedText() && isEditableElementAtPosition(element) &&
           elementContainsJustNonBreakingSpace(element);
}

/// Inserts text in an inline of its own and leaves it selected or the caret inside, so that what is
/// typed next is formatted alike.
EditableDocumentBuffer::Insertion
EditableDocumentBuffer::insertInline(String text, PropertyCollection properties, bool isXml,
                                     bool selectInserted) {
    if (text == L" ")
        text = entity;
    else if (!isXml)
        convertToValidXMLText(text);
    properties.removeNamespaceForPropertiesWith(L"fo");
    const String markup =
        L"<fo:inline " + properties.getPropertiesString() + L">" + text + L"</fo:inline>";
    const Insertion insertion = tryInsertText(markup, true, selectInserted);
    if (insertion == Insertion::Done && !selectInserted) {
        moveCaretLeft(false, false, false);
        recordCaret();
    }
    return insertion;
}

bool EditableDocumentBuffer::insertTextAtPosition(int position, const String& text, bool isXml,
                                                  bool selectInserted) {
    if (!canHoldCaret(position) || XmlScan::unitStart(text_.view(), position) != position ||
        text.empty())
        return false;
    RecordedCommand command(this);
    recordCaret();
    setCaret(false, position); // which the editing modes may refuse
    const Insertion insertion =
        caretPos_ == position ? tryInsertText(text, isXml, selectInserted) : Insertion::None;
    if (insertion != Insertion::Done)
        command.takeBack();
    return insertion != Insertion::None;
}

void EditableDocumentBuffer::insertTab() {
    if (inEditableElement(caretPos_))
        insertText(L"<qf:tab/>", true, false);
}

void EditableDocumentBuffer::replaceXmlText(int start, int end, const String& xml) {
    if (isOnInvalidPosition(start) || isOnInvalidPosition(end) || end < start)
        return;
    RecordedCommand command(this);
    recordCaret();
    recordDeletion(start, deleteXmlText(start, end));
    insertXmlTextAtPosition(start, xml);
    recordInsertion(start, xml);
    moveCaretOutOfMarkup();
    recordCaret();
    if (!command.mayStand())
        command.takeBack();
}

/// Markup that was put in may have made the text around the caret a part of a comment or a section,
/// and a caret on the last unit that was replaced has landed one before the place.
void EditableDocumentBuffer::moveCaretOutOfMarkup() {
    if (!isOnInvalidPosition(caretPos_))
        selectRange(outsideMarkup(selectionPivotPos_), outsideMarkup(caretPos_));
}

// Typing

bool EditableDocumentBuffer::canInsertText(const String& text) const {
    return !isOnInvalidPosition(caretPos_) && !isOutOfReach(caretPos_) &&
           !inListItemLabel(caretPos_) && (!text.empty() || hasSelectedText());
}

EditableDocumentBuffer::Insertion
EditableDocumentBuffer::tryInsertText(const String& text, bool isXml, bool selectInserted) {
    if (!canInsertText(text))
        return Insertion::None;
    std::optional<EditableDocumentBufferState> before(this);
    const String oldText = text_;
    CommandScope scope(this);
    if (isXml)
        endKeyTypingSequence(); // markup starts an undo step of its own
    const bool isFirst = !typingGroup_;
    if (isFirst)
        typingGroup_ = editActionStack_.openGroup();
    const std::size_t recorded = editActionStack_.recordedCount();
    Insertion insertion = insertInPlaceOfSelection(text, isXml, selectInserted);
    if (insertion == Insertion::Done && !MarkupChange(oldText, text_).keepsWellFormed())
        insertion = Insertion::RolledBack;
    if (insertion != Insertion::Done) {
        before->restorePreviousState();
        scope.discardNotices();
        return insertion;
    }
    before.reset(); // the record that grows is then shared with nobody and need not be copied
    editActionStack_.mergeTyping(editActionStack_.recordedCount() - recorded, isFirst);
    return insertion;
}

EditableDocumentBuffer::Insertion
EditableDocumentBuffer::insertInPlaceOfSelection(const String& text, bool isXml,
                                                 bool selectInserted) {
    std::optional<EditActionGroup> group;
    if (hasSelectedText()) {
        group.emplace(this);
        removeSelectionBeforeInsertion();
    }
    const bool isPlainText = !isXml && !text.empty();
    if (isOnInvalidPosition(caretPos_) || (isPlainText && !canHoldCaret(caretPos_)))
        return Insertion::None;
    String unixText = text;
    unixText.replaceAll(L"\r\n", L"\n");
    const InsertedRange inserted = isXml ? insertMarkup(unixText) : insertPlainText(unixText);
    if (selectInserted)
        selectRange(inserted.start, inserted.end);
    if (isXml)
        moveCaretOutOfMarkup();
    recordCaret();
    return Insertion::Done;
}

void EditableDocumentBuffer::removeSelectionBeforeInsertion() {
    recordCaret();
    selectRange(getSelectionStartIndex(), selectionUpperEnd());
    recordCaret();
    deleteSelection(false);
    setCaret(false, selectionPivotPos_);
    recordCaret();
}

EditableDocumentBuffer::InsertedRange EditableDocumentBuffer::insertMarkup(const String& xml) {
    const int start = caretPos_;
    const InsertedRange inserted =
        insertXmlTextAtEditablePosition(caretPos_, xml == L" " ? String(entity) : xml);
    if (caretPos_ > start && !elementHasStop(start) && beginsLine(start) &&
        nbspFollowedByWspaceAndElementCloseTagAt(caretPos_))
        deleteSuperfluousPlaceholder();
    return inserted;
}

/// Whether the element whose tag stands at the position has a stop before its end.
bool EditableDocumentBuffer::elementHasStop(int element) const {
    const int closing = getClosingTagForTagAtPosition(element);
    const int stop = getNextEditablePositionInFo(element, false, false);
    return stop >= 0 && stop <= closing;
}

EditableDocumentBuffer::InsertedRange EditableDocumentBuffer::insertPlainText(const String& text) {
    if (text.empty())
        return {caretPos_, caretPos_};
    if (!startsWithSpace(text)) {
        turnEntityBeforeCaretIntoBlank();
        if (beginsLine(caretPos_) && nbspFollowedByWspaceAndElementCloseTagAt(caretPos_))
            deleteSuperfluousPlaceholder();
    }
    if (text == L" " || wouldBeAllOfLine(text))
        return handleInsertedSpace(L" ");
    if (isBeforeOnlyPlaceholder(caretPos_))
        handleElementsContainingJustNonBreakingSpaces(caretPos_);
    String escaped = text;
    return insertTextAtEditablePosition(caretPos_, escaped);
}

/// Whether nothing but white space would stand in the line, which would not show. A line feed
/// beside a table asks for an empty block.
bool EditableDocumentBuffer::wouldBeAllOfLine(const String& text) const {
    const bool isInBlock = inEditableElement(caretPos_);
    return isBlank(text) && (isInBlock ? isBeforeOnlyPlaceholder(caretPos_) : text != L"\n");
}

/// Whether the element holds just a placeholder with the position before it. One with the caret
/// behind it is a blank that was typed, and stays.
bool EditableDocumentBuffer::isBeforeOnlyPlaceholder(int position) const {
    const int element = getCurrentElementPosition(position);
    return elementContainsJustNonBreakingSpace(element) &&
           position <= getNonBreakingSpacePosition(element);
}

/// The entity that a blank became is a plain blank again once something follows it.
void EditableDocumentBuffer::turnEntityBeforeCaretIntoBlank() {
    const int position = caretPos_ - entityLength;
    // Deliberate: the classifier is given the offset before the entity, not the character there, so
    // that the entity stays at a handful of offsets near the start of the text; recorded scripts
    // rely on the result.
    if (position <= 0 || !nextContentEquals(entity, position) ||
        String::isSpace(static_cast<wchar_t>(position - 1)) || !blankWouldShowAt(position))
        return;
    const EditActionGroup group(this);
    recordCaret();
    recordDeletion(position, deleteXmlText(position, position + entityLength - 1));
    insertXmlTextAtEditablePosition(position, L" ");
}

/// Whether a blank put at the position, with a letter behind it, is rendered: not at the start of a
/// block, behind a soft break or behind another blank.
bool EditableDocumentBuffer::blankWouldShowAt(int position) const {
    const Text content = text_.view();
    if (String::isSpace(XmlScan::unitAt(content, position - 1)))
        return false;
    const int block = searchParent(L"fo:block", position, false, true, L"");
    int at = getPreviousEditablePositionInXml(position);
    while (at > block && (String::isSpace(XmlScan::unitAt(content, at)) ||
                          isInlineEditableElementName(getNameForTagAtPosition(at, true))))
        at = getPreviousEditablePositionInXml(at);
    return at > block && getNameForTagAtPosition(at, true).substringAfter(L"/") != L"fo:block";
}

/// Whether a tag stands directly before the position. Behind text, a non-breaking space at the end
/// is no placeholder but a blank that somebody typed.
bool EditableDocumentBuffer::beginsLine(int position) const {
    return position > 0 && XmlScan::unitAt(text_.view(), position - 1) == L'>';
}

/// Removes from the caret up to the next tag.
void EditableDocumentBuffer::deleteSuperfluousPlaceholder() {
    const int position = caretPos_;
    recordCaret();
    recordDeletion(position, deleteXmlText(position, getNextTagPosition(position) - 1));
    recordCaret();
}

EditableDocumentBuffer::InsertedRange
EditableDocumentBuffer::insertTextAtEditablePosition(int position, String& text) {
    convertToValidXMLText(text);
    if (text == L" " || text == L"\t")
        text = entity;
    return insertXmlTextAtEditablePosition(position, text);
}

EditableDocumentBuffer::InsertedRange
EditableDocumentBuffer::insertXmlTextAtEditablePosition(int position, const String& xml) {
    const EditActionGroup group(this);
    recordCaret();
    if (isOnInvalidPosition(position))
        return {caretPos_, caretPos_};
    if (!inEditableElement(position) && (afterFOTable(caretPos_) || beforeFOTable(caretPos_))) {
        position = insertBlockBesideTable(position);
        if (xml == L"\n") {
            recordCaret();
            return {position, position};
        }
    }
    if (!isPlaceholder(xml))
        position = removePlaceholderBetweenBreaks(position);
    insertXmlTextAtPosition(position, xml);
    recordInsertion(position, xml);
    putCaretOnInsertedPlaceholder(position, position + xml.length());
    leaveInvisibleSpaceBeforeCaret();
    recordCaret();
    return {position, position + xml.length()};
}

/// Where the range from `start` up to but excluding `end` put in what is now all that its element
/// shows, the caret stands before that.
void EditableDocumentBuffer::putCaretOnInsertedPlaceholder(int start, int end) {
    const int element = getCurrentElementPosition(caretPos_);
    const int placeholder = getNonBreakingSpacePosition(element);
    if (!elementContainsJustNonBreakingSpace(element) || placeholder < start || end <= placeholder)
        return;
    setCaret(false, placeholder);
    recordCaret();
}

/// Makes a block to type in where the caret stands beside a table; answers the offset inside it.
int EditableDocumentBuffer::insertBlockBesideTable(int position) {
    static const String block = L"<fo:block></fo:block>";
    const int inside = position + String(L"<fo:block>").length();
    const bool caretThere = caretPos_ == position;
    const int caret = caretPos_;
    const int pivot = selectionPivotPos_;
    insertXmlTextAtPosition(position, block);
    editActionStack_.addAction(EditAction(EditAction::EditInsert, position, caret, pivot, block));
    if (caretThere)
        setCaret(false, inside);
    recordCaret();
    return inside;
}

/// A line between two line breaks that held only its placeholder loses it; answers where to insert.
int EditableDocumentBuffer::removePlaceholderBetweenBreaks(int position) {
    bool isCharacter = false;
    bool follows = false;
    if (!singleNbspBetweenLineBreakTags(position, isCharacter, follows))
        return position;
    const int length = isCharacter ? 1 : entityLength;
    const int start = follows ? position : position - length;
    const String removed = deleteXmlText(start, start + length - 1);
    if (!follows)
        setCaret(false, start);
    recordCaret();
    recordDeletion(start, removed);
    return start;
}

/// The caret does not stay behind white space that is no stop.
void EditableDocumentBuffer::leaveInvisibleSpaceBeforeCaret() {
    int position = caretPos_;
    const bool metElement = skipSpacesBackwards(position, false);
    if (!metElement && !nextContentEquals(entity, position) && position != caretPos_)
        position = getNextEditablePositionInXml(position);
    if (position != caretPos_ && !isOnInvalidPosition(position))
        setCaret(false, position);
}

EditableDocumentBuffer::InsertedRange
EditableDocumentBuffer::handleInsertedSpace(const String& text) {
    if (text != L" ")
        return {caretPos_, caretPos_};
    if (!inEditableElement(caretPos_))
        return insertXmlTextAtEditablePosition(caretPos_, entity);
    if (isBeforeOnlyPlaceholder(caretPos_))
        return passPlaceholder();
    const Text content = text_.view();
    const wchar_t before = caretPos_ > 0 ? XmlScan::unitAt(content, caretPos_ - 1) : L'>';
    const wchar_t after = XmlScan::unitAt(content, caretPos_);
    if (!String::isSpace(before) && !String::isSpace(after) && after != L'<' && before != L'>')
        return insertXmlTextAtEditablePosition(caretPos_, L" ");
    const int spaceBefore = String::isSpace(before) ? 1 : 0;
    const int previous = caretPos_ - spaceBefore - entityLength;
    if (previous > 0 && nextContentEquals(entity, previous) &&
        !String::isSpace(XmlScan::unitAt(content, previous - 1)) &&
        XmlScan::unitAt(content, previous - 1) != L'>')
        return insertXmlTextAtEditablePosition(previous, L" ");
    return insertXmlTextAtEditablePosition(caretPos_ - spaceBefore, entity);
}

/// A blank typed on a placeholder is that placeholder: the caret goes behind it.
EditableDocumentBuffer::InsertedRange EditableDocumentBuffer::passPlaceholder() {
    const int element = getCurrentElementPosition(caretPos_);
    const int start = getNonBreakingSpacePosition(element);
    const int end = start + XmlScan::placeholderLength(text_.view(), start);
    recordCaret();
    setCaret(false, end);
    recordCaret();
    return {start, end};
}

void EditableDocumentBuffer::handleElementsContainingJustNonBreakingSpaces(int position) {
    const EditActionGroup group(this);
    const int element = getCurrentElementPosition(position);
    if (!elementContainsJustNonBreakingSpace(element))
        return;
    const int start = getNonBreakingSpacePosition(element);
    const int end = start + XmlScan::placeholderLength(text_.view(), start);
    recordCaret();
    recordDeletion(start, deleteXmlText(start, end - 1));
    recordCaret();
}

// Markup for insertion

namespace {

/// Pretty-prints markup, each tag on a line of its own; what stands outside tags is kept as it is.
class Indenter {
public:
    static std::wstring indent(Text xml, int depth) {
        Indenter indenter(xml, depth);
        int done = 0;
        const int size = static_cast<int>(xml.size());
        for (int tag = XmlScan::find(xml, L'<', 0); tag >= 0 && done < size;
             tag = XmlScan::find(xml, L'<', done)) {
            indenter.result_ += XmlScan::slice(xml, done, tag);
            done = indenter.appendElement(tag);
        }
        return indenter.result_.append(XmlScan::slice(xml, done, size));
    }

private:
    Indenter(Text xml, int depth) : xml_(xml), depth_(depth) {}

    /// Appends the element that begins at the tag; answers the offset behind it.
    int appendElement(int tag) {
        const int tagEnd = XmlScan::tagEnd(xml_, tag);
        const int closing = XmlScan::openingAt(xml_, tag) ? XmlScan::closingTag(xml_, tag) : -1;
        if (tagEnd < 0 || XmlScan::ignoredAt(xml_, tag))
            return append(tag, behindSection(tag));
        newLine();
        if (closing < 0)
            return append(tag, tagEnd + 1);
        const int content = XmlScan::skipSpaces(xml_, tagEnd + 1);
        const int closingEnd = XmlScan::tagEnd(xml_, closing);
        append(tag, tagEnd + 1);
        const Text inner = XmlScan::slice(xml_, std::min(content, closing), closing);
        if (inner.find(L'<') == Text::npos) {
            result_ += inner;
        } else {
            result_ += indent(inner, depth_ + 1);
            newLine();
        }
        return append(closing, closingEnd + 1);
    }

    int behindSection(int tag) {
        const int behind = XmlScan::stepForward(xml_, tag);
        return behind < 0 ? static_cast<int>(xml_.size()) : behind;
    }

    int append(int start, int end) {
        result_ += XmlScan::slice(xml_, start, end);
        return end;
    }

    void newLine() {
        result_ += L'\n';
        result_.append(static_cast<std::size_t>(depth_) + 1, L'\t');
    }

    Text xml_;
    int depth_;
    std::wstring result_;
};

} // namespace

String EditableDocumentBuffer::indentXmlText(const String& xml, int position) const {
    int depth = 0;
    for (int element = getCurrentElementPosition(position); element >= 0;
         element = getCurrentElementPosition(element))
        ++depth;
    return String(Indenter::indent(xml.view(), depth));
}
