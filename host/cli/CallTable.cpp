#include "CallTable.h"

#include "RecordedPrimitives.h"
#include "Session.h"

#include <forme/document/PageSequenceAlg.h>
#include <forme/editing/objects/InlineRepeatAlg.h>
#include <forme/tables/EditableTableBuffer.h>

#include <algorithm>
#include <stdexcept>
#include <type_traits>
#include <utility>

template <>
struct Wire<TableRowGroupType> {
    static constexpr const char* name = "row group (0 header, 1 body, 2 footer, 3 none)";
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= 3;
    }
    static TableRowGroupType read(const Json& value) {
        return static_cast<TableRowGroupType>(value.get<int>());
    }
    static Json write(TableRowGroupType value) { return static_cast<int>(value); }
};

namespace {

using Names = std::vector<const char*>;

template <typename T>
using Plain = std::remove_cvref_t<T>;

template <typename... A, std::size_t... I>
std::vector<Parameter> parametersOf(const Names& names, std::index_sequence<I...>) {
    return {Parameter{names.at(I), Wire<Plain<A>>::name, &Wire<Plain<A>>::matches}...};
}

template <typename R>
std::string resultName() {
    if constexpr (std::is_void_v<R>)
        return "null";
    else
        return Wire<Plain<R>>::name;
}

/// Calls with the request's arguments, the first of which stands behind the name.
template <typename R, typename... A, typename Call, std::size_t... I>
Json callWith(const Call& call, Session& session, const Json& request, std::index_sequence<I...>) {
    if constexpr (std::is_void_v<R>) {
        call(session, Wire<Plain<A>>::read(request[I + 1])...);
        return nullptr;
    } else {
        return Wire<Plain<R>>::write(call(session, Wire<Plain<A>>::read(request[I + 1])...));
    }
}

template <typename R, typename... A, typename Call>
Operation makeOperation(const char* name, const Names& names, Call call) {
    using Indices = std::index_sequence_for<A...>;
    return {name, parametersOf<A...>(names, Indices()), resultName<R>(),
            [call](Session& session, const Json& request) {
                return callWith<R, A...>(call, session, request, Indices());
            }};
}

/// Throws where no table is.
EditableTableBuffer& tableOf(EditableDocumentBuffer& document) {
    const auto table = document.getEditableTableBuffer(-1);
    if (!table)
        throw Core::Exception(L"the caret is in no table");
    return *table; // which the document keeps
}

/// An operation of the document buffer.
template <typename R, typename C, typename... A>
Operation document(const char* name, R (C::*member)(A...), const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (session.document().*member)(arguments...);
    });
}

template <typename R, typename C, typename... A>
Operation document(const char* name, R (C::*member)(A...) const, const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (session.document().*member)(arguments...);
    });
}

template <typename R, typename... A>
Operation document(const char* name, R (*function)(A...), const Names& names = {}) {
    return makeOperation<R, A...>(
        name, names, [function](Session&, A... arguments) -> R { return function(arguments...); });
}

/// An operation that this program makes of what the document offers.
template <typename R, typename... A>
Operation onDocument(const char* name, R (*function)(EditableDocumentBuffer&, A...),
                     const Names& names) {
    return makeOperation<R, A...>(name, names, [function](Session& session, A... arguments) -> R {
        return function(session.document(), arguments...);
    });
}

/// An operation of the view of the document's lists.
template <typename R, typename... A>
Operation lists(const char* name, R (ListBuffer::*member)(A...), const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (session.document().getListBuffer().*member)(arguments...);
    });
}

template <typename R, typename... A>
Operation lists(const char* name, R (ListBuffer::*member)(A...) const, const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (session.document().getListBuffer().*member)(arguments...);
    });
}

/// An operation of the history.
template <typename R, typename... A>
Operation history(const char* name, R (EditActionStack::*member)(A...), const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (session.document().getEditActionStack().*member)(arguments...);
    });
}

/// An operation of a small algorithm on the document.
template <typename Algorithm, typename R, typename C, typename... A>
Operation algorithm(const char* name, R (C::*member)(A...), const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (Algorithm(&session.document()).*member)(arguments...);
    });
}

