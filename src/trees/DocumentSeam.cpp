#include "trees/DocumentSeam.h"

#include "document/EditableDocumentBuffer.h"
#include "document/FreezeNotifications.h"
#include "document/RecordedCommand.h"
#include "text/Prolog.h"

using Core::String;

namespace {

/// Where an offset goes when `count` units take the place of `start` through `end`.
int mapped(int offset, int start, int end, int count) {
    if (offset <= start)
        return offset;
    return offset <= end ? start + count : offset + count - (end - start + 1);
}

} // namespace

String DocumentSeam::text(int start, int end) const {
    if (start < 0 || end < start || end >= buffer_->text_.length())
        return {};
    return buffer_->text_.subString(static_cast<unsigned>(start), static_cast<unsigned>(end));
}

int DocumentSeam::elementEnd(int element) const {
    const XmlScan::Text text = buffer_->text_.view();
    const bool isStartTag =
        XmlScan::openingAt(text, element) || XmlScan::selfClosingAt(text, element);
    const int closing = isStartTag ? XmlScan::closingTag(text, element) : -1;
    return closing < 0 ? -1 : XmlScan::tagEnd(text, closing + 1);
}

String DocumentSeam::documentType() const {
    return String(XmlScan::prologOf(buffer_->text_.view()).documentType);
}

std::set<String> DocumentSeam::declarationsAt(int element) const {
    return buffer_->getNamespacesFromElementAt(element);
}

std::set<String> DocumentSeam::declarationsAtRoot() const {
    return declarationsAt(XmlScan::prologOf(buffer_->text_.view()).root);
}

std::set<String> DocumentSeam::declarationsAround(int position) const {
    return buffer_->getNamespacesFromAllContainers(position);
}

String DocumentSeam::declarationsMissingAt(int element, int position) const {
    const std::set<String> own = declarationsAt(element);
    std::set<String> missing = declarationsAround(position);
    std::erase_if(missing, [&](const String& declaration) {
        return buffer_->namespaceIsDefined(declaration, own);
    });
    return buffer_->namespaceSetToString(missing);
}

CaretPlace DocumentSeam::caret() const {
    return {buffer_->getCaretPos(), buffer_->getSelectionPivotPos()};
}

bool DocumentSeam::replace(int start, int end, const String& with, const CommitCaret& rule) {
    RecordedCommand command(buffer_);
    const bool hadSelection = caret().pivot != caret().caret;
    record(rule.before);
    exchange(start, end, with);
    const std::optional<CaretPlace> place = rule.after ? rule.after() : std::nullopt;
    if (place)
        moveCaret(*place);
    // Deliberate: where nothing was selected redo is told of no pivot, so that it goes home.
    record({caret().caret, place ? place->pivot : caret().pivot});
    if (hadSelection)
        buffer_->notifySelectionChanged();
    if (command.keepsWellFormed())
        return true;
    command.takeBack();
    return false;
}

void DocumentSeam::place(const CommitCaret& rule) {
    const FreezeNotifications freeze(buffer_);
    const bool hadSelection = caret().pivot != caret().caret;
    if (const std::optional<CaretPlace> place = rule.after ? rule.after() : std::nullopt)
        moveCaret(*place);
    if (hadSelection)
        buffer_->notifySelectionChanged();
}

void DocumentSeam::exchange(int start, int end, const String& with) {
    const auto moved = [&, length = with.length()](int offset) {
        return mapped(offset, start, end, length);
    };
    const CaretPlace old = caret();
    EditActionStack& history = buffer_->getEditActionStack();
    const String removed = buffer_->deleteXmlText(start, end);
    history.addAction(EditAction(EditAction::EditDelete, start, -1, -1, removed));
    buffer_->insertXmlTextAtPosition(start, with);
    history.addAction(EditAction(EditAction::EditInsert, start, -1, -1, with));
    // The primitives take what stood directly before the old text behind the new.
    moveCaret({moved(old.caret), moved(old.pivot)});
}

void DocumentSeam::moveCaret(const CaretPlace& place) {
    const bool selects = place.pivot >= 0 && place.pivot != place.caret;
    buffer_->setCaretPos(false, selects ? place.pivot : place.caret);
    if (selects)
        buffer_->setCaretPos(true, place.caret);
}

void DocumentSeam::record(const CaretPlace& place) {
    buffer_->getEditActionStack().addAction(
        EditAction(EditAction::EditCaret, -1, place.caret, place.pivot, String()));
}
