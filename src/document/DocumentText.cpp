// Loading, saving and replacing the whole text, and its large parts.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "document/EditActionGroup.h"
#include "document/RecordedCommand.h"
#include "foundation/FileStream.h"
#include "foundation/XmlReader.h"
#include "foundation/XmlWriter.h"

#include <algorithm>
#include <optional>
#include <string_view>

using Core::String;

namespace {

constexpr const wchar_t* layoutMasterSetStart = L"<fo:layout-master-set";
constexpr const wchar_t* layoutMasterSetEnd = L"</fo:layout-master-set>";

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

void EditableDocumentBuffer::setContent(const String& content, bool resetHistory) {
    CommandScope scope(this);
    endKeyTypingSequence();
    std::optional<EditActionGroup> step;
    if (!resetHistory) {
        step.emplace(this);
        recordContent();
    }
    String unixContent = content;
    unixContent.replaceAll(L"\r\n", L"\n");
    replaceText(unixContent);
    updateCacheOnBufferChange();
    notifyBufferChanged();
    if (resetHistory)
        editActionStack_.clearStack();
    else
        recordContent();
}

/// The old caret belongs to the old text and has no say in where the new one goes.
void EditableDocumentBuffer::replaceText(const String& content) {
    text_ = content;
    textChangedFrom(0);
    if (hasSelectedText())
        notifySelectionChanged();
    if (caretPos_ != -1)
        notifyCaretChanged();
    caretPos_ = selectionPivotPos_ = -1;
    moveCaretHome(false);
}

void EditableDocumentBuffer::setContentFromFile(const String& path) {
    CommandScope scope(this);
    const SmartPtr<Core::IO::Stream> file(new Core::IO::FileStream(path, false, false, false));
    setContent(Core::IO::XmlReader(file).readToEnd(), true);
}

void EditableDocumentBuffer::saveToFile(const String& path, DocumentEncoding encoding) const {
    const std::optional<WriterArguments> arguments = writerArgumentsFor(encoding);
    if (!arguments)
        return;
    const SmartPtr<Core::IO::FileStream> file(new Core::IO::FileStream(path, true, true, false));
    Core::IO::XmlWriter(file.get(), arguments->encoding, arguments->mark).write(text_);
    file->commit();
}

void EditableDocumentBuffer::changeXmlEncoding(const String& encoding) {
    if (getNameForTagAtPosition(0, true) != L"?xml" || !isEncodingName(encoding.view()))
        return;
    const EditableProperty named(L"encoding", encoding);
    PropertyCollection declaration;
    for (const EditableProperty& property : getPropertiesFromElementAt(0).getPropertyList()) {
        declaration.addProperty(property, true);
        declaration.addProperty(named, true); // a new one belongs directly behind the version
    }
    if (!declaration.isEmpty())
        replaceProperties(0, declaration);
}

int EditableDocumentBuffer::updateRootNamespaces(const String& declaration) {
    String name = declaration.substringBefore(L"=");
    String uri = declaration.substringAfter(L"=");
    uri.replaceAll(L"\"", L"");
    if (!name.trim().startsWith(L"xmlns:") || !isPrefix(name.substringAfter(L":").view()) ||
        uri.empty())
        return 0;
    PropertyCollection properties;
    properties.addProperty({name, uri}, true);
    RecordedCommand command(this);
    const int shift = setPropertiesForElementAt(getRootElementPos(), properties);
    if (command.mayStand())
        return shift;
    command.takeBack();
    return 0;
}

String EditableDocumentBuffer::getNamespaces() const {
    return namespaceSetToString(getNamespacesFromAllContainers(caretPos_));
}

int EditableDocumentBuffer::getLayoutMasterSetPosition() const {
    return text_.find(layoutMasterSetStart, 0);
}

int EditableDocumentBuffer::getQFDTemplateDefsPosition() const {
    return text_.find(L"<qfd:document", 0);
}

String EditableDocumentBuffer::getQFDTemplateDefsString(int position) const {
    const int end = getLayoutMasterSetPosition();
    if (isOnInvalidPosition(position) || position >= end)
        return {};
    return text_.subString(static_cast<unsigned>(position), static_cast<unsigned>(end - 1)) +
           L"</qfd:document>";
}

int EditableDocumentBuffer::getFirstPageGeneratorPos() const {
    const int end = text_.find(layoutMasterSetEnd, 0);
    return end < 0 ? -1 : end + String(layoutMasterSetEnd).length();
}

String EditableDocumentBuffer::getAllPageSequencesWrappedInRoot() const {
    const int root = getRootElementPos();
    const int start = getFirstPageGeneratorPos();
    const int last = getPreviousElementByName(L"fo:page-sequence", text_.length() - 1);
    const int end = getNextEditablePositionInXml(getClosingTagForTagAtPosition(last));
    if (root < 0 || start < 0 || end < start)
        return {};
    const auto slice = [this](int from, int behind) {
        return text_.subString(static_cast<unsigned>(from), static_cast<unsigned>(behind - 1));
    };
    return slice(root, getNextEditablePositionInXml(root)) + slice(start, end) + L"</" +
           getNameForTagAtPosition(root, true) + L">";
}
