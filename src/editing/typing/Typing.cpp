// Text and markup put in at the caret.

#include "editing/typing/Typing.h"

#include "document/Attributes.h"
#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/DocumentText.h"
#include "document/EditableDocumentBuffer.h"
#include "document/EditableDocumentBufferState.h"
#include "document/NamespaceBinding.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/caret/Moves.h"
#include "document/caret/Stops.h"
#include "document/history/EditActionGroup.h"
#include "editing/deletion/Deletion.h"
#include "editing/formatting/Formatting.h"
#include "editing/typing/PlainRun.h"
#include "text/Markup.h"
#include "text/MarkupChange.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <optional>
#include <utility>

using Core::String;
using Typing::InsertedRange;
using Typing::Insertion;
using XmlScan::Text;

namespace {

constexpr wchar_t entity[] = L"&#x00A0;";
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
        return indenter.result_ += XmlScan::slice(xml, done, size);
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

/// Whether nothing is selected and the element is editable and holds just its placeholder.
bool isOnlyPlaceholderAround(const Document& document, int element) {
    return !document.hasSelection() && document.isEditableAt(element) &&
           document.text().holdsOnlyPlaceholder(element);
}

/// Inserts text in an inline of its own and leaves it selected or the caret inside, so that what is
/// typed next is formatted alike.
Insertion insertInline(Document& document, String text, PropertyCollection properties, bool isXml,
                       bool selectInserted) {
    if (text == L" ")
        text = entity;
    else if (!isXml)
        Markup::escape(text);
    properties.removeNamespaceForPropertiesWith(L"fo");
    const String markup =
        L"<fo:inline " + properties.getPropertiesString() + L">" + text + L"</fo:inline>";
    const Insertion insertion = Typing::insert(document, markup, true, selectInserted);
    if (insertion == Insertion::Done && !selectInserted) {
        Moves::left(document);
        document.recordCaret();
    }
    return insertion;
}

/// Whether the element whose tag stands at the position has a stop before its end.
bool elementHasStop(const Document& document, int element) {
    const int closing = document.text().closingTag(element);
    const int stop = Stops::next(document, element);
    return stop >= 0 && stop <= closing;
}

/// Removes from the caret up to the next tag.
void deleteSuperfluousPlaceholder(Document& document) {
    const int position = document.caret();
    document.recordCaret();
    document.recordDeletion(
        position, document.removeUnrecorded(position, document.text().nextTag(position) - 1));
    document.recordCaret();
}

InsertedRange insertMarkup(Document& document, const String& xml) {
    const int start = document.caret();
    const InsertedRange inserted =
        Typing::insertMarkupAt(document, document.caret(), xml == L" " ? String(entity) : xml);
    if (document.caret() > start && !elementHasStop(document, start) &&
        document.text().isPlaceholderBeforeClosingTag(document.caret()))
        deleteSuperfluousPlaceholder(document);
    return inserted;
}

/// Whether a blank put at the position, with a letter behind it, is rendered: not at the start of a
/// block, behind a soft break or behind another blank.
bool blankWouldShowAt(const Document& document, int position) {
    const XmlText& text = document.text();
    const XmlText& content = text;
    if (String::isSpace(content.unitAt(position - 1)))
        return false;
    const int block = text.ancestor(position, L"fo:block");
    int at = text.previous(position);
    while (at > block &&
           (String::isSpace(content.unitAt(at)) || document.names.isInline(text.tagName(at))))
        at = text.previous(at);
    return at > block && text.nameAt(at).substringAfter(L"/") != L"fo:block";
}

/// The entity that a blank became is a plain blank again once something follows it.
void turnEntityBeforeCaretIntoBlank(Document& document) {
    const int position = document.caret() - entityLength;
    // Deliberate: the classifier is given the offset before the entity, not the character there, so
    // that the entity stays at a handful of offsets near the start of the text; recorded scripts
    // rely on the result.
    if (position <= 0 || !document.text().standsAt(entity, position) ||
        String::isSpace(static_cast<wchar_t>(position - 1)) ||
        !blankWouldShowAt(document, position))
        return;
    const EditActionGroup group(document);
    document.recordCaret();
    document.recordDeletion(position,
                            document.removeUnrecorded(position, position + entityLength - 1));
    Typing::insertMarkupAt(document, position, L" ");
}

/// Whether the element holds just a placeholder with the position before it. One with the caret
/// behind it is a blank that was typed, and stays.
bool isBeforeOnlyPlaceholder(const Document& document, int position) {
    const XmlText& text = document.text();
    const int element = text.elementAround(position);
    return text.holdsOnlyPlaceholder(element) && position <= text.placeholderBehind(element);
}

/// Whether nothing but white space would stand in the line, which would not show. A line feed
/// beside a table asks for an empty block.
bool wouldBeAllOfLine(const Document& document, const String& text) {
    const bool isInBlock = document.isInEditable(document.caret());
    return isBlank(text) &&
           (isInBlock ? isBeforeOnlyPlaceholder(document, document.caret()) : text != L"\n");
}

InsertedRange insertPlainText(Document& document, const String& text) {
    if (text.empty())
        return {document.caret(), document.caret()};
    if (!startsWithSpace(text)) {
        turnEntityBeforeCaretIntoBlank(document);
        if (document.text().isPlaceholderBeforeClosingTag(document.caret()))
            deleteSuperfluousPlaceholder(document);
    }
    if (text == L" " || wouldBeAllOfLine(document, text))
        return Typing::insertSpace(document, L" ");
    if (isBeforeOnlyPlaceholder(document, document.caret()))
        Typing::removePlaceholder(document, document.caret());
    String escaped = text;
    const Typing::InsertedRange inserted =
        Typing::insertTextAt(document, document.caret(), escaped);
    return {inserted.start, inserted.end};
}

/// Declares on the root what prefixes the inserted markup needs; answers whether all are bound now.
/// A declaration ends a run of typing, but here it belongs to the step that is under way.
bool declareWhatIsUsed(Document& document, const InsertedRange& inserted) {
    const std::optional<unsigned> step = std::exchange(document.typingGroup, std::nullopt);
    const bool areBound = NamespaceBinding::bind(document, inserted.start, inserted.end);
    document.typingGroup = step;
    return areBound;
}

Insertion insertInPlaceOfSelection(Document& document, const String& text, bool isXml,
                                   bool selectInserted) {
    std::optional<EditActionGroup> group;
    if (document.hasSelection()) {
        group.emplace(document);
        Deletion::removeSelection(document);
    }
    const bool isPlainText = !isXml && !text.empty();
    if (!document.text().isValid(document.caret()) ||
        (isPlainText && !Stops::canHoldCaret(document, document.caret())))
        return Insertion::None;
    String unixText = text;
    unixText.replaceAll(L"\r\n", L"\n");
    const InsertedRange inserted =
        isXml ? insertMarkup(document, unixText) : insertPlainText(document, unixText);
    if (selectInserted)
        document.select(inserted.start, inserted.end);
    if (isXml && !declareWhatIsUsed(document, inserted))
        return Insertion::RolledBack;
    if (isXml)
        Moves::outOfMarkup(document);
    document.recordCaret();
    return Insertion::Done;
}

/// Where the range from `start` up to but excluding `end` put in what is now all that its element
/// shows, the caret stands before that.
void putCaretOnInsertedPlaceholder(Document& document, int start, int end) {
    const XmlText& text = document.text();
    const int element = text.elementAround(document.caret());
    if (!text.holdsOnlyPlaceholder(element))
        return;
    const int placeholder = text.placeholderBehind(element);
    if (placeholder < start || end <= placeholder)
        return;
    document.setCaret(placeholder);
    document.recordCaret();
}

/// Makes a block to type in where the caret stands beside a table; answers the offset inside it.
int insertBlockBesideTable(Document& document, int position) {
    static const String block = L"<fo:block></fo:block>";
    const int inside = position + String(L"<fo:block>").length();
    const bool caretThere = document.caret() == position;
    const int caret = document.caret();
    const int pivot = document.pivot();
    document.insertUnrecorded(position, block);
    document.history.addAction(EditAction(EditAction::EditInsert, position, caret, pivot, block));
    if (caretThere)
        document.setCaret(inside);
    document.recordCaret();
    return inside;
}

/// A line between two line breaks that held only its placeholder loses it; answers where to insert.
int removePlaceholderBetweenBreaks(Document& document, int position) {
    bool isCharacter = false;
    bool follows = false;
    if (!Placeholders::isBetweenBreaks(document, position, isCharacter, follows))
        return position;
    const int length = isCharacter ? 1 : entityLength;
    const int start = follows ? position : position - length;
    const String removed = document.removeUnrecorded(start, start + length - 1);
    if (!follows)
        document.setCaret(start);
    document.recordCaret();
    document.recordDeletion(start, removed);
    return start;
}

/// The caret does not stay behind white space that is no stop.
void leaveInvisibleSpaceBeforeCaret(Document& document) {
    const XmlText& text = document.text();
    int position = document.caret();
    const bool metElement = Stops::skipBackward(document, position, false);
    if (!metElement && !text.standsAt(entity, position) && position != document.caret())
        position = text.next(position);
    if (position != document.caret() && text.isValid(position))
        document.setCaret(position);
}

/// A blank typed on a placeholder is that placeholder: the caret goes behind it.
InsertedRange passPlaceholder(Document& document) {
    const XmlText& text = document.text();
    const int element = text.elementAround(document.caret());
    const int start = text.placeholderBehind(element);
    const int end = start + text.placeholderLength(start);
    document.recordCaret();
    document.setCaret(end);
    document.recordCaret();
    return {start, end};
}

} // namespace

