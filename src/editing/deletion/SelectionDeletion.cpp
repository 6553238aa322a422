#include "editing/deletion/SelectionDeletion.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/TextRewrite.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Lines.h"
#include "document/caret/Stops.h"
#include "document/caret/WhitespaceAlg.h"
#include "document/history/EditActionGroup.h"
#include "editing/deletion/Deletion.h"
#include "editing/deletion/DeletionSweep.h"
#include "editing/deletion/ListEdge.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <vector>

using Core::String;

namespace {

/// Selects again what was selected before the text changed its length from `place` on. An end that
/// would come to lie inside a tag goes to the stop before it, else to the caret.
void restoreSelection(Document& document, int lower, int upper, int place, int change) {
    document.recordCaret();
    // Deliberate: a selection that begins at the place or before it keeps its offsets.
    const auto moved = [&](int offset) {
        const int target = place < lower ? std::max(place, offset + change) : offset;
        const int stop =
            Stops::outsideMarkup(document, std::min(target, document.text().length() - 1));
        return stop < 0 ? document.caret() : stop;
    };
    if (lower >= 0)
        document.select(moved(lower), moved(upper));
    document.recordCaret();
}

} // namespace

/// For a walk that asks again and again, also from further out: it goes on from where it was.
bool SelectionDeletion::ShownAhead::between(int start, int end) {
    const XmlText& text = document_.text();
    if (version_ != text.version())
        from_ = at_ = -1;
    version_ = text.version();
    const bool isWithin = from_ <= start && start <= at_;
    int at = isWithin ? at_ : start;
    while (text.isValid(at) && at < end && !Deletion::showsAt(document_, at))
        at = at == from_ && from_ < at_ ? at_ : text.next(at);
    if (!isWithin)
        from_ = start;
    at_ = at;
    return text.isValid(at) && at < end;
}

SelectionDeletion::SelectionDeletion(Document& document, int start, int end, int handledList)
    : document_(document), start_(start), end_(end), position_(start), handledList_(handledList),
      shown_(document) {}

void SelectionDeletion::run() {
    takeWholeElement();
    takeIndentation();
    document_.recordCaret();
    position_ = start_;
    // Every round passes or removes something, but in a text whose tags do not match one may come
    // back to where it was.
    for (int before = unitsAhead(); playRound(); before = unitsAhead())
        if (unitsAhead() >= before) {
            finishAtStart();
            return;
        }
}

/// An element that is selected from its first position to beyond its end goes with its tags, unless
/// it stands directly in the flow.
void SelectionDeletion::takeWholeElement() {
    const int element = document_.text().elementAround(start_);
    const int behind = document_.text().behindElement(element);
    if (Stops::canHoldCaret(document_, element) && document_.text().next(element) == start_ &&
        behind >= 0 && behind <= end_ && document_.text().parentName(start_) != L"fo:flow")
        start_ = element;
}

/// The line feed and the tabs that indent the markup in front go along. Where they show, as the
/// blank between the words of a wrapped line does, they stay.
void SelectionDeletion::takeIndentation() {
    int indentation = start_;
    Lines::startOfIndentation(document_, indentation);
    const int element = document_.text().elementAround(indentation);
    BufferAlgorithms::WhitespaceAlg whitespace(document_);
    whitespace.load(element);
    for (int at = indentation; at < start_; ++at)
        if (!whitespace.isSkipped(at, element))
            return;
    start_ = indentation;
}

int SelectionDeletion::unitsAhead() const {
    return document_.text().length() - position_;
}

bool SelectionDeletion::playRound() {
    if (isNothingEditableLeft())
        return finishAtStart();
    if (end_ <= position_)
        return finishAtCaret();
    if (sweep())
        return true;
    if (const int list = listAround(position_); list >= 0)
        return deleteFromList(list);
    const int tag = document_.text().nextTag(position_);
    if (tag < 0 || tag >= end_)
        return deleteRestOfText();
    if (document_.text().elementAround(position_) < 0)
        return finishAtStart();
    if (document_.text().closingAt(tag) ? leaveElements() : deleteWhatLeavesSomething())
        return true;
    if (deleteTextBefore(tag))
        return true;
    return document_.text().closingAt(position_) ? leaveElement() : takeChild();
}

