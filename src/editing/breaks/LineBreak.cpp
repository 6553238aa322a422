#include "editing/breaks/LineBreak.h"

#include "document/Document.h"
#include "document/Edit.h"
#include "document/caret/Lines.h"
#include "document/caret/Moves.h"
#include "document/caret/Stops.h"
#include "editing/breaks/Breaks.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;

LineBreak::LineBreak(Document& document)
    : document_(document), table_(document.text().ancestor(caret(), L"fo:table")),
      form_(document.text().ancestor(caret(), L"qf:form")), container_(std::max(table_, form_)) {}

int LineBreak::run() {
    if (container_ < 0 || !(breakBeforeContainer() || breakBehindContainer()))
        breakInPlace();
    Breaks::leaveSkippedPlace(document_);
    document_.recordCaret();
    return newBlock_;
}

/// At the very start of a table or a form: a line before it, where the caret goes.
bool LineBreak::breakBeforeContainer() {
    // Deliberate: of a table without a header but with a footer, the first position is the
    // footer's, which stands first in the text.
    if (caret() != Stops::next(document_, container_))
        return false;
    const int place = caret();
    document_.recordCaret();
    Moves::left(document_);
    if (hasLeftContainerFrom(place)) {
        const bool isInSameBlock = blockAround(caret()) == blockAround(container_);
        breakAtCaret();
        document_.recordCaret();
        if (newBlock_ >= 0 && (container_ == table_ || isInSameBlock))
            enterLineBefore();
        return true;
    }
    const int block = blockAroundForm();
    document_.setCaret(block < 0 ? place : document_.text().next(block));
    if (block < 0)
        return false;
    breakAtCaret();
    Moves::left(document_);
    return true;
}

/// The caret goes to the empty line that the break left before the container. Where text stands
/// there instead, the container's own block begins with such a line.
void LineBreak::enterLineBefore() {
    const int before = Stops::previous(document_, caret());
    for (const int place : {caret(), before, document_.text().previous(before)})
        if (Lines::isPlaceholderLine(document_, place))
            return document_.setCaret(place);
    const int start = caret();
    Edit(document_).insert(start, String(XmlScan::nbspEntity));
    document_.setCaret(start);
}

/// At the very end: a line behind it.
bool LineBreak::breakBehindContainer() {
    const int footer =
        container_ == table_ ? document_.text().childNamed(table_, L"fo:table-footer") : -1;
    const int end = document_.text().closingTag(footer < 0 ? container_ : footer);
    // What stands loose in a form ends with a stop on the closing tag itself.
    const bool endsLoose = !Stops::isSkipped(document_, end) && Stops::canHoldCaret(document_, end);
    if (caret() != (endsLoose ? end : Stops::previous(document_, end)))
        return false;
    const int place = caret();
    document_.recordCaret();
    Moves::right(document_);
    if (hasLeftContainerFrom(place)) {
        const bool isBeside = elementAt(caret()) == elementAt(container_);
        breakAtCaret();
        if (container_ == form_ && !isBeside)
            Moves::left(document_);
        return true;
    }
    const int block = blockAroundForm();
    document_.setCaret(block < 0 ? place : document_.text().closingTag(block));
    if (block < 0)
        return false;
    breakAtCaret();
    return true;
}

/// Whether a move has taken the caret out of the container, and neither into another cell nor into
/// another flow or static content, nor from a form into one beside it.
bool LineBreak::hasLeftContainerFrom(int place) const {
    return caret() != place && !document_.text().elementContains(container_, caret()) &&
           document_.text().areInSameRegion(place, caret()) && !isInFormBeside() &&
           (container_ == table_ || document_.text().ancestor(place, L"fo:table-cell") ==
                                        document_.text().ancestor(caret(), L"fo:table-cell"));
}

/// Whether the container is a form and the caret in one that does not hold it.
bool LineBreak::isInFormBeside() const {
    const int form = document_.text().ancestor(caret(), L"qf:form");
    return container_ == form_ && form >= 0 && !document_.text().elementContains(form, form_);
}

/// The block that holds the form, if that is the container; -1 if none.
int LineBreak::blockAroundForm() const {
    return container_ == form_ ? blockAround(form_) : -1;
}

int LineBreak::blockAround(int position) const {
    return document_.text().ancestor(position, L"fo:block");
}

/// The placeholder of an empty block stays in the first half.
void LineBreak::breakInPlace() {
    const int element = elementAt(caret());
    if (document_.text().holdsOnlyPlaceholder(element) &&
        !document_.names.isInline(document_.text().tagName(element)) &&
        caret() == document_.text().placeholderBehind(element)) {
        document_.recordCaret();
        document_.setCaret(document_.text().next(caret()));
    }
    breakAtCaret();
}

void LineBreak::breakAtCaret() {
    newBlock_ = Breaks::insertHardBreak(document_);
}

int LineBreak::caret() const {
    return document_.caret();
}

int LineBreak::elementAt(int position) const {
    return document_.text().elementAround(position);
}