bool Typing::insertText(Document& document, const String& text, bool isXml, bool selectInserted) {
    return Typing::insert(document, text, isXml, selectInserted) != Insertion::None;
}

void Typing::insertText(Document& document, const String& text,
                        const PropertyCollection& properties, bool isXml, bool selectInserted) {
    if (properties.isEmpty() || text.empty()) {
        Typing::insertText(document, text, isXml, selectInserted);
        return;
    }
    if (!Typing::canInsert(document, text))
        return;
    RecordedCommand command(document);
    const int element = document.text().elementAround(document.caret());
    const bool onPlaceholder = isOnlyPlaceholderAround(document, element);
    if (!isXml && document.hasSelection())
        Deletion::removeSelection(document);
    if (!isXml && !Stops::canHoldCaret(document, document.caret())) {
        command.takeBack();
        return;
    }
    PropertyCollection own = properties;
    PropertyCollection ofBlock;
    if (!onPlaceholder || document.names.isInline(document.text().tagName(element))) {
        own.setNamespaceForProperties(L"fo");
        ofBlock = Formatting::takeBlockProperties(own);
    }
    if (onPlaceholder && !own.isEmpty())
        Attributes::merge(document, element, own);
    const Insertion insertion = onPlaceholder || own.isEmpty()
                                    ? Typing::insert(document, text, isXml, selectInserted)
                                    : insertInline(document, text, own, isXml, selectInserted);
    if (insertion == Insertion::Done)
        Formatting::formatBlockAround(document, document.selectionStart(), ofBlock);
    if (insertion != Insertion::Done || !command.mayStand())
        command.takeBack();
}

