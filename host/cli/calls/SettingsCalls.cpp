// Modes of editing and what the document's head says.

#include "calls/Calls.h"
#include "calls/Rows.h"

using D = EditableDocumentBuffer;

std::vector<Operation> Calls::settings() {
    const auto document = documentRows();
    return {
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
    };
}
