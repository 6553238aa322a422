// What is in the document: flows, components, identified elements.

#include "calls/Calls.h"
#include "calls/Rows.h"

using Core::String;
using D = EditableDocumentBuffer;

std::vector<Operation> Calls::content() {
    const auto document = documentRows();
    return {
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
    };
}
