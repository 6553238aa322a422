// Breaks of lines, pages and columns.

#include "calls/Calls.h"
#include "calls/Rows.h"

using D = EditableDocumentBuffer;

std::vector<Operation> Calls::breaks() {
    const auto document = documentRows();
    return {
        document("insertBreak", &D::insertBreak, {"type", "after"}),
        document("insertListBreak", &D::insertListBreak),
    };
}
