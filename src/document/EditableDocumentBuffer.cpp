#include "document/EditableDocumentBuffer.h"

#include "text/XmlScan.h"

#include <algorithm>

using Core::String;

namespace {

constexpr int historyLimit = 10000;

bool contains(const Core::StringArray& names, std::wstring_view name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const String& known) { return known.view() == name; });
}

void appendUnlessPresent(Core::StringArray& names, const String& name) {
    if (!contains(names, name.view()))
        names.push_back(name);
}

} // namespace

EditableDocumentBuffer::EditableDocumentBuffer() : editActionStack_(historyLimit) {}

EditableDocumentBuffer::~EditableDocumentBuffer() = default;

void EditableDocumentBuffer::addEditableElement(const String& name) {
    appendUnlessPresent(editableElements_, name);
}

void EditableDocumentBuffer::addInlineEditableElement(const String& name) {
    appendUnlessPresent(inlineEditableElements_, name);
}

bool EditableDocumentBuffer::isInlineEditableElementName(const String& name) const {
    return isInlineName(name.view());
}

bool EditableDocumentBuffer::isInlineEditableElementClosingTagName(const String& name) const {
    return name.startsWith(L"/") && isInlineEditableElementName(name.substringAfter(L"/"));
}

bool EditableDocumentBuffer::isBlockEditableElementName(const String& name) const {
    return elementIsEditable(name) && !isInlineEditableElementName(name);
}

bool EditableDocumentBuffer::elementIsEditable(const String& name) const {
    return isEditableName(name.view());
}

std::vector<int> EditableDocumentBuffer::elementsAround(int position) const {
    std::vector<int> around;
    for (int element = getCurrentElementPosition(position); element >= 0;
         element = getCurrentElementPosition(element))
        around.push_back(element);
    std::reverse(around.begin(), around.end());
    return around;
}

bool EditableDocumentBuffer::isEditableName(std::wstring_view name) const {
    return contains(editableElements_, name);
}

bool EditableDocumentBuffer::isInlineName(std::wstring_view name) const {
    return contains(inlineEditableElements_, name);
}

bool EditableDocumentBuffer::isEditableElementAtPosition(int position) const {
    return isEditableName(XmlScan::tagName(text_.view(), position));
}

bool EditableDocumentBuffer::inEditableElement(int position) const {
    return isEditableElementAtPosition(getCurrentElementPosition(position));
}

void EditableDocumentBuffer::notifyBufferChanged() {
    if (monitor_)
        monitor_->onBufferChanged();
}

void EditableDocumentBuffer::notifyCaretChanged() {
    if (monitor_)
        monitor_->onCaretChanged();
}

void EditableDocumentBuffer::notifySelectionChanged() {
    if (monitor_)
        monitor_->onSelectionChanged();
}

bool EditableDocumentBuffer::isQFDDocument() const {
    return getRootElementName() == L"qfd:document";
}

bool EditableDocumentBuffer::isFODocument() const {
    return getRootElementName() == L"fo:root";
}