template <typename Algorithm, typename R, typename C, typename... A>
Operation algorithm(const char* name, R (C::*member)(A...) const, const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (Algorithm(&session.document()).*member)(arguments...);
    });
}

/// An operation of the table around the caret, or which is selected. What it changes reaches the
/// document when the table is committed.
template <typename R, typename... A>
Operation table(const char* name, R (EditableTableBuffer::*member)(A...), const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (tableOf(session.document()).*member)(arguments...);
    });
}

template <typename R, typename... A>
Operation table(const char* name, R (EditableTableBuffer::*member)(A...) const,
                const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (tableOf(session.document()).*member)(arguments...);
    });
}

int rowNumberFrom(EditableDocumentBuffer& document, int position, int table) {
    TableRowGroupType group;
    return document.getTableRowNumberFrom(position, table, group);
}

/// Whether a table begins around the position, or with -1 the caret.
bool openTable(EditableDocumentBuffer& document, int position) {
    return static_cast<bool>(document.getEditableTableBuffer(position));
}

/// An operation of this program.
template <typename R, typename... A>
Operation program(const char* name, R (Session::*member)(A...), const Names& names = {}) {
    return makeOperation<R, A...>(name, names, [member](Session& session, A... arguments) -> R {
        return (session.*member)(arguments...);
    });
}

/// Picks the overload of that type.
template <typename Signature>
constexpr auto overload(Signature EditableDocumentBuffer::*member) {
    return member;
}

