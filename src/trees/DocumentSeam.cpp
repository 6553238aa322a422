#include "trees/DocumentSeam.h"

#include "document/Document.h"
#include "document/FreezeNotifications.h"
#include "document/NamespaceBinding.h"
#include "document/RecordedCommand.h"
#include "text/Markup.h"

using Core::String;

namespace {

/// Where an offset goes when `count` units take the place of `start` through `end`.
int mapped(int offset, int start, int end, int count) {
    if (offset <= start)
        return offset;
    return offset <= end ? start + count : offset + count - (end - start + 1);
}

} // namespace

const XmlText& DocumentSeam::text() const {
    return document_->text();
}

String DocumentSeam::text(int start, int end) const {
    if (start < 0 || end < start || end >= text().length())
        return {};
    return text().slice(start, end + 1);
}

int DocumentSeam::elementEnd(int element) const {
    if (!text().openingAt(element) && !text().selfClosingAt(element))
        return -1;
    const int closing = text().closingTag(element);
    return closing < 0 ? -1 : text().tagEnd(closing + 1);
}

String DocumentSeam::documentType() const {
    return String(text().prolog().documentType);
}

std::set<String> DocumentSeam::declarationsAt(int element) const {
    return Namespaces::of(text(), element);
}

std::set<String> DocumentSeam::declarationsAtRoot() const {
    return declarationsAt(text().prolog().root);
}

std::set<String> DocumentSeam::declarationsAround(int position) const {
    return Namespaces::around(text(), position);
}

String DocumentSeam::declarationsMissingAt(int element, int position) const {
    const std::set<String> own = declarationsAt(element);
    std::set<String> missing = declarationsAround(position);
    std::erase_if(
        missing, [&](const String& declaration) { return Namespaces::declares(own, declaration); });
    return Namespaces::asAttributes(missing);
}

bool DocumentSeam::replace(int start, int end, const String& with, const CommitCaret& rule,
                           Prefixes prefixes) {
    return carryOut(*document_, [&] {
        const bool hadSelection = document_->hasSelection();
        record(rule.before);
        exchange(start, end, with);
        if (prefixes == Prefixes::Declared)
            NamespaceBinding::bind(*document_, start, start + with.length());
        const std::optional<CaretPlace> place = rule.after ? rule.after() : std::nullopt;
        if (place)
            moveCaret(*place);
        // Deliberate: where nothing was selected redo is told of no pivot, so that it goes home.
        record({document_->caret(), place ? place->pivot : document_->pivot()});
        if (hadSelection)
            document_->notifySelectionChanged();
    });
}

void DocumentSeam::place(const CommitCaret& rule) {
    const FreezeNotifications freeze(*document_);
    document_->endTyping();
    const bool hadSelection = document_->hasSelection();
    if (const std::optional<CaretPlace> place = rule.after ? rule.after() : std::nullopt)
        moveCaret(*place);
    if (hadSelection)
        document_->notifySelectionChanged();
}

void DocumentSeam::exchange(int start, int end, const String& with) {
    const auto moved = [&, length = with.length()](int offset) {
        return mapped(offset, start, end, length);
    };
    if (start <= end)
        document_->recordDeletion(start, text(start, end));
    document_->recordInsertion(start, with);
    document_->rewriteUnrecorded(start, end + 1, with, moved(document_->pivot()),
                                 moved(document_->caret()));
}

void DocumentSeam::moveCaret(const CaretPlace& place) {
    const bool selects = place.pivot >= 0 && place.pivot != place.caret;
    document_->setCaret(selects ? place.pivot : place.caret);
    if (selects)
        document_->extendTo(place.caret);
}

void DocumentSeam::record(const CaretPlace& place) {
    document_->history.addAction(
        EditAction(EditAction::EditCaret, -1, place.caret, place.pivot, String()));
}