bool SelectionDeletion::isNothingEditableLeft() const {
    if (Stops::canHoldCaret(document_, end_))
        return false;
    const int next = Stops::next(document_, position_);
    return next < 0 || next > end_;
}

/// What follows in a row goes at once.
bool SelectionDeletion::sweep() {
    const int before = position_;
    const DeletionSweep::State swept =
        DeletionSweep(document_, {start_, end_, position_}, handledList_).run();
    start_ = swept.start;
    end_ = swept.end;
    position_ = swept.position;
    return position_ != before;
}

// A list

int SelectionDeletion::listAround(int position) const {
    const int list = document_.text().ancestor(position, L"fo:list-block");
    return list > handledList_ ? list : -1;
}

bool SelectionDeletion::deleteFromList(int list) {
    if (!isWhollySelected(list))
        return passList();
    const int outer = listAround(list);
    return outer >= 0 && isWhollySelected(outer) ? deleteFromList(outer) : deleteWholeList(list);
}

bool SelectionDeletion::isWhollySelected(int list) const {
    const int last = Stops::previous(document_, document_.text().closingTag(list));
    return position_ <= Stops::next(document_, list) && last <= end_;
}

bool SelectionDeletion::deleteWholeList(int list) {
    const int behind = document_.text().behindElement(list);
    end_ = std::max(end_, behind);
    remove(list, behind);
    const PlaceholderRepair repaired = repair();
    if (repaired.insertedPlaceholder()) {
        start_ = repaired.placeholder;
        return true;
    }
    if (handledList_ >= 0 && start_ < position_ && end_ <= position_)
        return finishAtStart(); // the caret stays in its item
    start_ = stopNear(position_);
    if (start_ < position_)
        return finishAtStart();
    position_ = start_;
    return true;
}

/// What is left of the list stays, and the walk goes on behind it.
bool SelectionDeletion::passList() {
    ListEdge::Range range{position_, end_};
    const int done = ListEdge::eraseRange(document_, range);
    if (start_ == position_)
        start_ = range.start;
    end_ = range.end;
    position_ = Stops::next(document_, done);
    if (position_ < 0)
        position_ = end_ = Stops::previous(document_, done);
    else if (end_ < position_)
        end_ = position_;
    else
        start_ = position_;
    return true;
}

// Text

bool SelectionDeletion::deleteRestOfText() {
    remove(position_, end_);
    if (Stops::canHoldCaret(document_, position_)) {
        repair();
        keepLineBetweenBlockTags();
    }
    return finishAtStart();
}

/// Of an element, from a position in it on: the borders of the texts and children that lie wholly
/// in the range, and up to which of these they go.
struct SelectionDeletion::Leavings {
    std::vector<int> borders;
    int last;
};

/// Text and children of this element that lie wholly in the range go at once, however many they
/// are, as long as the element shows something without them: then nothing has to be made good.
/// Where nothing else shows, the last that does stays for the rounds to come. If a child follows
/// that holds the end of the range, the same is done in it, however deep that leads.
bool SelectionDeletion::deleteWhatLeavesSomething() {
    if (!canStandAt(position_) || !Stops::canHoldCaret(document_, end_))
        return false;
    TextRewrite rewrite(document_);
    int position = position_;
    int goneBefore = 0;
    for (;;) {
        const Leavings found = leavingsFrom(position);
        int gone = 0;
        for (std::size_t i = 1; i < found.borders.size() && found.borders[i] <= found.last; ++i)
            if (found.borders[i - 1] < found.borders[i]) {
                rewrite.replace(found.borders[i - 1], found.borders[i], {});
                gone += found.borders[i] - found.borders[i - 1];
            }
        const int inner = placeInLastChild(position, found);
        if (inner < 0) {
            const bool isDone = gone > 0 || position > position_;
            position_ = position - goneBefore;
            end_ += rewrite.apply();
            return isDone;
        }
        goneBefore += gone;
        position = inner;
    }
}

