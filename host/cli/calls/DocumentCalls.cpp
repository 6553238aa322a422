// The names that a host registers, loading and saving, and the large parts of the text.

#include "calls/Calls.h"
#include "calls/Rows.h"

using D = EditableDocumentBuffer;

std::vector<Operation> Calls::document() {
    const auto document = documentRows();
    return {
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
        document("getContent", overload<Core::String() const>(&D::getContent)),
        document("getContent", overload<Core::String(int, int) const>(&D::getContent),
                 {"start", "end"}),
        document("getTextVersion", &D::getTextVersion),
        document("changeSince", &D::changeSince, {"version"}),
        document("setContent", &D::setContent, {"content", "resetHistory"}),
        document("setContentFromFile", &D::setContentFromFile, {"path"}),
        document("saveToFile", &D::saveToFile, {"path", "encoding"}),
        document("changeXmlEncoding", &D::changeXmlEncoding, {"encoding"}),
        document("updateRootNamespaces", &D::updateRootNamespaces, {"declaration"}),
        document("getNamespaces", &D::getNamespaces),
        document("isQFDDocument", &D::isQFDDocument),
        document("isFODocument", &D::isFODocument),
        document("isProtectedFromEditing", &D::isProtectedFromEditing),
        document("isInElementContext", &D::isInElementContext, {"name", "position"}),
        document("isInsideStartTag", &D::isInsideStartTag, {"text", "position"}),
        document("getLayoutMasterSetPosition", &D::getLayoutMasterSetPosition),
        document("getQFDTemplateDefsPosition", &D::getQFDTemplateDefsPosition),
        document("getQFDTemplateDefsString", &D::getQFDTemplateDefsString, {"position"}),
        document("getFirstPageGeneratorPos", &D::getFirstPageGeneratorPos),
        document("getAllPageSequencesWrappedInRoot", &D::getAllPageSequencesWrappedInRoot),
    };
}
