#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

class EditableDocumentBuffer;

/// Writes a document as plain XSL-FO, which any formatter takes: nothing of the template's markup
/// is left, and what is left is valid XSL-FO 1.1 whatever the document holds.
///
/// The text shows what a reader of the document sees. Of conditional sections all are there, of
/// what is repeated the one pattern, of a field its text. A control of a form shows its value, a
/// multimedia object its preview. What is computed only when documents are produced, as scripts, is
/// not shown, nor is a document that is pulled in by reference. A placeholder shows nothing, but
/// keeps its empty line. Comments and elements of unknown languages go, but for what
/// fo:instream-foreign-object and fo:declarations hold. Addresses of images stay as they are.
///
/// Where the document is no valid XSL-FO, it is put right: formatting objects come in the order
/// that they must have, those that must hold something get it, and those that show nothing without
/// it, as a table without rows, go. Of two with one id the first keeps it. References to page
/// masters and flows that there are not lead to the first there is. A page has one body, as most
/// formatters know it: where there are flows side by side, one follows the other in the first.
///
/// The document is not changed. Time and memory grow with the text and no faster.
class FORME_API XslFoExport {
public:
    /// The document must outlive the object.
    explicit XslFoExport(const EditableDocumentBuffer* document) : document_(document) {}

    /// The document as XSL-FO. Throws Xml::ParseException, with line and column, where the text is
    /// no well-formed XML, refers to what it does not declare, or has another root element than
    /// "qfd:document" or "fo:root".
    Core::String getText() const;

    /// Writes the same to a file, in UTF-8; the file under the name is either the whole old one or
    /// the whole new one. Throws besides Core::Exception, with the path and the reason, where that
    /// cannot be written.
    void saveToFile(const Core::String& path) const;

private:
    const EditableDocumentBuffer* document_;
};
