#include "editing/deletion/DeletionSweep.h"

#include "document/Document.h"
#include "document/caret/Stops.h"
#include "editing/deletion/Deletion.h"
#include "text/Vocabulary.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <vector>

using Core::String;
using XmlScan::Text;

namespace {

constexpr Text block = L"fo:block";
constexpr Text list = L"fo:list-block";
constexpr Text table = L"fo:table";

} // namespace

DeletionSweep::DeletionSweep(Document& document, const State& state, int handledList)
    : document_(document), rewrite_(document), state_(state), begin_(state.position),
      handledList_(handledList) {}

DeletionSweep::State DeletionSweep::run() {
    while (!isDone_ && state_.position < state_.end && step()) {
    }
    rewrite_.apply();
    return {state_.start, state_.end + change_, state_.position + changeBefore_};
}

bool DeletionSweep::step() {
    const int around = document_.text().outermostAncestor(state_.position, list, handledList_);
    if (around >= 0)
        return removeList(around);
    if (document_.text().isBeforeTable(state_.position))
        return removeTable(state_.position);
    return emptyBlock();
}

/// Whether the rounds would begin here, and would not ask at each whether any place is left.
bool DeletionSweep::mayChange() const {
    return change_ != 0 || (Stops::canHoldCaret(document_, state_.position) &&
                            Stops::canHoldCaret(document_, state_.end));
}

// Blocks

/// What the block holds goes, a placeholder comes, and the sweep goes on behind it.
bool DeletionSweep::emptyBlock() {
    const XmlText& text = document_.text();
    const int element = blockAtItsStart();
    const int content = text.next(element);
    const int closing = text.closingTag(element);
    if (element < 0 || !isFree(content, closing + 1) ||
        !Deletion::tagsMatch(text, content, closing) || !mayChange())
        return false;
    if (element + change_ < state_.start)
        state_.start = content + change_;
    if (content < closing) {
        replaceBy(XmlScan::nbspEntity, content, closing);
        shownElement_ = element;
    }
    leave(element);
    return true;
}

/// The block whose first stop is the position; -1 if it is no such place. A block that holds
/// nothing stays as it is, and so does white space in front of the first stop.
int DeletionSweep::blockAtItsStart() const {
    const XmlText& text = document_.text();
    const auto isInline = [&](int element) {
        return document_.names.isInline(text.tagName(element));
    };
    const int position = state_.position;
    if (!text.isValid(position) || String::isSpace(text.unitAt(position)) ||
        text.ignoredAt(position))
        return -1;
    int element = text.elementAround(position);
    int inner = position;
    while (isInline(element) && text.next(element) == inner && !text.closingAt(position)) {
        inner = element;
        element = text.elementAround(element);
    }
    return isBlock(element) && text.next(element) == inner ? element : -1;
}

/// From the closing tag of the element and on over those that close what is around it, as far as
/// the caret can stand before them.
void DeletionSweep::leave(int element) {
    const XmlText& text = document_.text();
    goTo(text.closingTag(element));
    isDone_ = true;
    for (;;) {
        const int behind = removeSiblings(element, text.next(state_.position));
        if (behind < 0)
            return;
        const int parent = text.elementAround(element);
        if (element == shownElement_)
            shownElement_ = parent;
        element = parent;
        if (!document_.isEditableAt(element)) {
            goOnFrom(behind);
            return;
        }
        goTo(behind);
        if (!isBlock(element) || behind != text.closingTag(element) || !isFree(behind, behind + 1))
            return;
    }
}

/// Of those that a block is joined with the next to it go. Answers the offset behind them; -1 where
/// another one stays or may follow.
int DeletionSweep::removeSiblings(int element, int behind) {
    const XmlText& text = document_.text();
    const Text name = text.tagName(element);
    if (!document_.names.isEditable(name))
        return behind;
    for (;;) {
        const int next = text.skipSpaces(behind);
        const int tag = behindComments(next);
        if (state_.end <= tag || !text.onTagStart(tag) || text.ignoredAt(tag))
            return -1;
        if (text.tagName(tag) != name)
            return behind;
        const int last = text.behindElement(next);
        if (name != block || tag != next || !isFree(next, last))
            return -1;
        remove(next, last);
        behind = last;
    }
}

/// From where nothing but a table makes a place for the caret.
void DeletionSweep::goOnFrom(int place) {
    const int next = placeFrom(place);
    if (next < 0)
        return;
    goTo(next);
    isDone_ = false;
}

// Lists and tables

bool DeletionSweep::removeList(int list) {
    const XmlText& text = document_.text();
    const int behind = text.behindElement(list);
    if (Stops::next(document_, list) < state_.position || !isFree(list, behind))
        return false;
    if (isAllOfParent(list, behind))
        return replaceList(list, behind);
    const int place = placeFrom(behind);
    if (place < 0 || !mayGo(list, behind) || !text.areInSameRegion(behind, place))
        return false;
    remove(list, behind);
    state_.start = place + change_;
    goTo(place);
    return true;
}

