// What hosts ask beside commands: what is drawn and where, and what a toolbar shows.

#include "calls/Calls.h"
#include "calls/Rows.h"
#include "calls/ViewWire.h"

using D = EditableDocumentBuffer;

std::vector<Operation> Calls::view() {
    const auto document = documentRows();
    return {
        document("getNearestStop", &D::getNearestStop, {"position", "side"}),
        document("getElementAt", &D::getElementAt, {"position"}),
        document("getDrawn", &D::getDrawn, {"position", "count"}),
        document("getComputedProperty", &D::getComputedProperty, {"name", "position"}),
        document("getEditingState", &D::getEditingState),
    };
}