bool Typing::canInsert(const Document& document, const String& text) {
    return document.text().isValid(document.caret()) && !document.isOutOfReach(document.caret()) &&
           !document.text().isInLabel(document.caret()) &&
           (!text.empty() || document.hasSelection());
}

Insertion Typing::insert(Document& document, const String& text, bool isXml, bool selectInserted) {
    if (!isXml && !selectInserted && PlainRun::type(document, text))
        return Insertion::Done;
    if (!Typing::canInsert(document, text) || document.isProtected())
        return Insertion::None;
    std::optional<EditableDocumentBufferState> before(document);
    CommandScope scope(document);
    if (isXml)
        document.endTyping(); // markup starts an undo step of its own
    const bool isFirst = !document.typingGroup;
    if (isFirst)
        document.typingGroup = document.history.openGroup();
    const std::size_t recorded = document.history.recordedCount();
    Insertion insertion = insertInPlaceOfSelection(document, text, isXml, selectInserted);
    if (insertion == Insertion::Done &&
        !MarkupChange(document.text(), before->text()).keepsWellFormed())
        insertion = Insertion::RolledBack;
    if (insertion != Insertion::Done) {
        before->restorePreviousState();
        scope.discardNotices();
        return insertion;
    }
    const std::size_t made = document.history.recordedCount() - recorded;
    if (!document.history.canHold(made + 1)) {
        // What was typed over made too many records. The step is then the two texts, and the next
        // key begins another.
        before->recordReplacement();
        return insertion;
    }
    before.reset(); // the record that grows is then shared with nobody and need not be copied
    document.history.mergeTyping(made, isFirst);
    return insertion;
}

void Deletion::removeSelection(Document& document) {
    document.recordCaret();
    document.select(document.selectionStart(), document.selectionEnd());
    document.recordCaret();
    Deletion::deleteSelection(document, false);
    document.setCaret(document.pivot());
    document.recordCaret();
}

InsertedRange Typing::insertTextAt(Document& document, int position, String& text) {
    Markup::escape(text);
    if (text == L" " || text == L"\t")
        text = entity;
    const Typing::InsertedRange inserted = Typing::insertMarkupAt(document, position, text);
    return {inserted.start, inserted.end};
}

InsertedRange Typing::insertMarkupAt(Document& document, int position, const String& xml) {
    const XmlText& text = document.text();
    const EditActionGroup group(document);
    document.recordCaret();
    if (!text.isValid(position))
        return {document.caret(), document.caret()};
    if (!document.isInEditable(position) &&
        (text.isBehindTable(document.caret()) || text.isBeforeTable(document.caret()))) {
        position = insertBlockBesideTable(document, position);
        if (xml == L"\n") {
            document.recordCaret();
            return {position, position};
        }
    }
    if (!isPlaceholder(xml))
        position = removePlaceholderBetweenBreaks(document, position);
    document.insertUnrecorded(position, xml);
    document.recordInsertion(position, xml);
    putCaretOnInsertedPlaceholder(document, position, position + xml.length());
    leaveInvisibleSpaceBeforeCaret(document);
    document.recordCaret();
    return {position, position + xml.length()};
}