/// What holds the list alone keeps a place for the caret, which belongs there.
bool DeletionSweep::replaceList(int list, int behind) {
    const XmlText& text = document_.text();
    const int parent = text.elementAround(list);
    const Text name = text.tagName(parent);
    const bool isContainer = XmlScan::contains(Vocabulary::blockContainers, name);
    if ((!isBlock(parent) && !isContainer) || !isFree(behind, behind + 1) || !mayChange())
        return false;
    const String start = isBlock(parent) ? String() : L"<" + String(block) + L">";
    const String end = isBlock(parent) ? String() : L"</" + String(block) + L">";
    state_.start = list + change_ + start.length();
    replaceBy((start + String(XmlScan::nbspEntity) + end).view(), list, behind);
    shownElement_ = parent;
    leave(parent);
    return true;
}

bool DeletionSweep::removeTable(int table) {
    const int behind = document_.text().behindElement(table);
    const int place = placeFrom(behind);
    if (place < 0 || !isFree(table, behind) || !mayGo(table, behind))
        return false;
    remove(table, behind);
    goTo(place);
    return true;
}

/// Whether nothing has to be made good when it goes, and no table is in front, behind which the
/// caret could stand.
bool DeletionSweep::mayGo(int structure, int behind) {
    const int before = structure == removedEnd_ ? removedFrom_ : structure;
    return showsWithout(structure, behind) && mayChange() &&
           document_.text().previousTagName(before) != L"/fo:table";
}

/// Whether it stands among others, in what holds nothing by itself.
bool DeletionSweep::showsWithout(int structure, int behind) {
    const XmlText& text = document_.text();
    const int parent = text.elementAround(structure);
    const Text parentName = text.tagName(parent);
    const int next = behindComments(text.skipSpaces(behind));
    if (parent < 0 || document_.names.isEditable(parentName) ||
        document_.names.isInline(parentName) || !text.onTagStart(next) || text.ignoredAt(next) ||
        state_.end <= next)
        return false;
    return text.tagName(next) == list || text.tagName(next) == table ||
           showsInFront(parent, structure);
}

/// Whether the element shows something in front of the child and of where the sweep began, or a
/// placeholder since.
bool DeletionSweep::showsInFront(int element, int child) {
    const int content = document_.text().next(element);
    const int end = std::min(child, begin_);
    if (element != shownElement_ && content < end &&
        Deletion::showsBetween(document_, content, end))
        shownElement_ = element;
    return element == shownElement_;
}

bool DeletionSweep::isAllOfParent(int element, int behind) const {
    const XmlText& text = document_.text();
    const int parent = text.elementAround(element);
    return text.next(parent) == element && text.closingTag(parent) == behind;
}

// What they have in common

bool DeletionSweep::isBlock(int element) const {
    return document_.names.isBlock(document_.text().tagName(element));
}

int DeletionSweep::behindComments(int position) const {
    const XmlText& text = document_.text();
    while (text.commentAt(position))
        position = text.skipSpaces(text.next(position));
    return position;
}

/// Whether it lies in the range and neither end of the selection in it.
bool DeletionSweep::isFree(int from, int behind) const {
    const auto isOutside = [&](int offset) { return offset < from || behind <= offset; };
    return from < behind && behind < state_.end && isOutside(document_.caret()) &&
           isOutside(document_.pivot());
}

/// The first stop at the place or behind it, where the element around is none to stand in; -1 if
/// that is not in the range.
int DeletionSweep::placeFrom(int place) const {
    const XmlText& text = document_.text();
    const int tag = behindComments(text.skipSpaces(place));
    const int next = text.isBeforeTable(tag) ? tag : Stops::next(document_, tag);
    return next < state_.end ? next : -1;
}

/// Up to there all is done.
void DeletionSweep::goTo(int position) {
    state_.position = position;
    changeBefore_ = change_;
}

void DeletionSweep::replaceBy(Text xml, int from, int behind) {
    rewrite_.replace(from, behind, {});
    rewrite_.replace(behind, behind, String(xml));
    change_ += static_cast<int>(xml.size()) - (behind - from);
}

void DeletionSweep::remove(int from, int behind) {
    rewrite_.replace(from, behind, {});
    change_ -= behind - from;
    begin_ = std::min(begin_, from);
    if (from != removedEnd_)
        removedFrom_ = from;
    removedEnd_ = behind;
}

bool Deletion::tagsMatch(const XmlText& text, int at, int end) {
    std::vector<Text> open;
    for (at = text.nextTag(at); 0 <= at && at < end; at = text.nextTag(text.next(at))) {
        const Text name = text.tagName(at);
        if (text.openingAt(at)) {
            open.push_back(name);
        } else if (!text.selfClosingAt(at)) {
            if (!name.starts_with(L'/') || open.empty() || open.back() != name.substr(1))
                return false;
            open.pop_back();
        }
    }
    return at == end && open.empty();
}
