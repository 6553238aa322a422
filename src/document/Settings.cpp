// Settings of the document as a whole: elements before the page masters and an attribute of the
// root.

#include "document/EditableDocumentBuffer.h"

#include "document/RecordedCommand.h"
#include "text/XmlScan.h"

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

} // namespace

// Style sheet and document information

bool EditableDocumentBuffer::hasStyleSheet() const {
    return headerElement(styleSheet) >= 0;
}

String EditableDocumentBuffer::getStylesheetPath() const {
    return L"/" + getRootElementName() + L"/" + styleSheet;
}

String EditableDocumentBuffer::getStyleSheetString() const {
    const int element = headerElement(styleSheet);
    const int end = XmlScan::tagEnd(text_.view(), element);
    return element < 0 ? String() : String(XmlScan::slice(text_.view(), element, end + 1));
}

PropertyCollection EditableDocumentBuffer::getStyleSheetAttributes() const {
    return getPropertiesFromElementAt(headerElement(styleSheet));
}

void EditableDocumentBuffer::setStyleSheetProperties(const PropertyCollection& properties) {
    setHeaderAttributes(styleSheet, properties);
}

void EditableDocumentBuffer::insertStyleSheet(const String& xml) {
    insertHeader(xml);
}

void EditableDocumentBuffer::removeStyleSheet() {
    removeHeader(styleSheet);
}

bool EditableDocumentBuffer::hasDocumentInformation() const {
    return headerElement(documentInformation) >= 0;
}

PropertyCollection EditableDocumentBuffer::getDocumentInformationAttributes() const {
    return getPropertiesFromElementAt(headerElement(documentInformation));
}

void EditableDocumentBuffer::setDocumentInformationProperties(
    const PropertyCollection& properties) {
    setHeaderAttributes(documentInformation, properties);
}

void EditableDocumentBuffer::insertDocumentInformation(const String& xml) {
    insertHeader(xml);
}

void EditableDocumentBuffer::removeDocumentInformation() {
    removeHeader(documentInformation);
}

// What they share

/// Deliberate: not bounded by the page masters, so that a setting is found wherever it stands.
int EditableDocumentBuffer::headerElement(const String& name) const {
    const String rootName = getRootElementName();
    const int root =
        getNameForTagAtPosition(0, true) == rootName ? 0 : getNextElementByName(rootName, 0);
    return getNextElementByName(name, root);
}

void EditableDocumentBuffer::setHeaderAttributes(const String& name,
                                                 const PropertyCollection& properties) {
    const int element = headerElement(name);
    if (element < 0)
        return;
    RecordedCommand command(this);
    removeAttributes(element);
    setPropertiesForElementAt(element, properties);
    if (!command.mayStand())
        command.takeBack();
}

void EditableDocumentBuffer::insertHeader(const String& xml) {
    const int position = getFirstEditablePositionInXml();
    if (position < 0 || xml.empty())
        return;
    RecordedCommand command(this);
    recordCaret();
    insertXmlTextAtPosition(position, xml);
    recordInsertion(position, xml);
    if (!command.mayStand())
        command.takeBack();
}

void EditableDocumentBuffer::removeHeader(const String& name) {
    const int element = headerElement(name);
    const int end = lastOffsetOfElement(element);
    if (end < 0)
        return;
    RecordedCommand command(this);
    recordCaret();
    removeAndRecord(element, end + 1);
    if (!command.mayStand())
        command.takeBack();
}

// Printing

Xml::PDFConformance EditableDocumentBuffer::getPDFCompliance() const {
    const PropertyCollection settings = getPropertiesFromElementAt(headerElement(pdfPageSettings));
    return static_cast<Xml::PDFConformance>(
        conformanceOf(settings.getPropertyValue(pdfConformance)));
}

void EditableDocumentBuffer::setPDFCompliance(const String& level) {
    const wchar_t* const name = conformanceNames[conformanceOf(level)];
    const int element = headerElement(pdfPageSettings);
    const String present = getPropertiesFromElementAt(element).getPropertyValue(pdfConformance);
    if (element < 0)
        insertPDFSettings(name);
    else if (present.compareNoCase(name) != 0)
        setPropertiesForElementAt(element, oneProperty(pdfConformance, name));
}

void EditableDocumentBuffer::insertPDFSettings(const String& level) {
    int root = getRootElementPos();
    if (root < 0)
        return;
    RecordedCommand command(this);
    declareNamespaces(oneProperty(pdfConformance, level), root);
    insertHeader(L"<qf:pdf-page-settings pdf-conformance=\"" + level + L"\" />");
}

bool EditableDocumentBuffer::vdpIsSet() const {
    const PropertyCollection root = getPropertiesFromElementAt(getRootElementPos());
    return root.getPropertyValue(vdpEnable).compareNoCase(L"true") == 0;
}

void EditableDocumentBuffer::enableDisableVdp() {
    setPropertiesForElementAt(getRootElementPos(),
                              oneProperty(vdpEnable, vdpIsSet() ? L"false" : L"true"));
}