std::vector<Operation> makeTable() {
    using D = EditableDocumentBuffer;
    using BufferAlgorithms::InlineRepeatAlg;
    using BufferAlgorithms::PageSequenceAlg;
    using L = ListBuffer;
    using E = EditableTableBuffer;
    using Core::String;
    return {
        program("open", &Session::open, {"path"}),
        program("save", &Session::save, {"path", "encoding"}),

        document("setRootElement", &D::setRootElement, {"name"}),
        document("addEditableElement", &D::addEditableElement, {"name"}),
        document("addInlineEditableElement", &D::addInlineEditableElement, {"name"}),
        document("isInlineEditableElementName", &D::isInlineEditableElementName, {"name"}),
        document("isInlineEditableElementClosingTagName", &D::isInlineEditableElementClosingTagName,
                 {"name"}),
        document("isBlockEditableElementName", &D::isBlockEditableElementName, {"name"}),
        document("notifyBufferChanged", &D::notifyBufferChanged),
        document("notifyCaretChanged", &D::notifyCaretChanged),
        document("notifySelectionChanged", &D::notifySelectionChanged),

        document("getContent", &D::getContent),
        document("setContent", &D::setContent, {"content", "resetHistory"}),
        document("setContentFromFile", &D::setContentFromFile, {"path"}),
        document("saveToFile", &D::saveToFile, {"path", "encoding"}),
        document("changeXmlEncoding", &D::changeXmlEncoding, {"encoding"}),
        document("updateRootNamespaces", &D::updateRootNamespaces, {"declaration"}),
        document("getNamespaces", &D::getNamespaces),
        document("isQFDDocument", &D::isQFDDocument),
        document("isFODocument", &D::isFODocument),
        document("isInElementContext", &D::isInElementContext, {"name", "position"}),
        document("isInsideStartTag", &D::isInsideStartTag, {"text", "position"}),
        document("getLayoutMasterSetPosition", &D::getLayoutMasterSetPosition),
        document("getQFDTemplateDefsPosition", &D::getQFDTemplateDefsPosition),
        document("getQFDTemplateDefsString", &D::getQFDTemplateDefsString, {"position"}),
        document("getFirstPageGeneratorPos", &D::getFirstPageGeneratorPos),
        document("getAllPageSequencesWrappedInRoot", &D::getAllPageSequencesWrappedInRoot),

        document("undo", &D::undo),
        document("redo", &D::redo),
        document("canUndo", &D::canUndo),
        document("canRedo", &D::canRedo),
        document("endKeyTypingSequence", &D::endKeyTypingSequence),
        history("history.startActionGroup", &EditActionStack::startActionGroup),
        history("history.endActionGroup", &EditActionStack::endActionGroup),
        history("history.startTrackingPos", &EditActionStack::startTrackingPos, {"position"}),
        history("history.retrieveTrackingPos", &EditActionStack::retrieveTrackingPos),
        onDocument("insertXmlTextAtPosition", &RecordedPrimitives::insertXmlTextAtPosition,
                   {"position", "xml"}),
        onDocument("deleteXmlText", &RecordedPrimitives::deleteXmlText, {"start", "end"}),
        onDocument("deleteContentAndAdjustCaret", &RecordedPrimitives::deleteContentAndAdjustCaret,
                   {"start", "end"}),

        document("getCaretPos", &D::getCaretPos),
        document("getSelectionPivotPos", &D::getSelectionPivotPos),
        document("setCaretPos", &D::setCaretPos, {"extend", "position"}),
        document("moveCaretLeft", &D::moveCaretLeft, {"extend", "byWord", "mergeBoundaries"}),
        document("moveCaretRight", &D::moveCaretRight, {"extend", "byWord", "mergeBoundaries"}),
        document("moveCaretHome", &D::moveCaretHome, {"extend"}),
        document("moveCaretToEnd", &D::moveCaretToEnd, {"extend"}),
        document("moveCaretToFirstFoFlow", &D::moveCaretToFirstFoFlow),
        document("resetCaretFromStaticContent", &D::resetCaretFromStaticContent),
        document("moveCaretToPageSequence", &D::moveCaretToPageSequence, {"index"}),
        document("moveCaretToReference", &D::moveCaretToReference, {"sequenceIndex", "offset"}),
        document("moveCaretToFirstStaticRegion", &D::moveCaretToFirstStaticRegion),
        document("moveCaretToStaticRegion", &D::moveCaretToStaticRegion,
                 {"flowName", "sequenceIndex"}),

        makeOperation<bool, String>("isWordSeparator", {"character"},
                                    [](Session&, const String& character) {
                                        return character.length() == 1 &&
                                               D::isWordSeparator(character.view().front());
                                    }),
        document("jumpToNextWord", &D::jumpToNextWord, {"extend"}),
        document("jumpToPreviousWord", &D::jumpToPreviousWord, {"extend"}),
        document("getPreviousWordPos", &D::getPreviousWordPos, {"position"}),
        document("getPreviousWord", &D::getPreviousWord),

        document("findReplace", &D::findReplace,
                 {"find", "replacement", "matchCase", "wholeWord", "direction", "replace"}),
        document("resetfindReplaceStartPos", &D::resetfindReplaceStartPos),
        document("getNextSpellingError", &D::getNextSpellingError,
                 {"defaultDictionaries", "restart"}),
        document("getSpellingDictionaries", &D::getSpellingDictionaries),
        document("setSpellingDictionaries", &D::setSpellingDictionaries, {"dictionaries"}),
        document("syncSpellerMap", &D::syncSpellerMap, {"dictionaries"}),

        document("hasSelectedText", &D::hasSelectedText),
        document("offsetIsInSelection", &D::offsetIsInSelection, {"offset"}),
        document("resetSelection", &D::resetSelection),
        document("selectCurrentElement", &D::selectCurrentElement),
        document("selectElement", &D::selectElement, {"path"}),
        document("selectElementStartingAtCaretPosition", &D::selectElementStartingAtCaretPosition),
        document("selectParent", &D::selectParent),
        document("resetSelectionOfElement", &D::resetSelectionOfElement),
        document("getSelectionAs", overload<String(TextFormat) const>(&D::getSelectionAs),
                 {"format"}),
        document("getSelectionAs", overload<String(TextFormat, const String&)>(&D::getSelectionAs),
                 {"format", "path"}),

        document("insertText", overload<bool(const String&, bool, bool)>(&D::insertText),
                 {"text", "isXml", "selectInserted"}),
        document(
            "insertText",
            overload<void(const String&, const PropertyCollection&, bool, bool)>(&D::insertText),
            {"text", "properties", "isXml", "selectInserted"}),
        document("insertTextAtPosition", &D::insertTextAtPosition,
                 {"position", "text", "isXml", "selectInserted"}),
        document("insertTab", &D::insertTab),
        document("replaceXmlText", &D::replaceXmlText, {"start", "end", "xml"}),
        document("indentXmlText", &D::indentXmlText, {"xml", "position"}),

        document("erase", &D::erase, {"forward", "wholeWord"}),
        document("deleteParent", &D::deleteParent, {"elementName"}),
        document("deleteContentAtPosition", &D::deleteContentAtPosition,
                 {"keepSelection", "from", "to"}),
        makeOperation<int, int>("deleteSpacesBetweenTags", {"position"},
                                [](Session& session, int position) {
                                    session.document().deleteSpacesBetweenTags(position);
                                    return position;
                                }),
        document("selectionCrossTable", &D::selectionCrossTable),
        document("entireSelectionisInTheSameFloatingRegion",
                 &D::entireSelectionisInTheSameFloatingRegion),

        document("insertBreak", &D::insertBreak, {"type", "after"}),
        document("insertListBreak", &D::insertListBreak),
        document("getProperties",
                 overload<PropertyCollection(const String&) const>(&D::getProperties), {"path"}),
        document("getProperties",
                 overload<PropertyCollection(const String&, int) const>(&D::getProperties),
                 {"elementName", "position"}),
        document("getPropertiesList", &D::getPropertiesList, {"elementName"}),
        document("setProperties",
                 overload<void(const PropertyCollection&, const String&)>(&D::setProperties),
                 {"properties", "path"}),
        document("setProperties",
                 overload<void(const PropertyCollection&, const String&, int)>(&D::setProperties),
                 {"properties", "elementName", "position"}),
        document("setProperty", &D::setProperty, {"property", "path"}),
        document("removeProperties", &D::removeProperties, {"path"}),
        document("applyStyleOnElement", &D::applyStyleOnElement, {"className", "elementName"}),
        makeOperation<Core::Vector<String>, String>(
            "getCrtElementClassName", {"elementName"},
            [](Session& session, const String& elementName) {
                String name = elementName;
                String className;
                session.document().getCrtElementClassName(className, name);
                return Core::Vector<String>{className, name};
            }),
        document("getInheritablePropertyValueAtPosition", &D::getInheritablePropertyValueAtPosition,
                 {"name", "position"}),
        makeOperation<Core::Vector<String>, String, String>(
            "getParentProperty", {"elementName", "property"},
            [](Session& session, const String& elementName, const String& property) {
                String value;
                return session.document().getParentProperty(elementName, property, value)
                           ? Core::Vector<String>{value}
                           : Core::Vector<String>();
            }),
        document("setParentProperty", &D::setParentProperty, {"elementName", "property", "value"}),

        document("deleteObject", &D::deleteObject, {"path", "container", "inlineContext"}),
        document("removeComponent", &D::removeComponent, {"position"}),
        document("deleteFloatingRegion", &D::deleteFloatingRegion),
        document("deleteCurrentConditionalBlock", &D::deleteCurrentConditionalBlock),
        document("deleteConditionalBlockSequence", &D::deleteConditionalBlockSequence),
        document("deleteCurrentConditionalInline", &D::deleteCurrentConditionalInline),
        document("deleteConditionalInlineSequence", &D::deleteConditionalInlineSequence),
        document("deleteRepeatingSection", &D::deleteRepeatingSection),
        algorithm<InlineRepeatAlg>("inlineRepeat.deleteInlineRepeat",
                                   &InlineRepeatAlg::deleteInlineRepeat),
        document("isRepeatingElement", &D::isRepeatingElement, {"name"}),
        document("getComponentContentFromPath", &D::getComponentContentFromPath, {"path"}),
        document("canDeleteListItem", &D::canDeleteListItem, {"path"}),
        document("insertAutotext", &D::insertAutotext, {"text", "replaceWord"}),
        lists("makeList", &L::makeList, {"type"}),
        lists("createList", &L::createList, {"type"}),
        lists("removeList", &L::removeList),
        lists("changeLabelType", &L::changeLabelType, {"type"}),
        lists("breakList", &L::breakList),
        lists("eraseTextFromListBuffer", &L::eraseTextFromListBuffer, {"forward", "wholeWord"}),
        makeOperation<std::tuple<int, int, int>, int, int>(
            "eraseListSelection", {"start", "end"},
            [](Session& session, int start, int end) {
                const int done = session.document().getListBuffer().eraseListSelection(start, end);
                return std::tuple(done, start, end);
            }),
        makeOperation<int>("eraseListSelection", {},
                           [](Session& session) {
                               return session.document().getListBuffer().eraseListSelection();
                           }),
        lists("recalculateNumbering", &L::recalculateNumbering, {"position"}),
        lists("selectListLabel", &L::selectListLabel),
        lists("getListType", &L::getListType),
        lists("getCurrentListSize", &L::getCurrentListSize),
        lists("getCurrentItemNumber", &L::getCurrentItemNumber),
        lists("getListPos", &L::getListPos, {"position"}),
        lists("getItemPos", &L::getItemPos, {"position"}),
        lists("getNextItemPos", &L::getNextItemPos, {"item"}),
        lists("getPreviousItemPos", &L::getPreviousItemPos, {"item"}),
        lists("getItemLabelPos", &L::getItemLabelPos, {"item"}),
        lists("getItemBodyPos", &L::getItemBodyPos, {"item"}),
        lists("getFirstBlockInElement", &L::getFirstBlockInElement, {"element"}),
        lists("getLastBlockInElement", &L::getLastBlockInElement, {"element"}),
        lists("getListItemNumber", &L::getListItemNumber, {"item"}),
        lists("isFirstPositionInItemBody", &L::isFirstPositionInItemBody, {"position"}),
        lists("getItemLabelValue", &L::getItemLabelValue, {"item"}),
        lists("setItemLabelValue", &L::setItemLabelValue, {"item", "value"}),
        lists("getFirstListLabel", &L::getFirstListLabel, {"type"}),
        makeOperation<std::tuple<String, int>, String>(
            "getNextLabel", {"label"},
            [](Session& session, const String& label) {
                std::tuple<String, int> next;
                session.document().getListBuffer().getNextLabel(label, std::get<0>(next),
                                                                std::get<1>(next));
                return next;
            }),
        lists("createNewItem", &L::createNewItem, {"label", "position"}),
        lists("createNewItemBody", &L::createNewItemBody, {"position"}),

        document("setPageMasterEditingMode", &D::setPageMasterEditingMode, {"on"}),
        document("getPageMasterEditingMode", &D::getPageMasterEditingMode),
        document("setEditingDummyPage", &D::setEditingDummyPage, {"on"}),
        document("isEditingDummyPage", &D::isEditingDummyPage),
        document("saveInitialPosition", &D::saveInitialPosition, {"save"}),
        document("loadInitialPosition", &D::loadInitialPosition),

        document("hasStyleSheet", &D::hasStyleSheet),
        document("getStylesheetPath", &D::getStylesheetPath),
        document("getStyleSheetString", &D::getStyleSheetString),
        document("getStyleSheetAttributes", &D::getStyleSheetAttributes),
        document("setStyleSheetProperties", &D::setStyleSheetProperties, {"properties"}),
        document("insertStyleSheet", &D::insertStyleSheet, {"xml"}),
        document("removeStyleSheet", &D::removeStyleSheet),
        document("hasDocumentInformation", &D::hasDocumentInformation),
        document("getDocumentInformationAttributes", &D::getDocumentInformationAttributes),
        document("setDocumentInformationProperties", &D::setDocumentInformationProperties,
                 {"properties"}),
        document("insertDocumentInformation", &D::insertDocumentInformation, {"xml"}),
        document("removeDocumentInformation", &D::removeDocumentInformation),
        document("getPDFCompliance", &D::getPDFCompliance),
        document("setPDFCompliance", &D::setPDFCompliance, {"level"}),
        document("vdpIsSet", &D::vdpIsSet),
        document("enableDisableVdp", &D::enableDisableVdp),

        document("getCurrentFlowName", &D::getCurrentFlowName),
        document("getCurrentFlowContent", &D::getCurrentFlowContent),
        document("getFlowReferenceToCurrentPos", &D::getFlowReferenceToCurrentPos),
        document("isInFoStaticContent", &D::isInFoStaticContent, {"position", "flowName"}),
        document("getCrtObjectContent",
                 overload<String(const String&) const>(&D::getCrtObjectContent), {"path"}),
        document("getCrtObjectContent",
                 overload<String(const String&, bool) const>(&D::getCrtObjectContent),
                 {"name", "outermost"}),
        document("getIdForCurrentPos", &D::getIdForCurrentPos),
        document("setIdForCurrentPos", &D::setIdForCurrentPos, {"id"}),
        document("getUsedComponents", &D::getUsedComponents),
        document("getMediaObjectParams", &D::getMediaObjectParams),
        document("getComponentParams", &D::getComponentParams),
        document("getElementsWithIdInfo", &D::getElementsWithIdInfo),

        document("getNextPageSeq", &D::getNextPageSeq, {"position"}),
        document("getPageSequencePosition", &D::getPageSequencePosition, {"index"}),
        document("getPageSequenceIdxFromPos", &D::getPageSequenceIdxFromPos, {"position"}),
        document("getPageSeqPosFrom", &D::getPageSeqPosFrom, {"position"}),
        document("getCurrentPageSequenceIdx", &D::getCurrentPageSequenceIdx),
        algorithm<PageSequenceAlg>("pageSequence.getPageSequenceIdxFromPos",
                                   &PageSequenceAlg::getPageSequenceIdxFromPos, {"position"}),
        algorithm<PageSequenceAlg>("pageSequence.getCurrentPageSequenceIdx",
                                   &PageSequenceAlg::getCurrentPageSequenceIdx),

        document("updateCacheOnBufferChange", &D::updateCacheOnBufferChange),
        document("updateCacheOnCaretChange", &D::updateCacheOnCaretChange),
        document("updateCacheOnSelectionChange", &D::updateCacheOnSelectionChange),
        document("tableBufferCacheNull", &D::tableBufferCacheNull),
        document("updateTableBufferCache", &D::updateTableBufferCache),

        document("caretIsInsideTable", &D::caretIsInsideTable),
        document("caretIsInsideSameTable", &D::caretIsInsideSameTable),
        document("hasSelectedTable", &D::hasSelectedTable),
        document("selectTable", &D::selectTable, {"path"}),
        document("moveCaretNextCell", &D::moveCaretNextCell, {"ignored", "addRow"}),
        document("moveCaretPrevCell", &D::moveCaretPrevCell, {"ignored"}),
        document("getNextCellPosition", &D::getNextCellPosition, {"cell", "sameRow"}),
        document("getPrevCellPosition", &D::getPrevCellPosition, {"cell", "sameRow"}),
        document("getTableRowGroupTypeFrom", &D::getTableRowGroupTypeFrom, {"position", "table"}),
        document("getTableRowGroupPosition", &D::getTableRowGroupPosition, {"table", "group"}),
        document("getNextRowElement", &D::getNextRowElement, {"position"}),
        document("getRowPosFromTableRowGroup", &D::getRowPosFromTableRowGroup,
                 {"groupElement", "row"}),
        document("getRowTagNameForRowContaining", &D::getRowTagNameForRowContaining, {"position"}),
        onDocument("getTableRowNumberFrom", &rowNumberFrom, {"position", "table"}),
        document("getCellNumberOnRow", &D::getCellNumberOnRow, {"position", "table"}),
        document("getColSpanFromCell", &D::getColSpanFromCell, {"cell"}),
        document("getRowSpanFromCell", &D::getRowSpanFromCell, {"cell"}),

        onDocument("table.open", &openTable, {"position"}),
        table("table.update", &E::updateTableBuffer),
        table("table.commit", &E::commitChangesToEditableBuffer),
        table("table.getCaretRow", &E::getCaretRow),
        table("table.getCaretCol", &E::getCaretCol),
        table("table.getColumnCount", &E::getColumnCount),
        table("table.getRowCount", &E::getRowCount, {"group"}),
        table("table.hasHeader", &E::hasHeader),
        table("table.hasFooter", &E::hasFooter),
        table("table.allRowsSelected", &E::allRowsSelected),
        table("table.insertRow", &E::insertRow, {"above"}),
        table("table.insertHeaderRow", &E::insertHeaderRow),
        table("table.insertFooterRow", &E::insertFooterRow),
        table("table.deleteRows", &E::deleteRows, {"update"}),
        table("table.deleteRow", &E::deleteRow, {"group", "row"}),
        table("table.canDeleteRow", &E::canDeleteRow),
        table("table.insertColumn", &E::insertColumn, {"after"}),
        table("table.deleteColumn", &E::deleteColumn),
        table("table.canDeleteColumn", &E::canDeleteColumn),
        table("table.increaseColSpan", &E::increaseColSpan),
        table("table.increaseRowSpan", &E::increaseRowSpan),
        table("table.decreaseColSpan", &E::decreaseColSpan),
        table("table.decreaseRowSpan", &E::decreaseRowSpan),
        table("table.canIncreaseColSpan", &E::canIncreaseColSpan),
        table("table.canIncreaseRowSpan", &E::canIncreaseRowSpan),
        table("table.canDecreaseColSpan", &E::canDecreaseColSpan),
        table("table.canDecreaseRowSpan", &E::canDecreaseRowSpan),
    };
}

