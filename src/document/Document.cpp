#include "document/Document.h"

#include "document/CommandScope.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Protection.h"
#include "document/TableCache.h"
#include "document/caret/Moves.h"
#include "foundation/Exception.h"

#include <utility>

using Core::String;

namespace {

constexpr int historyLimit = 10000;

} // namespace

Document::Document() : history(historyLimit) {}

Document::~Document() = default;

Document& Document::of(EditableDocumentBuffer& face) {
    return *face.document_;
}

const Document& Document::of(const EditableDocumentBuffer& face) {
    return *face.document_;
}

Document& Document::of(EditableDocumentBuffer* face) {
    if (!face)
        throw Core::NullPointerException();
    return of(*face);
}

std::shared_ptr<XmlText> Document::textOf(const std::shared_ptr<Document>& document) {
    return {document, &document->text_};
}

// The caret and the selection

void Document::moveCaret(bool extend, int position) {
    if (position == -1 || modes.dummyPage || !isOutOfReach(position))
        placeCaret(extend, position);
}

bool Document::isOutOfReach(int position) const {
    return modes.pageMasters && !text_.isWithin(position, L"fo:static-content");
}

void Document::placeCaret(bool extend, int position) {
    const bool hadSelection = hasSelection();
    if (position == -1 || modes.dummyPage) {
        caret_ = pivot_ = -1;
        notifyCaretChanged();
        notifySelectionChanged();
        return;
    }
    if (caret_ != position) {
        if (extend && !text_.areInSameRegion(caret_, position))
            return;
        caret_ = position;
        notifyCaretChanged();
    }
    if (!extend)
        pivot_ = caret_;
    if (hadSelection || hasSelection())
        notifySelectionChanged();
}

void Document::dropCaret() {
    if (hasSelection())
        notifySelectionChanged();
    if (caret_ != -1)
        notifyCaretChanged();
    caret_ = pivot_ = -1;
}

void Document::select(int pivot, int caret) {
    setCaret(pivot);
    extendTo(caret);
}

// Changes

void Document::insert(int position, const String& xml) {
    text_.insert(position, xml);
    versions_.add({position, 0, xml.length()});
}

String Document::erase(int start, int end) {
    String removed = text_.erase(start, end);
    versions_.add({start, end - start, 0});
    return removed;
}

int Document::offsetAfterDeletion(int offset, int start, int end) {
    if (offset <= start)
        return offset;
    // Deliberate: an offset exactly on `end` lands before `start`; callers have been arranged
    // around it.
    return offset < end ? start : offset - (end - start + 1);
}

void Document::insertUnrecorded(int position, const String& xml) {
    if (position < 0 || position > text_.length())
        return;
    const auto moved = [&](int offset) {
        return offset >= position ? offset + xml.length() : offset;
    };
    insert(position, xml);
    placeCaretAfterEdit(moved(caret_), moved(pivot_));
}

String Document::removeUnrecorded(int start, int end) {
    if (!text_.isValid(start) || !text_.isValid(end) || end < start)
        return {};
    String removed = erase(start, end + 1);
    placeCaretAfterEdit(offsetAfterDeletion(caret_, start, end),
                        offsetAfterDeletion(pivot_, start, end));
    return removed;
}

void Document::rewriteUnrecorded(int start, int end, const String& xml, int pivot, int caret) {
    if (start < end)
        erase(start, end);
    insert(start, xml);
    const bool isNowhere = caret_ == -1 && pivot_ == -1;
    if (isNowhere && caret == -1 && pivot == -1)
        notifyBufferChanged();
    else
        placeCaretAfterEdit(caret, pivot);
}

void Document::typeUnrecorded(int start, int count, std::wstring_view xml, int caret) {
    const bool isWhole = text_.isKnownWhole();
    text_.replace(start, count, xml);
    if (isWhole)
        text_.noteWhole();
    versions_.add({start, count, static_cast<int>(xml.size())});
    caret_ = pivot_ = caret;
}

void Document::goBackTo(const TextMark& text, const TextVersions::Mark& version, int caret,
                        int pivot) noexcept {
    versions_.goBackTo(version, text_.length(), text.text().length());
    text_.goBackTo(text);
    caret_ = caret;
    pivot_ = pivot;
}

/// Where it is kept out of it goes nowhere, for its old number means nothing in the new text.
void Document::placeCaretAfterEdit(int caret, int pivot) {
    CommandScope scope(*this); // the monitor hears of the text before the caret
    const bool mayStay = pivot == -1 || (!isOutOfReach(pivot) && !isOutOfReach(caret));
    placeCaret(false, mayStay ? pivot : -1);
    if (mayStay && caret != pivot)
        placeCaret(true, caret);
    notifyBufferChanged();
}

void Document::replaceText(const String& content) {
    const int length = text_.length();
    text_.assign(content);
    versions_.add({0, length, text_.length()});
    dropCaret();
    Moves::home(*this, false);
}

void Document::endTyping() {
    if (typingGroup)
        history.closeGroup(*std::exchange(typingGroup, std::nullopt));
}

// Protection

bool Document::isProtected() const {
    const unsigned version = text_.headVersion();
    if (!knownProtection_ || knownProtection_->headVersion != version)
        knownProtection_ = {version, Protection::refusesEditing(Protection::settingsOf(text_))};
    return knownProtection_->isProtected;
}

// Records

/// The text as it stands: the offsets of the records around this one count in it, so an undone and
/// redone replacement must not bring back line ends that were converted.
void Document::recordContent() {
    history.addAction(EditAction(EditAction::EditContent, -1, -1, -1, text_.content()));
}

void Document::keepReplacedContent(bool isUndone) {
    history.keepReplaced(text_.content(), isUndone);
}

void Document::recordCaret(int caret, int pivot) {
    history.addAction(EditAction(EditAction::EditCaret, -1, caret, pivot, L""));
}

void Document::recordInsertion(int position, const String& xml) {
    history.addAction(EditAction(EditAction::EditInsert, position, -1, -1, xml));
}

void Document::recordDeletion(int position, const String& xml) {
    history.addAction(EditAction(EditAction::EditDelete, position, -1, -1, xml));
}

// What the monitor hears

void Document::notifyBufferChanged() {
    if (monitor)
        monitor->onBufferChanged();
}

void Document::notifyCaretChanged() {
    if (monitor)
        monitor->onCaretChanged();
}

void Document::notifySelectionChanged() {
    if (monitor)
        monitor->onSelectionChanged();
}
