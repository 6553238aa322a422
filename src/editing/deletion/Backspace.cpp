#include "editing/deletion/Backspace.h"

#include "document/Document.h"
#include "document/Edit.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/caret/Lines.h"
#include "document/caret/Stops.h"
#include "editing/deletion/Deletion.h"
#include "editing/deletion/ListEdge.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;

int Backspace::run() {
    while (playRound()) {
    }
    return caret_;
}

bool Backspace::playRound() {
    look();
    if (isPlaceholderBlock())
        return takePlaceholder();
    if (spaces_ < 1)
        return false;
    if (!followsMarkup())
        return removeCharacter();
    if (spaces_ < origin_ && !Stops::isSkipped(document_, origin_))
        return removeSkippedSpaces();
    if (type_ != xmlElement)
        return removeIgnoredMarkup();
    return removeAtTag();
}

bool Backspace::removeAtTag() {
    if (document_.text().selfClosingAt(tag_))
        return removeEmptyElement();
    if (const int list = listBefore(); list >= 0)
        return eraseInPreviousList(list);
    if (closesNestedBlock())
        return moveRunIntoNestedBlock();
    if (Lines::isNestedBlock(document_, tag_))
        return dissolveNestedBlock();
    if (document_.names.isInline(tagName_))
        return takeInlineBehind();
    if (document_.names.closesInline(tagName_))
        return takeInlineBefore();
    if (tagName_ == L"fo:block")
        return joinPreviousBlock();
    return removeObject();
}

void Backspace::look() {
    origin_ = caret_;
    element_ = document_.text().elementAround(origin_);
    spaces_ = Lines::startOfSkipped(document_, origin_);
    type_ = document_.text().kindEndingAt(spaces_ - 1);
    tag_ = document_.text().previousTag(spaces_ - 1);
    tagName_ = document_.text().nameAt(tag_);
}

/// Whether a tag, comment, CDATA section or processing instruction ends before the white space. A
/// bare ">" is text.
bool Backspace::followsMarkup() const {
    return type_ == xmlElement ? behindTag() == spaces_ : type_ != xmlNone;
}

// A block that holds just its placeholder

bool Backspace::isPlaceholderBlock() const {
    return document_.text().holdsOnlyPlaceholder(element_) &&
           !document_.names.isInline(document_.text().tagName(element_));
}

/// Takes the placeholder, so that the next round finds an empty block. Nothing joins the first
/// block of a flow, which keeps its placeholder; a block nested in it can go.
bool Backspace::takePlaceholder() {
    const int start = document_.text().next(element_);
    const int previous = Stops::previous(document_, start);
    if (!document_.text().areInSameRegion(start, previous) &&
        !Lines::isNestedBlock(document_, element_))
        return false;
    const int placeholder = document_.text().placeholderBehind(element_);
    const int behind = document_.text().next(placeholder);
    caret_ = start;
    Edit(document_).remove(start, origin_ < behind ? behind : origin_);
    return true;
}

// A comment, CDATA section or processing instruction

/// Deliberate: there is no record of the removal, so that undo does not bring it back; the history
/// is told to forget what was there.
bool Backspace::removeIgnoredMarkup() {
    const int start = document_.text().kindStart(type_, spaces_ - 1);
    const String removed = document_.removeUnrecorded(start, origin_ - 1);
    document_.history.forget(start, removed);
    caret_ = start;
    return false;
}

// White space behind a tag

bool Backspace::removeSkippedSpaces() {
    Edit(document_).remove(spaces_, startOfJoined());
    caret_ = spaces_;
    return true;
}

// A soft break, a tab or another empty element