bool SelectionDeletion::canStandAt(int position) const {
    return document_.isInEditable(position) && Stops::canHoldCaret(document_, position);
}

SelectionDeletion::Leavings SelectionDeletion::leavingsFrom(int position) {
    const XmlText& text = document_.text();
    const int element = text.elementAround(position);
    std::vector<int> borders{position};
    int lastShown = position; // the border before the last that shows
    for (int tag = text.nextTag(position); 0 <= tag && tag < end_;
         tag = text.nextTag(borders.back())) {
        if (shown_.between(borders.back(), tag))
            lastShown = borders.back();
        borders.push_back(tag);
        const int closing = text.closingTag(tag);
        const int behind = text.next(closing);
        if (closing < 0 || behind < 0 || end_ < behind)
            break;
        if (shown_.between(tag, behind))
            lastShown = tag;
        borders.push_back(behind);
    }
    const bool showsWithout = shown_.between(borders.back(), text.closingTag(element)) ||
                              Deletion::showsBetween(document_, text.next(element), position);
    const int last = showsWithout ? borders.back() : lastShown;
    return {std::move(borders), last};
}

/// Where the rounds would go on next, if all goes up to a child that holds the end of the range and
/// they would begin in it in the same way; else -1.
int SelectionDeletion::placeInLastChild(int position, const Leavings& found) const {
    const XmlText& text = document_.text();
    const int child = found.borders.back();
    const int inner = text.next(child);
    const int tag = text.nextTag(inner);
    if (found.last != child || !text.openingAt(child) || tag < 0 || end_ <= tag ||
        text.closingAt(tag))
        return -1;
    const bool isPlain = !text.isBeforeTable(child) && !text.isBeforeTable(inner) &&
                         !text.commentAt(inner) && listAround(inner) < 0 && canStandAt(inner);
    const bool isNested = text.elementAround(inner) == child &&
                          text.elementAround(child) == text.elementAround(position) &&
                          Deletion::tagsMatch(text, position, child);
    return isPlain && isNested && holdsEnd(child) && holdsEnd(text.elementAround(child)) ? inner
                                                                                         : -1;
}

/// Whether the range ends in the element and in the block around it.
bool SelectionDeletion::holdsEnd(int element) const {
    const XmlText& text = document_.text();
    if (text.closingTag(element) <= end_)
        return false;
    const int block =
        document_.names.isInline(text.tagName(element)) ? text.ancestor(element, L"fo:block") : -1;
    return block < 0 || end_ < text.closingTag(block);
}

/// Removes the text up to the next tag. Answers whether an inline that this emptied went with it,
/// so that the walk is in another element now.
bool SelectionDeletion::deleteTextBefore(int tag) {
    if (position_ == tag)
        return false;
    remove(position_, tag);
    return Stops::canHoldCaret(document_, position_) && repair().removedInline();
}

/// A line between two blocks, or between two line breaks, keeps a place for the caret.
void SelectionDeletion::keepLineBetweenBlockTags() {
    const auto isBlockTag = [this](int position) {
        return document_.text().nameAt(position).substringAfter(L"/") == L"fo:block";
    };
    if (!isBlockTag(position_) || !isBlockTag(document_.text().previous(position_)))
        return;
    start_ = position_;
    insertPlaceholderAtStart();
}

/// So does one behind a line break that nothing follows any more.
void SelectionDeletion::keepLineBehindLineBreak() {
    if (Lines::isEmptyBehindLineBreak(document_, start_))
        insertPlaceholderAtStart();
}

void SelectionDeletion::insertPlaceholderAtStart() {
    const String placeholder(XmlScan::nbspEntity);
    document_.insertUnrecorded(start_, placeholder);
    document_.recordInsertion(start_, placeholder);
    end_ += placeholder.length();
}

