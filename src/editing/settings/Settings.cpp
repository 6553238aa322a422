// Settings of the document as a whole: elements before the page masters and an attribute of the
// root.

#include "editing/settings/Settings.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/Edit.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"

#include <algorithm>
#include <array>

using Core::String;

namespace {

constexpr const wchar_t* styleSheet = L"qf:stylesheet";
constexpr const wchar_t* documentInformation = L"qf:info";
constexpr const wchar_t* pdfPageSettings = L"qf:pdf-page-settings";
constexpr const wchar_t* pdfConformance = L"qf:pdf-conformance";
constexpr const wchar_t* vdpEnable = L"qf:vdp-enable";

/// The names of the levels, in the order of their numbers.
constexpr std::array conformanceNames{L"Default", L"PDF/X-1a:2003", L"PDF/A-1a:2005",
                                      L"PDF/A-1b:2005", L"PDF508"};

/// The number of the level, 0 for a name that is none.
std::size_t conformanceOf(const String& name) {
    const auto found =
        std::find_if(conformanceNames.begin(), conformanceNames.end(),
                     [&](const wchar_t* known) { return name.compareNoCase(known) == 0; });
    return found == conformanceNames.end()
               ? 0
               : static_cast<std::size_t>(found - conformanceNames.begin());
}

PropertyCollection oneProperty(const String& name, const String& value) {
    PropertyCollection properties;
    properties.addProperty({name, value}, true);
    return properties;
}

/// Deliberate: not bounded by the page masters, so that a setting is found wherever it stands.
int headerElement(const Document& document, const String& name) {
    const XmlText& text = document.text();
    const String& rootName = text.rootName();
    const int root = text.nameAt(0) == rootName ? 0 : text.nextNamed(0, rootName);
    return text.nextNamed(root, name);
}

void setHeaderAttributes(Document& document, const String& name,
                         const PropertyCollection& properties) {
    const int element = headerElement(document, name);
    if (element < 0)
        return;
    RecordedCommand command(document);
    Attributes::removeAll(document, element);
    Attributes::merge(document, element, properties);
    if (!command.mayStand())
        command.takeBack();
}

void insertHeader(Document& document, const String& xml) {
    const int position = document.text().firstPositionInRoot();
    if (position < 0 || xml.empty())
        return;
    RecordedCommand command(document);
    document.recordCaret();
    document.insertUnrecorded(position, xml);
    document.recordInsertion(position, xml);
    if (!command.mayStand())
        command.takeBack();
}

void removeHeader(Document& document, const String& name) {
    const int element = headerElement(document, name);
    const int end = document.text().lastOffsetOf(element);
    if (end < 0)
        return;
    RecordedCommand command(document);
    document.recordCaret();
    Edit(document).remove(element, end + 1);
    if (!command.mayStand())
        command.takeBack();
}

void insertPDFSettings(Document& document, const String& level) {
    int root = document.text().root();
    if (root < 0)
        return;
    RecordedCommand command(document);
    Attributes::declareNamespaces(document, oneProperty(pdfConformance, level), root);
    insertHeader(document, L"<qf:pdf-page-settings pdf-conformance=\"" + level + L"\" />");
}

} // namespace

bool Settings::isVdpSet(const Document& document) {
    const PropertyCollection root = Attributes::of(document, document.text().root());
    return root.getPropertyValue(vdpEnable).compareNoCase(L"true") == 0;
}

bool EditableDocumentBuffer::hasStyleSheet() const {
    const Document& document = *document_;
    return headerElement(document, styleSheet) >= 0;
}

String EditableDocumentBuffer::getStylesheetPath() const {
    const Document& document = *document_;
    return L"/" + document.text().rootName() + L"/" + styleSheet;
}

String EditableDocumentBuffer::getStyleSheetString() const {
    const Document& document = *document_;
    const int element = headerElement(document, styleSheet);
    const int end = document.text().tagEnd(element);
    return element < 0 ? String() : String(document.text().view(element, end + 1));
}

PropertyCollection EditableDocumentBuffer::getStyleSheetAttributes() const {
    const Document& document = *document_;
    return Attributes::of(document, headerElement(document, styleSheet));
}

void EditableDocumentBuffer::setStyleSheetProperties(const PropertyCollection& properties) {
    Document& document = *document_;
    setHeaderAttributes(document, styleSheet, properties);
}

void EditableDocumentBuffer::insertStyleSheet(const String& xml) {
    Document& document = *document_;
    insertHeader(document, xml);
}

void EditableDocumentBuffer::removeStyleSheet() {
    Document& document = *document_;
    removeHeader(document, styleSheet);
}

bool EditableDocumentBuffer::hasDocumentInformation() const {
    const Document& document = *document_;
    return headerElement(document, documentInformation) >= 0;
}

PropertyCollection EditableDocumentBuffer::getDocumentInformationAttributes() const {
    const Document& document = *document_;
    return Attributes::of(document, headerElement(document, documentInformation));
}

void EditableDocumentBuffer::setDocumentInformationProperties(
    const PropertyCollection& properties) {
    Document& document = *document_;
    setHeaderAttributes(document, documentInformation, properties);
}

void EditableDocumentBuffer::insertDocumentInformation(const String& xml) {
    Document& document = *document_;
    insertHeader(document, xml);
}

void EditableDocumentBuffer::removeDocumentInformation() {
    Document& document = *document_;
    removeHeader(document, documentInformation);
}

Xml::PDFConformance EditableDocumentBuffer::getPDFCompliance() const {
    const Document& document = *document_;
    const PropertyCollection settings =
        Attributes::of(document, headerElement(document, pdfPageSettings));
    return static_cast<Xml::PDFConformance>(
        conformanceOf(settings.getPropertyValue(pdfConformance)));
}

void EditableDocumentBuffer::setPDFCompliance(const String& level) {
    Document& document = *document_;
    const wchar_t* const name = conformanceNames[conformanceOf(level)];
    const int element = headerElement(document, pdfPageSettings);
    const String present = Attributes::of(document, element).getPropertyValue(pdfConformance);
    if (element < 0)
        insertPDFSettings(document, name);
    else if (present.compareNoCase(name) != 0)
        Attributes::merge(document, element, oneProperty(pdfConformance, name));
}

bool EditableDocumentBuffer::vdpIsSet() const {
    return Settings::isVdpSet(*document_);
}

void EditableDocumentBuffer::enableDisableVdp() {
    Document& document = *document_;
    Attributes::merge(document, document.text().root(),
                      oneProperty(vdpEnable, Settings::isVdpSet(document) ? L"false" : L"true"));
}
