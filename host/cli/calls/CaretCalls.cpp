// Where the caret is and where it goes.

#include "calls/Calls.h"
#include "calls/Rows.h"

using Core::String;
using D = EditableDocumentBuffer;

namespace {

bool isWordSeparator(D&, const String& character) {
    return character.length() == 1 && D::isWordSeparator(character.view().front());
}

} // namespace

std::vector<Operation> Calls::caret() {
    const auto document = documentRows();
    return {
        document("getCaretPos", &D::getCaretPos),
        document("getSelectionPivotPos", &D::getSelectionPivotPos),
        document("setCaretPos", &D::setCaretPos, {"extend", "position"}),
        document("setClusterSteps", &D::setClusterSteps, {"on"}),
        document("hasClusterSteps", &D::hasClusterSteps),
        document("getRangeAround", &D::getRangeAround, {"unit", "position"}),
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
        document.made("isWordSeparator", &isWordSeparator, {"character"}),
        document("jumpToNextWord", &D::jumpToNextWord, {"extend"}),
        document("jumpToPreviousWord", &D::jumpToPreviousWord, {"extend"}),
        document("getPreviousWordPos", &D::getPreviousWordPos, {"position"}),
        document("getPreviousWord", &D::getPreviousWord),
    };
}