// The end of an element

/// The end of an element, of which all goes that stands before it from a place on.
struct SelectionDeletion::Leaving {
    int closing;
    int behind;
    bool isJoined; ///< with the sibling behind it, unless that goes with what is around both
};

/// One element after another is left of which all that follows goes, however many they are, if the
/// first shows something without it: then nothing has to be made good in those around it either.
bool SelectionDeletion::leaveElements() {
    const XmlText& text = document_.text();
    if (position_ < start_ || !Stops::canHoldCaret(document_, end_) ||
        !shown_.between(text.next(text.elementAround(position_)), position_))
        return false;
    TextRewrite rewrite(document_);
    int gone = 0;
    int position = position_;
    for (auto leaving = leavingFrom(position); leaving;) {
        const auto [closing, behind, isJoined] = *leaving;
        leaving = leavingFrom(behind);
        if (isJoined && !leaving)
            break;
        if (position < closing) {
            rewrite.remove(position, closing);
            const EditActionGroup repaired(document_);
            rewrite.recordCaret();
            gone += closing - position;
        }
        position = behind;
    }
    const bool isDone = position > position_;
    position_ = position - gone;
    end_ += rewrite.apply();
    return isDone;
}

/// The end of the element around the position, if the rounds would go on behind it; none else.
std::optional<SelectionDeletion::Leaving> SelectionDeletion::leavingFrom(int position) const {
    const XmlText& text = document_.text();
    const int element = text.elementAround(position);
    const int closing = text.closingTag(element);
    const int behind = text.next(closing);
    if (behind < 0 || end_ <= behind || element <= 0 || text.elementAround(closing) != element ||
        !canStandAt(position) || !canStandAt(behind) || !isPlainBetween(position, closing))
        return std::nullopt;
    const bool isPlain = !text.isBeforeTable(behind) && listAround(position) < 0 &&
                         text.elementAround(behind) == text.elementAround(element);
    if (!isPlain)
        return std::nullopt;
    const bool isBlock = text.tagName(closing) == L"/fo:block";
    return Leaving{closing, behind, isBlock && hasSiblingBehind(closing)};
}

/// Whether nothing but text and whole blocks and inlines stands there.
bool SelectionDeletion::isPlainBetween(int position, int end) const {
    const XmlText& text = document_.text();
    for (int at = text.find(L'<', position); 0 <= at && at < end;
         at = text.find(L'<', text.next(at)))
        if (text.ignoredAt(at) ||
            (!text.closingAt(at) && !document_.names.isEditable(text.tagName(at))))
            return false;
    return position <= end && Deletion::tagsMatch(text, position, end);
}

bool SelectionDeletion::leaveElement() {
    // A nested block is joined before the place behind it is asked, where the caret could stand.
    if (document_.text().tagName(position_) == L"/fo:block" && hasSibling())
        return takeSibling();
    const int behind = document_.text().next(position_);
    if (Stops::canHoldCaret(document_, behind)) {
        position_ = behind;
        return true;
    }
    if (hasSibling())
        return takeSibling();
    position_ = Stops::next(document_, position_);
    return position_ >= 0 || finishAtStart();
}

/// Whether an element of the same kind follows. Cells are never joined, since the caret cannot
/// stand directly in them.
bool SelectionDeletion::hasSibling() const {
    return Stops::canHoldCaret(document_, position_) && hasSiblingBehind(position_);
}

bool SelectionDeletion::hasSiblingBehind(int closing) const {
    return L"/" + document_.text().nextNeighborName(closing, true) ==
           document_.text().nameAt(closing);
}

