// Simple page masters by their names, as they stand in the document's text.

#include "pages/MasterText.h"

#include "document/Document.h"
#include "document/DocumentText.h"
#include "document/EditableDocumentBuffer.h"
#include "pages/TextElements.h"

using Core::String;

namespace {

constexpr XmlText::View simpleMaster = L"fo:simple-page-master";

bool isMasterNamed(const XmlText& text, int element, const String& name) {
    return text.tagName(element) == simpleMaster &&
           TextElements::attributeOf(text, element, L"master-name") == name;
}

/// The markup is read behind the document type, to whose entities it may refer.
bool isOneMasterNamed(const String& documentType, const String& markup, const String& name) {
    XmlText text;
    text.assign(documentType + markup);
    const int master = documentType.length();
    return isMasterNamed(text, master, name) && text.lastOffsetOf(master) == text.length() - 1;
}

} // namespace

int MasterText::find(const XmlText& text, const String& name) {
    if (name.empty())
        return -1;
    int master = text.nextNamed(0, simpleMaster);
    while (master >= 0 && !isMasterNamed(text, master, name))
        master = text.nextNamed(text.closingTag(master), simpleMaster);
    return master;
}

String MasterText::bodyNameOf(const XmlText& text, int master) {
    const int body = text.nextNamed(master, L"fo:region-body");
    if (body < 0 || body > text.closingTag(master))
        return {};
    const String name = TextElements::attributeOf(text, body, L"region-name");
    return name.empty() ? String(L"xsl-region-body") : name;
}

bool MasterText::replace(Document& document, const String& name, const String& markup) {
    const int master = find(document.text(), name);
    const String documentType(document.text().prolog().documentType);
    return master >= 0 && isOneMasterNamed(documentType, markup, name) &&
           DocumentText::replace(document, master, document.text().lastOffsetOf(master), markup);
}

int EditableDocumentBuffer::getSimplePageMasterPosition(const String& name) const {
    const Document& document = *document_;
    return MasterText::find(document.text(), name);
}

String EditableDocumentBuffer::getSimplePageMaster(const String& name) const {
    const XmlText& text = std::as_const(*document_).text();
    return text.markupOf(MasterText::find(text, name));
}

void EditableDocumentBuffer::replaceSimplePageMaster(const String& name, const String& markup) {
    MasterText::replace(*document_, name, markup);
}

String EditableDocumentBuffer::getRegionBodyNameForPageMaster(const String& name) const {
    const XmlText& text = std::as_const(*document_).text();
    return MasterText::bodyNameOf(text, MasterText::find(text, name));
}
