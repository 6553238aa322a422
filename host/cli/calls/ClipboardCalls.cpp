// What is copied and pasted.

#include "calls/Calls.h"
#include "calls/Rows.h"

using D = EditableDocumentBuffer;

std::vector<Operation> Calls::clipboard() {
    const auto document = documentRows();
    return {
        document("pasteMarkup", &D::pasteMarkup, {"xml"}),
        document("pasteText", &D::pasteText, {"text"}),
        document("pasteHtml", &D::pasteHtml, {"html"}),
        document("getSelectionAsText", &D::getSelectionAsText),
        document("getSelectionAsHtml", &D::getSelectionAsHtml),
    };
}