bool SelectionDeletion::takeSibling() {
    const int sibling = document_.text().nextNeighbor(position_, false);
    if (end_ <= sibling)
        return finishAtStart();
    if (end_ < document_.text().closingTag(sibling))
        return joinSibling(sibling);
    const int behind = document_.text().behindElement(sibling);
    end_ = std::max(end_, behind);
    TextRewrite rewrite(document_);
    rewrite.replace(sibling, behind, {});
    if (Stops::canHoldCaret(document_, end_))
        takeFurtherSiblings(sibling, behind, rewrite);
    end_ += rewrite.apply();
    return true;
}

/// Those that stand in a row behind the sibling and wholly in the range go with it, and only white
/// space stays between.
void SelectionDeletion::takeFurtherSiblings(int sibling, int behind, TextRewrite& rewrite) const {
    const XmlText& text = document_.text();
    const XmlScan::Text name = text.tagName(sibling);
    for (;;) {
        const int next = text.skipSpaces(behind);
        behind = text.tagName(next) == name ? document_.text().behindElement(next) : -1;
        if (behind < 0 || end_ <= behind)
            return;
        rewrite.replace(next, behind, {});
    }
}

/// The range ends in the sibling: its content joins this element. A placeholder that was all either
/// of them held goes.
bool SelectionDeletion::joinSibling(int sibling) {
    const int element = document_.text().elementAround(position_);
    int from = position_;
    int last = sibling;
    if (document_.text().holdsOnlyPlaceholder(element))
        from = document_.text().placeholderBehind(element);
    if (document_.text().holdsOnlyPlaceholder(sibling))
        last = document_.text().placeholderBehind(sibling);
    remove(from, document_.text().next(last));
    document_.recordCaret();
    const PlaceholderRepair repaired = repair();
    if (!repaired.insertedPlaceholder())
        return true;
    start_ = repaired.placeholder;
    return finishAtStart();
}

// A tag in the range

bool SelectionDeletion::takeChild() {
    if (!Stops::canHoldCaret(document_, position_))
        return settle();
    const int closing = document_.text().closingTag(position_);
    const int behind = document_.text().next(closing);
    if (behind <= end_)
        return deleteChild(behind);
    if (closing == end_) {
        remove(position_, behind);
        start_ = position_;
        repair();
        return finishAtStart();
    }
    position_ = document_.text().next(position_);
    return true;
}

bool SelectionDeletion::deleteChild(int behind) {
    remove(position_, behind);
    repair();
    return settle();
}

/// Goes on from the next place where the caret can stand, if that lies in the range.
bool SelectionDeletion::settle() {
    if (Stops::canHoldCaret(document_, position_))
        return true;
    position_ = Stops::next(document_, position_);
    return (position_ >= 0 && position_ <= end_) || finishAtStart();
}

// Changing the text

/// Removes from `from` up to but excluding `to`.
void SelectionDeletion::remove(int from, int to) {
    if (to <= from)
        return;
    document_.recordDeletion(from, document_.removeUnrecorded(from, to - 1));
    for (int* offset : {&start_, &end_, &position_})
        if (*offset >= to)
            *offset -= to - from;
        else if (*offset > from)
            *offset = from;
}

/// Gives what was emptied its placeholder, over which the walk steps, or removes it if it is an
/// inline. A caret that belongs into what was emptied belongs before the placeholder.
PlaceholderRepair SelectionDeletion::repair() {
    const PlaceholderRepair repaired = Placeholders::repair(document_, position_, true);
    for (int* offset : {&start_, &end_, &position_})
        *offset = repaired.map(*offset);
    if (!repaired.insertedPlaceholder())
        return repaired;
    const int element = document_.text().elementAround(repaired.insertedStart);
    const bool isBehindLineBreak =
        document_.text().selfClosingAt(document_.text().previous(start_));
    if (element < start_ && start_ <= document_.text().closingTag(element) && !isBehindLineBreak)
        start_ = repaired.placeholder;
    return repaired;
}

// The caret

bool SelectionDeletion::finishAtStart() {
    if (Stops::canHoldCaret(document_, start_))
        keepLineBehindLineBreak();
    const int position = Stops::canHoldCaret(document_, start_) ? start_ : stopNear(start_);
    const int element = document_.text().elementAround(position);
    document_.setCaret(document_.text().holdsOnlyPlaceholder(element)
                           ? document_.text().placeholderBehind(element)
                           : position);
    document_.recordCaret();
    return false;
}