/// A number itself, of anything else what it is.
std::string shown(const Json& value) {
    if (value.is_number() || value.is_null())
        return value.dump();
    return (value.is_structured() ? "an " : "a ") + std::string(value.type_name());
}

/// What keeps the request from fitting the only operation of its name.
std::string mismatch(const Operation& operation, const Json& request) {
    const std::size_t given = request.size() - 1;
    if (given != operation.parameters.size())
        return operation.signature() +
               ": arguments expected: " + std::to_string(operation.parameters.size()) +
               ", given: " + std::to_string(given);
    for (std::size_t i = 0; i < given; ++i) {
        const Parameter& parameter = operation.parameters[i];
        if (!parameter.matches(request[i + 1]))
            return operation.signature() + ": argument " + std::to_string(i + 1) + " (" +
                   parameter.name + "): " + parameter.type + " expected, " + shown(request[i + 1]) +
                   " given";
    }
    return {};
}

} // namespace

bool Operation::accepts(const Json& request) const {
    if (request.size() != parameters.size() + 1)
        return false;
    for (std::size_t i = 0; i < parameters.size(); ++i)
        if (!parameters[i].matches(request[i + 1]))
            return false;
    return true;
}

std::string Operation::signature() const {
    std::string text = name + "(";
    for (const Parameter& parameter : parameters) {
        if (&parameter != &parameters.front())
            text += ", ";
        text += parameter.name + ": " + parameter.type;
    }
    return text + ")";
}

const std::vector<Operation>& callTable() {
    static const std::vector<Operation> table = makeTable();
    return table;
}

const Operation& operationFor(const Json& request) {
    if (!request.is_array() || request.empty() || !request[0].is_string())
        throw std::invalid_argument(
            "a request is an array that begins with an operation's name, as in [\"undo\"]");
    const std::string& name = request[0].get_ref<const std::string&>();
    std::vector<const Operation*> candidates;
    for (const Operation& operation : callTable()) {
        if (operation.name != name)
            continue;
        if (operation.accepts(request))
            return operation;
        candidates.push_back(&operation);
    }
    if (candidates.empty())
        throw std::invalid_argument("unknown operation \"" + name + "\"");
    if (candidates.size() == 1)
        throw std::invalid_argument(mismatch(*candidates.front(), request));
    std::string message = "the arguments fit none of";
    for (const Operation* candidate : candidates)
        message += (candidate == candidates.front() ? " " : ", ") + candidate->signature();
    throw std::invalid_argument(message);
}