InsertedRange Typing::insertSpace(Document& document, const String& text) {
    if (text != L" ")
        return {document.caret(), document.caret()};
    if (!document.isInEditable(document.caret()))
        return Typing::insertMarkupAt(document, document.caret(), entity);
    if (isBeforeOnlyPlaceholder(document, document.caret()))
        return passPlaceholder(document);
    const XmlText& content = document.text();
    const wchar_t before = document.caret() > 0 ? content.unitAt(document.caret() - 1) : L'>';
    const wchar_t after = content.unitAt(document.caret());
    if (!String::isSpace(before) && !String::isSpace(after) && after != L'<' && before != L'>')
        return Typing::insertMarkupAt(document, document.caret(), L" ");
    const int spaceBefore = String::isSpace(before) ? 1 : 0;
    const int previous = document.caret() - spaceBefore - entityLength;
    if (previous > 0 && document.text().standsAt(entity, previous) &&
        !String::isSpace(content.unitAt(previous - 1)) && content.unitAt(previous - 1) != L'>')
        return Typing::insertMarkupAt(document, previous, L" ");
    const Typing::InsertedRange inserted =
        Typing::insertMarkupAt(document, document.caret() - spaceBefore, entity);
    return {inserted.start, inserted.end};
}

void Typing::removePlaceholder(Document& document, int position) {
    const XmlText& text = document.text();
    const EditActionGroup group(document);
    const int element = text.elementAround(position);
    if (!text.holdsOnlyPlaceholder(element))
        return;
    const int start = text.placeholderBehind(element);
    const int end = start + text.placeholderLength(start);
    document.recordCaret();
    document.recordDeletion(start, document.removeUnrecorded(start, end - 1));
    document.recordCaret();
}

bool EditableDocumentBuffer::insertText(const String& text, bool isXml, bool selectInserted) {
    return Typing::insertText(*document_, text, isXml, selectInserted);
}

void EditableDocumentBuffer::insertText(const String& text, const PropertyCollection& properties,
                                        bool isXml, bool selectInserted) {
    Typing::insertText(*document_, text, properties, isXml, selectInserted);
}

bool EditableDocumentBuffer::insertTextAtPosition(int position, const String& text, bool isXml,
                                                  bool selectInserted) {
    Document& document = *document_;
    if (!Stops::canHoldCaret(document, position) ||
        document.text().unitStart(position) != position || text.empty())
        return false;
    RecordedCommand command(document);
    document.recordCaret();
    document.setCaret(position); // which the editing modes may refuse
    const Insertion insertion = document.caret() == position
                                    ? Typing::insert(document, text, isXml, selectInserted)
                                    : Insertion::None;
    if (insertion != Insertion::Done)
        command.takeBack();
    return insertion != Insertion::None;
}

void EditableDocumentBuffer::insertTab() {
    Document& document = *document_;
    if (document.isInEditable(document.caret()))
        Typing::insertText(document, L"<qf:tab/>", true, false);
}

void EditableDocumentBuffer::replaceXmlText(int start, int end, const String& xml) {
    if (start <= end)
        DocumentText::replace(*document_, start, end, xml);
}

EditableDocumentBuffer::InsertedRange
EditableDocumentBuffer::insertTextAtEditablePosition(int position, String& text) {
    const Typing::InsertedRange inserted = Typing::insertTextAt(*document_, position, text);
    return {inserted.start, inserted.end};
}

EditableDocumentBuffer::InsertedRange
EditableDocumentBuffer::insertXmlTextAtEditablePosition(int position, const String& xml) {
    const Typing::InsertedRange inserted = Typing::insertMarkupAt(*document_, position, xml);
    return {inserted.start, inserted.end};
}

EditableDocumentBuffer::InsertedRange
EditableDocumentBuffer::handleInsertedSpace(const String& text) {
    const Typing::InsertedRange inserted = Typing::insertSpace(*document_, text);
    return {inserted.start, inserted.end};
}

void EditableDocumentBuffer::handleElementsContainingJustNonBreakingSpaces(int position) {
    Typing::removePlaceholder(*document_, position);
}

String EditableDocumentBuffer::indentXmlText(const String& xml, int position) const {
    const Document& document = *document_;
    int depth = 0;
    for (int element = document.text().elementAround(position); element >= 0;
         element = document.text().elementAround(element))
        ++depth;
    return String(Indenter::indent(xml.view(), depth));
}