/// Deliberate: a caret at the end of the range stays there. After a deletion through several cells
/// it is then in the cell whose text follows.
bool SelectionDeletion::finishAtCaret() {
    start_ = position_ = std::max(Stops::outsideMarkup(document_, document_.caret()), start_);
    repair();
    return finishAtStart();
}

/// The position if it is a stop, else the next one in its flow or static content, else the
/// previous; -1 if there is none.
int SelectionDeletion::stopNear(int position) const {
    if (CaretWalk(document_, position).isStop())
        return position;
    const int next = Stops::next(document_, position);
    if (document_.text().areInSameRegion(position, next))
        return next;
    const int previous = Stops::previous(document_, position);
    const bool isNearer = document_.text().areInSameRegion(position, previous);
    return isNearer || next < 0 ? previous : next;
}

String Deletion::deleteSelection(Document& document, bool listHandled) {
    int start = document.selectionStart();
    int end =
        document.hasSelection() ? document.selectionEnd() : document.text().next(document.caret());
    return deleteRange(document, start, end, listHandled);
}

String Deletion::deleteRange(Document& document, int& start, int& end, bool listHandled) {
    const XmlText& text = document.text();
    if (!text.isValid(start) || !text.isValid(end))
        return {};
    SelectionDeletion deletion(document, start, end, listHandled ? text.length() : -1);
    deletion.run();
    start = deletion.start();
    end = deletion.end();
    return {};
}

bool Deletion::showsBetween(const Document& document, int start, int end) {
    const XmlText& text = document.text();
    int at = start;
    while (text.isValid(at) && at < end && !showsAt(document, at))
        at = text.next(at);
    return text.isValid(at) && at < end;
}

bool Deletion::showsAt(const Document& document, int position) {
    const XmlText& text = document.text();
    return text.onTagStart(position) ? !text.closingAt(position) && !document.isEditableAt(position)
                                     : !String::isSpace(text.unitAt(position));
}

String EditableDocumentBuffer::deleteSelection(bool listHandled) {
    return Deletion::deleteSelection(*document_, listHandled);
}

String EditableDocumentBuffer::deleteSelectedXmlText(int& start, int& end, bool listHandled) {
    return Deletion::deleteRange(*document_, start, end, listHandled);
}

void EditableDocumentBuffer::deleteContentAtPosition(bool keepSelection, int from, int to) {
    Document& document = *document_;
    const XmlText& text = document.text();
    const auto isUnitStart = [&](int position) {
        return text.isValid(position) && text.unitStart(position) == position;
    };
    if (from != -1 &&
        (!isUnitStart(from) || !isUnitStart(to) || to < from || document.isOutOfReach(from)))
        return;
    RecordedCommand command(document);
    const int oldLength = text.length();
    const int lower = document.selectionStart();
    const int upper = document.selectionEnd();
    document.recordCaret();
    document.setCaret(from);
    document.recordCaret();
    int start = from;
    int end = to;
    if (from == to)
        Deletion::erase(document, true, false);
    else
        Deletion::deleteRange(document, start, end, false);
    if (keepSelection)
        restoreSelection(document, lower, upper, from, text.length() - oldLength);
    if (!command.mayStand())
        command.takeBack();
}

bool EditableDocumentBuffer::entireSelectionisInTheSameFloatingRegion() const {
    const Document& document = *document_;
    const XmlText& text = document.text();
    const Core::String container = L"fo:block-container";
    if (!text.isValid(document.caret()) || !text.isValid(document.pivot()) ||
        !text.isWithin(document.caret(), container))
        return false;
    // Deliberate: it is not asked whether both ends lie in the same one; hosts have settled on
    // that.
    return !document.hasSelection() || text.ancestor(document.pivot(), container) != 0;
}
