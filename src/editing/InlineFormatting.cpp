// Formatting of text: a range gets properties by inlines around its runs of text.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "document/EditActionGroup.h"
#include "document/RecordedCommand.h"
#include "document/TextRewrite.h"

#include <algorithm>

using Core::String;

const Core::StringArray EditableDocumentBuffer::nonInlineProperties{L"fo:text-align"};

bool EditableDocumentBuffer::isNonInlineProperty(const EditableProperty& property) {
    return std::find(nonInlineProperties.begin(), nonInlineProperties.end(), property.getName()) !=
           nonInlineProperties.end();
}

PropertyCollection
EditableDocumentBuffer::getAndRemoveNonInlineProperties(PropertyCollection& properties) {
    PropertyCollection taken;
    for (const EditableProperty& property : properties.getPropertyList()) {
        if (!isNonInlineProperty(property))
            continue;
        taken.addProperty(property, true);
        properties.removePropertyByName(property.getName());
    }
    return taken;
}

void EditableDocumentBuffer::formatSelection(const PropertyCollection& properties) {
    if (properties.isEmpty())
        return;
    RecordedCommand command(this);
    recordCaret();
    // A caret is moved along with each change in no time, while for a selection its flow is read.
    const bool caretIsLower = caretPos_ < selectionPivotPos_;
    const int behind = text_.length() - selectionUpperEnd();
    setCaret(false, getSelectionStartIndex());
    formatInline(getSelectionStartIndex(), text_.length() - behind, properties);
    const int lower = getSelectionStartIndex();
    const int upper = text_.length() - behind;
    selectRange(caretIsLower ? upper : lower, caretIsLower ? lower : upper);
    recordCaret();
    if (!command.mayStand())
        command.takeBack();
}

void EditableDocumentBuffer::formatInline(int from, int to, PropertyCollection properties) {
    if (isOnInvalidPosition(from) || isOnInvalidPosition(to))
        return;
    CommandScope scope(this);
    endKeyTypingSequence();
    EditActionGroup group(this);
    recordCaret();
    properties.setNamespaceForProperties(L"fo");
    const int behind = text_.length() - to; // which no change in the range touches
    const auto limit = [&] { return text_.length() - behind; };
    TextRewrite rewrite(*this);
    for (int run = startOfTextRun(from, limit()); run >= 0;) {
        int end = endOfTextRun(run, limit());
        if (!planTextRun(run, end, properties, rewrite)) {
            const int shift = rewrite.apply();
            end = formatTextRun(run + shift, end + shift, properties);
        }
        run = startOfTextRun(getNextValidCaretPos(end), limit());
    }
    rewrite.apply();
    recordCaret();
}

/// The first stop from the position on, and before the limit, that has text behind it; -1 if none.
int EditableDocumentBuffer::startOfTextRun(int position, int limit) const {
    while (position >= 0 && position < limit &&
           (onTagStartPosition(position) || !inEditableElement(position)))
        position = getNextValidCaretPos(position);
    return position < limit ? position : -1;
}

/// Where an inline around the text that begins at `start` has to end: at the limit or a tag before
/// it. Objects without content, such as a page number, belong to the text.
int EditableDocumentBuffer::endOfTextRun(int start, int limit) const {
    int tag = getNextTagPosition(start);
    while (tag >= 0 && tag < limit && selfClosingTagAtPosition(tag))
        tag = getNextTagPosition(getNextEditablePositionInXml(tag));
    return tag < 0 ? limit : std::min(tag, limit);
}

/// Leaves the inline around the run, which may be one of many, to be put in later; the runs behind
/// are the same with it and without. Answers false, having done nothing, where more than that has
/// to change.
bool EditableDocumentBuffer::planTextRun(int start, int end, const PropertyCollection& properties,
                                         TextRewrite& rewrite) const {
    const auto isPlain = [&](const EditableProperty& property) {
        return !isNonInlineProperty(property) &&
               (!isStandardNamespace(property.getNamespace()) ||
                isNamespaceDeclaredAt(property.getNamespace(), start));
    };
    const Core::Vector<EditableProperty> list = properties.getPropertyList();
    if (list.empty() || !isInlineName(L"fo:inline") ||
        !std::all_of(list.begin(), list.end(), isPlain))
        return false;
    if (isWholeInline(start, end)) {
        planProperties(getCurrentElementPosition(start), properties, rewrite);
        return true;
    }
    PropertyCollection attributes; // each name once
    attributes.addProperties(properties);
    rewrite.replace(start, start, L"<fo:inline" + attributesText(attributes, L"fo") + L">");
    rewrite.replace(end, end, L"</fo:inline>");
    return true;
}

bool EditableDocumentBuffer::isWholeInline(int start, int end) const {
    return isInlineEditableElementName(getCurrentElementName(start)) &&
           selectionIsEntireElementContent(start, end);
}

/// Gives the properties to a run of text and to the block around it, each what it can have; answers
/// where the run ends now.
int EditableDocumentBuffer::formatTextRun(int start, int end,
                                          const PropertyCollection& properties) {
    PropertyCollection inlineProperties = properties;
    const PropertyCollection blockProperties = getAndRemoveNonInlineProperties(inlineProperties);
    if (!inlineProperties.isEmpty()) {
        end += isWholeInline(start, end)
                   ? setPropertiesForElementAt(getCurrentElementPosition(start), inlineProperties)
                   : wrapInInline(start, end, inlineProperties);
    }
    return end + formatBlockAround(end, blockProperties);
}

/// Puts an inline around the range; answers by how much the text up to its closing tag moved.
int EditableDocumentBuffer::wrapInInline(int start, int end, const PropertyCollection& properties) {
    static const String opening = L"<fo:inline>";
    recordCaret();
    insertAndRecord(start, opening);
    insertAndRecord(end + opening.length(), L"</fo:inline>");
    return opening.length() + setPropertiesForElementAt(start, properties);
}

/// Answers by how much the text behind the block's start tag moved.
int EditableDocumentBuffer::formatBlockAround(int position, const PropertyCollection& properties) {
    if (properties.isEmpty())
        return 0;
    return setPropertiesForElementAt(searchParent(L"fo:block", position, false, true, L""),
                                     properties);
}