/// A soft break that was the last thing in a block, or the first, takes the block's boundary along.
/// White space in front of it that shows stays.
bool Backspace::removeEmptyElement() {
    if (followsEmptyLine())
        return removeEmptyLineBefore();
    const bool isSkipped = Stops::isSkipped(document_, tag_);
    const bool joinsText = tagName_ == L"fo:block" && !Lines::isStart(document_, tag_);
    int start = tag_;
    Lines::startOfIndentation(document_, start);
    start =
        Lines::startOfLayout(document_, std::max(start, Lines::startOfSkipped(document_, tag_)));
    caret_ = start;
    Edit(document_).remove(start, joinsText ? behindJoinedPlaceholder() : startOfJoined());
    if (!document_.names.isEditable(tagName_)) { // which begins no line
        caret_ = Placeholders::repairLine(document_, start);
        return false;
    }
    const int line = Lines::startOfSkipped(document_, start);
    return isSkipped && isBlockBoundaryBefore(line) &&
           !document_.text().selfClosingAt(document_.text().previous(line));
}

/// Whether the soft break ends a line that holds just a placeholder, and another line follows.
bool Backspace::followsEmptyLine() const {
    return tagName_ == L"fo:block" && Lines::isPlaceholderLine(document_, unitBeforeTag()) &&
           !Lines::isEnd(document_, origin_);
}

/// The line takes the place of the empty one.
bool Backspace::removeEmptyLineBefore() {
    caret_ = unitBeforeTag();
    Edit(document_).remove(caret_, startOfJoined());
    return false;
}

int Backspace::unitBeforeTag() const {
    return document_.text().previous(Lines::startOfSkipped(document_, tag_));
}

// The end of a nested block

bool Backspace::closesNestedBlock() const {
    return tagName_ == L"/fo:block" &&
           Lines::isNestedBlock(document_, document_.text().elementAround(tag_));
}

/// What stands behind the nested block, up to the next block, becomes its end.
bool Backspace::moveRunIntoNestedBlock() {
    const int block = document_.text().elementAround(tag_);
    if (Placeholders::isVoid(document_, block)) {
        caret_ = block;
        Edit(document_).remove(block, origin_);
        return true;
    }
    Edit(document_).insert(endOfRun(), L"</fo:block>");
    if (document_.text().holdsOnlyPlaceholder(block)) {
        caret_ = document_.text().next(block);
        Edit(document_).remove(caret_, origin_);
        return false;
    }
    caret_ = Lines::startOfLayout(document_, tag_);
    Edit(document_).remove(caret_, startOfJoined());
    return isBlockBoundaryBefore(caret_);
}

int Backspace::endOfRun() const {
    const int limit = document_.text().closingTag(element_);
    int tag = document_.text().nextTag(origin_);
    while (tag >= 0 && tag < limit &&
           document_.text().nameAt(tag).substringAfter(L"/") != L"fo:block") {
        tag = document_.text().nextTag(document_.text().openingAt(tag)
                                           ? document_.text().behindElement(tag)
                                           : document_.text().next(tag));
    }
    return tag;
}

// The start of a nested block

/// The tags of the nested block go, so that its content continues the line before it.
bool Backspace::dissolveNestedBlock() {
    const int end = Lines::startOfLayout(document_, tag_);
    const int closing = document_.text().closingTag(tag_);
    Edit(document_).remove(closing, document_.text().next(closing));
    if (mustStayApart(closing))
        Edit(document_).insert(closing, L"<fo:block />");
    Edit(document_).remove(end, startOfJoined());
    caret_ = end;
    return isBlockBoundaryBefore(end);
}

/// Whether something follows that would run into the line that ends at the position.
bool Backspace::mustStayApart(int position) const {
    const int tag = document_.text().nextTag(position);
    return document_.text().skipSpaces(position) != tag ||
           document_.text().nextTagName(tag).substringAfter(L"/") != L"fo:block";
}

// The edges of an inline

/// The inline begins before the caret: the deletion goes on before it.
bool Backspace::takeInlineBehind() {
    caret_ = tag_;
    if (voids_.contains(tag_))
        Edit(document_).remove(tag_, document_.text().behindElement(tag_));
    return true;
}

/// The inline ends before the caret: the deletion goes on inside it.
bool Backspace::takeInlineBefore() {
    const int inlineElement = document_.text().elementAround(tag_);
    if (!Placeholders::holdsOneUnit(document_, inlineElement, stops_)) {
        caret_ = tag_;
        return true;
    }
    Edit(document_).remove(inlineElement, behindTag());
    caret_ = Placeholders::repairLine(document_, inlineElement);
    return false;
}

