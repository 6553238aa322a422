// The face itself: setting up, and what it only passes on to its document.

#include "document/EditableDocumentBuffer.h"

#include "document/Document.h"

using Core::String;

EditableDocumentBuffer::EditableDocumentBuffer()
    : EditableDocumentBuffer(std::make_shared<Document>()) {}

EditableDocumentBuffer::EditableDocumentBuffer(const std::shared_ptr<Document>& document)
    : EditableXmlBuffer(Document::textOf(document)), document_(document) {}

EditableDocumentBuffer::~EditableDocumentBuffer() = default;

// Names

void EditableDocumentBuffer::addEditableElement(const String& name) {
    document_->names.addEditable(name);
}

void EditableDocumentBuffer::addInlineEditableElement(const String& name) {
    document_->names.addInline(name);
}

bool EditableDocumentBuffer::isInlineEditableElementName(const String& name) const {
    return document_->names.isInline(name.view());
}

bool EditableDocumentBuffer::isInlineEditableElementClosingTagName(const String& name) const {
    return document_->names.closesInline(name.view());
}

bool EditableDocumentBuffer::isBlockEditableElementName(const String& name) const {
    return document_->names.isBlock(name.view());
}

bool EditableDocumentBuffer::elementIsEditable(const String& name) const {
    return document_->names.isEditable(name.view());
}

bool EditableDocumentBuffer::elementIsEditable(int position) const {
    return document_->isEditableAt(position);
}

bool EditableDocumentBuffer::isEditableElementAtPosition(int position) const {
    return document_->isEditableAt(position);
}

bool EditableDocumentBuffer::inEditableElement(int position) const {
    return document_->isInEditable(position);
}

bool EditableDocumentBuffer::isQFDDocument() const {
    return getRootElementName() == L"qfd:document";
}

bool EditableDocumentBuffer::isFODocument() const {
    return getRootElementName() == L"fo:root";
}

bool EditableDocumentBuffer::isProtectedFromEditing() const {
    return document_->isProtected();
}

// The monitor

void EditableDocumentBuffer::setMonitor(IEditableBufferMonitor* monitor) {
    document_->monitor = monitor;
}

IEditableBufferMonitor* EditableDocumentBuffer::getMonitor() const {
    return document_->monitor;
}

void EditableDocumentBuffer::notifyBufferChanged() {
    document_->notifyBufferChanged();
}

void EditableDocumentBuffer::notifyCaretChanged() {
    document_->notifyCaretChanged();
}

void EditableDocumentBuffer::notifySelectionChanged() {
    document_->notifySelectionChanged();
}

// The text and the caret

String EditableDocumentBuffer::getContent() const {
    return document_->text().content();
}

String EditableDocumentBuffer::getContent(int start, int end) const {
    const XmlText& text = document_->text();
    const bool isRange = text.isValid(start) && start < end && end <= text.length();
    return isRange ? text.slice(start, end) : String();
}

int EditableDocumentBuffer::getLayoutMasterSetPosition() const {
    return document_->text().layoutMasterSet();
}

int EditableDocumentBuffer::getFirstPageGeneratorPos() const {
    return document_->text().behindPageMasters();
}

void EditableDocumentBuffer::insertXmlTextAtPosition(int position, const String& xml) {
    if (!document_->isProtected())
        document_->insertUnrecorded(position, xml);
}

String EditableDocumentBuffer::deleteXmlText(int start, int end) {
    return document_->isProtected() ? String() : document_->removeUnrecorded(start, end);
}

int EditableDocumentBuffer::getCaretPos() const {
    return document_->caret();
}

int EditableDocumentBuffer::getSelectionPivotPos() const {
    return document_->pivot();
}

bool EditableDocumentBuffer::hasSelectedText() const {
    return document_->hasSelection();
}

int EditableDocumentBuffer::getSelectionStartIndex() const {
    return document_->selectionStart();
}

void EditableDocumentBuffer::setCaret(bool extend, int position) {
    document_->moveCaret(extend, position);
}

// The history

EditActionStack& EditableDocumentBuffer::getEditActionStack() {
    return document_->history;
}

bool EditableDocumentBuffer::canUndo() const {
    return document_->history.hasMoreUndoActions();
}

bool EditableDocumentBuffer::canRedo() const {
    return document_->history.hasMoreRedoActions();
}

void EditableDocumentBuffer::endKeyTypingSequence() {
    document_->endTyping();
}

// Modes, and what commands keep

void EditableDocumentBuffer::setPageMasterEditingMode(bool on) {
    document_->modes.pageMasters = on;
}

bool EditableDocumentBuffer::getPageMasterEditingMode() const {
    return document_->modes.pageMasters;
}

void EditableDocumentBuffer::setEditingDummyPage(bool on) {
    document_->modes.dummyPage = on;
}

bool EditableDocumentBuffer::isEditingDummyPage() const {
    return document_->modes.dummyPage;
}

void EditableDocumentBuffer::resetfindReplaceStartPos() {
    document_->search = {};
}

void EditableDocumentBuffer::setSpellChecker(const SmartPtr<Drawing::SpellChecker>& checker) {
    document_->spellChecker = checker;
}
