// Backspace, Delete and what goes with them.

#include "calls/Calls.h"
#include "calls/Rows.h"

using D = EditableDocumentBuffer;

namespace {

int deleteSpacesBetweenTags(D& document, int position) {
    document.deleteSpacesBetweenTags(position);
    return position;
}

} // namespace

std::vector<Operation> Calls::deletion() {
    const auto document = documentRows();
    return {
        document("erase", &D::erase, {"forward", "wholeWord"}),
        document("deleteParent", &D::deleteParent, {"elementName"}),
        document("deleteContentAtPosition", &D::deleteContentAtPosition,
                 {"keepSelection", "from", "to"}),
        document.made("deleteSpacesBetweenTags", &deleteSpacesBetweenTags, {"position"}),
        document("entireSelectionisInTheSameFloatingRegion",
                 &D::entireSelectionisInTheSameFloatingRegion),
    };
}
