// What a toolbar asks, gathered from the rooms that know it.

#include "view/EditingState.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/caret/Stops.h"
#include "editing/deletion/Deletion.h"
#include "editing/lists/Lists.h"
#include "editing/typing/Typing.h"
#include "tables/CachedTable.h"
#include "tables/TablePlaces.h"
#include "text/Vocabulary.h"
#include "view/Formats.h"

namespace {

/// Where a selection goes first, what is around it takes the text.
bool takesText(const Document& document) {
    return Typing::canInsert(document, L"x") &&
           (document.hasSelection() || Stops::canHoldCaret(document, document.caret()));
}

/// Sections are named as their sequence, which is called one at the end.
bool hasSeveralSections(const XmlText& text, int position) {
    const int sequence = text.nearestNamed(position, Vocabulary::conditionalSequences);
    const Core::String section = text.nameAt(sequence).substringBefore(L"-sequence");
    int other = text.childNamed(sequence, section);
    do
        other = text.sibling(other);
    while (other >= 0 && text.nameAt(other) != section);
    return other >= 0;
}

TableState stateOf(const EditableTableBuffer& table) {
    return {.canDeleteRow = table.canDeleteRow(),
            .canDeleteColumn = table.canDeleteColumn(),
            .canIncreaseColSpan = table.canIncreaseColSpan(),
            .canIncreaseRowSpan = table.canIncreaseRowSpan(),
            .canDecreaseColSpan = table.canDecreaseColSpan(),
            .canDecreaseRowSpan = table.canDecreaseRowSpan(),
            .canGroupCurrentRow = table.canGroupCurrentRow(),
            .canInsertGroupAbove = table.canInsertGroupAbove(),
            .canInsertGroupBelow = table.canInsertGroupBelow()};
}

} // namespace

EditingState EditableDocumentBuffer::getEditingState() const {
    const Document& document = *document_;
    const XmlText& text = document.text();
    const int caret = document.caret();
    EditingState state;
    state.formats = Formats::of(document);

    state.list = Lists::typeAtCaret(document);
    const int table = TablePlaces::tableAround(text, caret);
    state.isInTable = table >= 0;
    state.rowGroup = TablePlaces::groupOf(text, TablePlaces::cellAround(text, caret, -1));
    state.isInStaticContent = text.staticContentAround(caret) >= 0;
    state.isInRepeat = text.nearestNamed(caret, Vocabulary::repeating) >= 0;

    state.hasSelection = document.hasSelection();
    state.isProtected = document.isProtected();

    state.canUndo = canUndo();
    state.canRedo = canRedo();
    const bool isEditable = !state.isProtected;
    state.canCut = isEditable && document.hasSelection() && Deletion::isInErasablePlace(document);
    state.canPaste = isEditable && takesText(document);
    state.canDeleteListItem = isEditable && canDeleteListItem({});
    state.canDeleteSection = isEditable && hasSeveralSections(text, caret);
    if (const CachedTable* const kept = CachedTable::of(document);
        kept && table >= 0 && kept->start() == table)
        state.table = stateOf(kept->buffer());
    return state;
}
