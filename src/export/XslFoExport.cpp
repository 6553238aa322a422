#include "export/XslFoExport.h"

#include "document/EditableDocumentBuffer.h"
#include "export/FoReader.h"
#include "export/PageNames.h"
#include "foundation/Encoder.h"
#include "foundation/Exception.h"
#include "foundation/FileStream.h"
#include "foundation/SmartPtr.h"

#include <string>

using Core::String;

namespace {

std::string formattingObjectsOf(const EditableDocumentBuffer* document) {
    if (!document)
        throw Core::NullPointerException();
    const Core::ByteArray text = Core::Encoder::convertStringToUTF8(document->getContent());
    try {
        const PageNames names = PageNames::of(text.view());
        return FoReader(text.view(), names).read();
    } catch (const Xml::MarkupReader::Failure& failure) {
        throw Xml::located(String(), text.view(), failure);
    }
}

} // namespace

String XslFoExport::getText() const {
    return Core::Encoder::convertUTF8ToString(formattingObjectsOf(document_));
}

void XslFoExport::saveToFile(const String& path) const {
    Core::ByteArray text(formattingObjectsOf(document_));
    const SmartPtr<Core::IO::FileStream> file(new Core::IO::FileStream(path, true, true, false));
    file->write(&text, 0, static_cast<long long>(text.size()));
    file->commit();
}
