// What is selected.

#include "calls/Calls.h"
#include "calls/Rows.h"

using Core::String;
using D = EditableDocumentBuffer;

std::vector<Operation> Calls::selection() {
    const auto document = documentRows();
    return {
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
    };
}