// The start of a block

/// The content joins the previous block, whose start tag rules. Where that ends with a nested block
/// it goes on into it, unless it took the place of an empty line.
bool Backspace::joinPreviousBlock() {
    String name;
    const int block = previousBlock(name);
    if (name != L"fo:block" || isSeparatedFrom(block))
        return false;
    const int end = endOfLastLine(block);
    const bool isLineEmpty = end < document_.text().closingTag(block);
    caret_ = Lines::startOfLayout(document_, end);
    Edit(document_).remove(caret_, isLineEmpty ? startOfJoined() : behindJoinedPlaceholder());
    const int before = document_.text().previous(caret_);
    return !isLineEmpty && document_.text().closingTagFollows(before) &&
           document_.text().onTagStart(before) && isBlockName(document_.text().nameAt(before));
}

/// Where the last line of the block ends that goes on: before its placeholder if it is empty.
int Backspace::endOfLastLine(int block) const {
    if (document_.text().holdsOnlyPlaceholder(block))
        return document_.text().placeholderBehind(block);
    const int closing = document_.text().closingTag(block);
    const int last = document_.text().previous(Lines::startOfSkipped(document_, closing));
    const bool goesOn =
        Lines::isPlaceholderLine(document_, last) && !Placeholders::isVoid(document_, element_);
    return goesOn ? last : closing;
}

/// Where what joins a line begins: at the caret, with the blanks that the start of its own line
/// hid.
int Backspace::startOfJoined() const {
    return std::min(Lines::endOfLayout(document_, spaces_), origin_);
}

/// The same, but behind its placeholder if that is all of the line.
int Backspace::behindJoinedPlaceholder() const {
    const int start = startOfJoined();
    const int length = document_.text().placeholderLength(start);
    return Lines::isPlaceholderLine(document_, start) ? start + length : start;
}

/// The element before the block, void blocks passed over.
int Backspace::previousBlock(String& name) const {
    name = document_.text().nameAt(document_.text().previousNeighbor(origin_, true));
    int element = document_.text().previousNeighbor(origin_, true);
    while (name == L"fo:block" && Placeholders::isVoid(document_, element)) {
        const int closing = document_.text().closingTag(element);
        name = document_.text().nameAt(document_.text().previousNeighbor(closing, false));
        element = document_.text().previousNeighbor(closing, false);
    }
    return element;
}

/// Whether text stands between the block and the one at whose start the round began. It would be
/// lost.
bool Backspace::isSeparatedFrom(int block) const {
    const XmlText& text = document_.text();
    int at = text.behindElement(block);
    while (0 <= at && at < tag_ && (text.onTagStart(at) || String::isSpace(text.unitAt(at))))
        at = text.next(at);
    return at < tag_;
}

// A list

/// The list that ends before the line, right there or as the last thing in the block before; -1 if
/// text or something else stands in between.
int Backspace::listBefore() const {
    const XmlText& text = document_.text();
    int tag = tagName_ == L"fo:block" ? unitBefore(tag_) : tag_;
    while (text.tagName(tag).ends_with(L"fo:block") && !text.openingAt(tag)) {
        const bool closes = text.closingAt(tag);
        const int block = closes ? document_.text().elementAround(tag) : tag;
        tag = unitBefore(Placeholders::isVoid(document_, block) ? block : tag);
    }
    return text.tagName(tag) == L"/fo:list-block" ? document_.text().elementAround(tag) : -1;
}

/// The unit before the position, white space that does not show passed over.
int Backspace::unitBefore(int position) const {
    return document_.text().previous(Lines::startOfSkipped(document_, position));
}

/// The caret steps into the last item of the list, from where Delete pulls the line in. Beside the
/// list, where no line follows, that is all. A list that the caret cannot enter goes whole.
bool Backspace::eraseInPreviousList(int list) {
    const XmlText& text = document_.text();
    const int last = Stops::previous(document_, document_.text().closingTag(list));
    if (last <= list)
        return removeList(list);
    const int next = Lines::endOfSkipped(document_, origin_);
    const bool beginsBlock = tagName_ == L"fo:block";
    const bool endsLine = text.closingAt(next) || text.tagName(next) == L"fo:block";
    const int place = document_.caret();
    const TextMark before = text.mark();
    document_.recordCaret();
    document_.setCaret(last);
    if (beginsBlock || !endsLine)
        ListEdge::erase(document_, true, false);
    if (beginsBlock && text.isAsAt(before))
        document_.setCaret(place);
    document_.recordCaret();
    caret_ = document_.caret();
    return false;
}

