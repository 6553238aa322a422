// Loading, saving and replacing the whole text, and its large parts.

#include "document/DocumentText.h"

#include "document/Attributes.h"
#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/NamespaceBinding.h"
#include "document/RecordedCommand.h"
#include "document/TableCache.h"
#include "document/caret/Moves.h"
#include "document/history/EditActionGroup.h"
#include "foundation/FileStream.h"
#include "foundation/XmlReader.h"
#include "foundation/XmlWriter.h"
#include "text/Markup.h"

#include <algorithm>
#include <optional>
#include <string_view>

using Core::String;

namespace {

struct WriterArguments {
    Core::IO::Encoding encoding;
    int mark;
};

std::optional<WriterArguments> writerArgumentsFor(DocumentEncoding encoding) {
    using Core::IO::Encoding;
    using Core::IO::XmlWriter;
    switch (encoding) {
    case DocumentEncoding::Utf8:
        return WriterArguments{Encoding::UTF8, XmlWriter::withoutMark};
    case DocumentEncoding::Utf8WithMark:
        return WriterArguments{Encoding::UTF8, XmlWriter::withMark};
    case DocumentEncoding::Utf16WithMark:
        return WriterArguments{Encoding::UTF16LE, XmlWriter::withMark};
    }
    return std::nullopt;
}

bool isLetter(wchar_t unit) {
    return (unit >= L'a' && unit <= L'z') || (unit >= L'A' && unit <= L'Z');
}

bool isNameUnit(wchar_t unit) {
    return isLetter(unit) || String::isDigit(unit) || unit == L'-' || unit == L'.' || unit == L'_';
}

/// Whether a declaration may name it: any other makes the whole document unreadable.
bool isEncodingName(std::wstring_view name) {
    return !name.empty() && isLetter(name.front()) &&
           std::all_of(name.begin(), name.end(), isNameUnit);
}

bool isPrefix(std::wstring_view name) {
    const auto isForeign = [](wchar_t unit) { return unit > 0x7F; };
    return !name.empty() &&
           (isLetter(name.front()) || name.front() == L'_' || isForeign(name.front())) &&
           std::all_of(name.begin(), name.end(),
                       [&](wchar_t unit) { return isNameUnit(unit) || isForeign(unit); });
}

} // namespace

void DocumentText::set(Document& document, const String& content, bool resetHistory) {
    CommandScope scope(document, CommandScope::Protection::PassedOver);
    document.endTyping();
    if (!resetHistory)
        document.recordContent();
    String unixContent = content;
    unixContent.replaceAll(L"\r\n", L"\n");
    document.replaceText(unixContent);
    if (!document.text().isWithin(document.caret(), L"fo:table"))
        document.tableCache.reset();
    else if (document.tableCache)
        document.tableCache->followText();
    document.notifyBufferChanged();
    if (resetHistory)
        document.history.clearStack();
    else
        document.recordContent();
}

bool DocumentText::replace(Document& document, int start, int end, const String& xml) {
    if (!document.text().isValid(start) || !document.text().isValid(end) || end < start - 1)
        return false;
    RecordedCommand command(document);
    document.recordCaret();
    document.recordDeletion(start, document.removeUnrecorded(start, end));
    document.insertUnrecorded(start, xml);
    document.recordInsertion(start, xml);
    const bool areBound = NamespaceBinding::bind(document, start, start + xml.length());
    Moves::outOfMarkup(document);
    document.recordCaret();
    if (areBound && command.mayStand())
        return true;
    command.takeBack();
    return false;
}

int Attributes::declareOnRoot(Document& document, const String& declaration) {
    String name = declaration.substringBefore(L"=");
    String uri = declaration.substringAfter(L"=");
    uri.replaceAll(L"\"", L"");
    if (!name.trim().startsWith(L"xmlns:") || !isPrefix(name.substringAfter(L":").view()) ||
        uri.empty())
        return 0;
    PropertyCollection properties;
    properties.addProperty({name, uri}, true);
    RecordedCommand command(document);
    const int shift = Attributes::merge(document, document.text().root(), properties);
    if (command.mayStand())
        return shift;
    command.takeBack();
    return 0;
}

void EditableDocumentBuffer::setContent(const String& content, bool resetHistory) {
    DocumentText::set(*document_, content, resetHistory);
}

void EditableDocumentBuffer::setContentFromFile(const String& path) {
    Document& document = *document_;
    CommandScope scope(document, CommandScope::Protection::PassedOver);
    const SmartPtr<Core::IO::Stream> file(new Core::IO::FileStream(path, false, false, false));
    DocumentText::set(document, Core::IO::XmlReader(file).readToEnd(), true);
}

void EditableDocumentBuffer::saveToFile(const String& path, DocumentEncoding encoding) const {
    const Document& document = *document_;
    const std::optional<WriterArguments> arguments = writerArgumentsFor(encoding);
    if (!arguments)
        return;
    const SmartPtr<Core::IO::FileStream> file(new Core::IO::FileStream(path, true, true, false));
    Core::IO::XmlWriter writer(file.get(), arguments->encoding, arguments->mark);
    document.text().forEachStretch([&](TextView stretch) { writer.write(String(stretch)); });
    file->commit();
}

void EditableDocumentBuffer::changeXmlEncoding(const String& encoding) {
    Document& document = *document_;
    if (document.text().tagName(0) != L"?xml" || !isEncodingName(encoding.view()))
        return;
    const EditableProperty named(L"encoding", encoding);
    PropertyCollection declaration;
    for (const EditableProperty& property : Attributes::of(document, 0).getPropertyList()) {
        declaration.addProperty(property, true);
        declaration.addProperty(named, true); // a new one belongs directly behind the version
    }
    if (!declaration.isEmpty())
        Attributes::replace(document, 0, declaration);
}

int EditableDocumentBuffer::updateRootNamespaces(const String& declaration) {
    return Attributes::declareOnRoot(*document_, declaration);
}

String EditableDocumentBuffer::getNamespaces() const {
    const Document& document = *document_;
    return Namespaces::asAttributes(Namespaces::around(document.text(), document.caret()));
}

int EditableDocumentBuffer::getQFDTemplateDefsPosition() const {
    const XmlText& text = document_->text();
    return text.tagName(text.root()) == L"qfd:document" ? text.root() : -1;
}

String EditableDocumentBuffer::getQFDTemplateDefsString(int position) const {
    const Document& document = *document_;
    const XmlText& text = document.text();
    const int end = text.layoutMasterSet();
    if (!text.isValid(position) || position >= end)
        return {};
    return text.slice(position, end) + L"</qfd:document>";
}
