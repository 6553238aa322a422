// Insertion of text and markup.

#include "calls/Calls.h"
#include "calls/Rows.h"

using Core::String;
using D = EditableDocumentBuffer;

std::vector<Operation> Calls::typing() {
    const auto document = documentRows();
    return {
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
    };
}