bool Backspace::removeList(int list) {
    const int behind = document_.text().behindElement(list);
    if (behind < 0) // the closing tag found is of nothing
        return false;
    Edit(document_).remove(list, behind);
    caret_ = Placeholders::repair(document_, list, true).map(origin_ - (behind - list));
    return false;
}

// A table or another object

/// It goes whole.
bool Backspace::removeObject() {
    if (!document_.text().closingTagFollows(tag_))
        return false;
    int start = document_.text().elementAround(tag_);
    if (!document_.text().isValid(start))
        return false;
    Lines::startOfIndentation(document_, start);
    caret_ = start;
    Edit(document_).remove(start, origin_);
    return false;
}

// A character

/// A blank beside it that would collapse now is kept as a non-breaking space.
bool Backspace::removeCharacter() {
    if (isOnlyUnitOfInline()) {
        Edit(document_).remove(element_, document_.text().behindElement(element_));
        caret_ = Placeholders::repairLine(document_, element_);
        return false;
    }
    const int character = document_.text().previous(spaces_);
    const int start = startWithBlank(character);
    const int end = endWithBlank();
    const bool blankBefore = start < character;
    const bool blankBehind = end > origin_;
    caret_ = start;
    Edit(document_).remove(start, end);
    if (blankBefore || blankBehind)
        Edit(document_).insert(start, String(XmlScan::nbspCharacter));
    else if (isBetweenBlockTags(start) || Lines::isEmptyBehindLineBreak(document_, start))
        Edit(document_).insert(start, String(XmlScan::nbspEntity));
    // Deliberate: of two blanks only the one before is kept; recorded scripts rely on the result.
    if (blankBefore)
        ++caret_;
    return false;
}

bool Backspace::isOnlyUnitOfInline() const {
    return document_.names.isInline(document_.text().tagName(element_)) &&
           Placeholders::holdsOneUnit(document_, element_) &&
           !Placeholders::isFootnoteMark(document_, element_) &&
           Stops::next(document_, element_) != origin_;
}

/// Where the blank before the character begins, with the white space before that which does not
/// show; the character itself where there is none.
int Backspace::startWithBlank(int character) const {
    const int blank = document_.text().previous(character);
    return Lines::isKeptBlank(document_, blank, element_) ? Lines::startOfSkipped(document_, blank)
                                                          : character;
}

/// Where the blank behind the caret ends, in the same way; the caret itself where there is none.
int Backspace::endWithBlank() const {
    const int blank = Lines::endOfSkipped(document_, origin_);
    return Lines::isKeptBlank(document_, blank, element_)
               ? Lines::endOfSkipped(document_, blank + 1)
               : origin_;
}

bool Backspace::isBetweenBlockTags(int position) const {
    const int before = document_.text().previous(position);
    return isBlockName(document_.text().nameAt(position)) &&
           isBlockName(document_.text().nameAt(before));
}

// Questions

/// Whether a block begins or ends right before the position, or a soft break stands there.
bool Backspace::isBlockBoundaryBefore(int position) const {
    const int before = document_.text().previous(position);
    return document_.text().kindEndingAt(position - 1) == xmlElement &&
           isBlockName(document_.text().nameAt(before));
}

/// Whether the tag opens, closes or is a block that the caret can stand in.
bool Backspace::isBlockName(const String& tagName) const {
    return document_.names.isBlock(tagName.substringAfter(L"/"));
}

int Backspace::behindTag() const {
    return document_.text().next(tag_);
}

void Deletion::backward(Document& document, int& caret) {
    caret = Backspace(document, caret).run();
}

void EditableDocumentBuffer::deleteBackwards(int& caret) {
    Deletion::backward(*document_, caret);
}
