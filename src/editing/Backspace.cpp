#include "editing/Backspace.h"

#include "document/EditableDocumentBuffer.h"
#include "editing/ListBuffer.h"
#include "editing/PlaceholderRepair.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;
using XmlScan::Text;

void EditableDocumentBuffer::deleteBackwards(int& caret) {
    caret = Backspace(*this, caret).run();
}

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
    if (spaces_ < origin_ && !buffer_.isSkippedByCaret(origin_))
        return removeSkippedSpaces();
    if (type_ != xmlElement)
        return removeIgnoredMarkup();
    return removeAtTag();
}

bool Backspace::removeAtTag() {
    if (buffer_.selfClosingTagAtPosition(tag_))
        return removeEmptyElement();
    if (const int list = listBefore(); list >= 0)
        return eraseInPreviousList(list);
    if (closesNestedBlock())
        return moveRunIntoNestedBlock();
    if (buffer_.imbricatedBlocksContext(tag_))
        return dissolveNestedBlock();
    if (buffer_.isInlineEditableElementName(tagName_))
        return takeInlineBehind();
    if (buffer_.isInlineEditableElementClosingTagName(tagName_))
        return takeInlineBefore();
    if (tagName_ == L"fo:block")
        return joinPreviousBlock();
    return removeObject();
}

void Backspace::look() {
    origin_ = caret_;
    element_ = buffer_.getCurrentElementPosition(origin_);
    spaces_ = buffer_.startOfSkippedSpaces(origin_);
    type_ = buffer_.getElementTypeOnEndTagPosition(spaces_ - 1);
    tag_ = buffer_.getPreviousTagNameAndPos(spaces_ - 1, tagName_);
}

/// Whether a tag, comment, CDATA section or processing instruction ends before the white space. A
/// bare ">" is text.
bool Backspace::followsMarkup() const {
    return type_ == xmlElement ? behindTag() == spaces_ : type_ != xmlNone;
}

// A block that holds just its placeholder

bool Backspace::isPlaceholderBlock() const {
    return buffer_.elementContainsJustNonBreakingSpace(element_) &&
           !buffer_.isInlineEditableElementName(buffer_.getNameForTagAtPosition(element_, true));
}

/// Takes the placeholder, so that the next round finds an empty block. Nothing joins the first
/// block of a flow, which keeps its placeholder; a block nested in it can go.
bool Backspace::takePlaceholder() {
    const int start = buffer_.getNextEditablePositionInXml(element_);
    const int previous = buffer_.getPreviousValidCaretPos(start);
    if (!buffer_.positionsAreInTheSameFlowElement(start, previous) &&
        !buffer_.imbricatedBlocksContext(element_))
        return false;
    const int placeholder = buffer_.getNonBreakingSpacePosition(element_);
    const int behind = buffer_.getNextEditablePositionInXml(placeholder);
    caret_ = start;
    buffer_.removeAndRecord(start, origin_ < behind ? behind : origin_);
    return true;
}

// A comment, CDATA section or processing instruction

/// Deliberate: there is no record of the removal, so that undo does not bring it back; the history
/// is told to forget what was there.
bool Backspace::removeIgnoredMarkup() {
    const int start = buffer_.getElementStartPosition(type_, spaces_ - 1);
    const String removed = buffer_.deleteXmlText(start, origin_ - 1);
    buffer_.editActionStack_.forget(start, removed);
    caret_ = start;
    return false;
}

// White space behind a tag

bool Backspace::removeSkippedSpaces() {
    buffer_.removeAndRecord(spaces_, startOfJoined());
    caret_ = spaces_;
    return true;
}

// A soft break, a tab or another empty element

/// A soft break that was the last thing in a block, or the first, takes the block's boundary along.
/// White space in front of it that shows stays.
bool Backspace::removeEmptyElement() {
    if (followsEmptyLine())
        return removeEmptyLineBefore();
    const bool isSkipped = buffer_.isSkippedByCaret(tag_);
    const bool joinsText = tagName_ == L"fo:block" && !buffer_.isLineStart(tag_);
    int start = tag_;
    buffer_.deleteSpacesBetweenTags(start);
    start = buffer_.startOfLayout(std::max(start, buffer_.startOfSkippedSpaces(tag_)));
    caret_ = start;
    buffer_.removeAndRecord(start, joinsText ? behindJoinedPlaceholder() : startOfJoined());
    const int line = buffer_.startOfSkippedSpaces(start);
    return isSkipped && isBlockBoundaryBefore(line) &&
           !buffer_.selfClosingTagAtPosition(buffer_.getPreviousEditablePositionInXml(line));
}

/// Whether the soft break ends a line that holds just a placeholder, and another line follows.
bool Backspace::followsEmptyLine() const {
    return tagName_ == L"fo:block" && buffer_.isPlaceholderLine(unitBeforeTag()) &&
           !buffer_.isLineEnd(origin_);
}

/// The line takes the place of the empty one.
bool Backspace::removeEmptyLineBefore() {
    caret_ = unitBeforeTag();
    buffer_.removeAndRecord(caret_, startOfJoined());
    return false;
}

int Backspace::unitBeforeTag() const {
    return buffer_.getPreviousEditablePositionInXml(buffer_.startOfSkippedSpaces(tag_));
}

// The end of a nested block

bool Backspace::closesNestedBlock() const {
    return tagName_ == L"/fo:block" &&
           buffer_.imbricatedBlocksContext(buffer_.getCurrentElementPosition(tag_));
}

/// What stands behind the nested block, up to the next block, becomes its end.
bool Backspace::moveRunIntoNestedBlock() {
    const int block = buffer_.getCurrentElementPosition(tag_);
    if (buffer_.elementContainsJustWhitespacesOrVoid(block)) {
        caret_ = block;
        buffer_.removeAndRecord(block, origin_);
        return true;
    }
    buffer_.insertAndRecord(endOfRun(), L"</fo:block>");
    if (buffer_.elementContainsJustNonBreakingSpace(block)) {
        caret_ = buffer_.getNextEditablePositionInXml(block);
        buffer_.removeAndRecord(caret_, origin_);
        return false;
    }
    caret_ = buffer_.startOfLayout(tag_);
    buffer_.removeAndRecord(caret_, startOfJoined());
    return isBlockBoundaryBefore(caret_);
}

int Backspace::endOfRun() const {
    const int limit = buffer_.getClosingTagForTagAtPosition(element_);
    int tag = buffer_.getNextTagPosition(origin_);
    while (tag >= 0 && tag < limit &&
           buffer_.getNameForTagAtPosition(tag, true).substringAfter(L"/") != L"fo:block") {
        if (XmlScan::openingAt(buffer_.text_.view(), tag))
            tag = buffer_.getClosingTagForTagAtPosition(tag);
        tag = buffer_.getNextTagPosition(tag + 1);
    }
    return tag;
}

// The start of a nested block

/// The tags of the nested block go, so that its content continues the line before it.
bool Backspace::dissolveNestedBlock() {
    const int end = buffer_.startOfLayout(tag_);
    const int closing = buffer_.getClosingTagForTagAtPosition(tag_);
    buffer_.removeAndRecord(closing, buffer_.getNextEditablePositionInXml(closing));
    if (mustStayApart(closing))
        buffer_.insertAndRecord(closing, L"<fo:block />");
    buffer_.removeAndRecord(end, startOfJoined());
    caret_ = end;
    return isBlockBoundaryBefore(end);
}

/// Whether something follows that would run into the line that ends at the position.
bool Backspace::mustStayApart(int position) const {
    const int tag = buffer_.getNextTagPosition(position);
    return XmlScan::skipSpaces(buffer_.text_.view(), position) != tag ||
           buffer_.getNextTagName(tag).substringAfter(L"/") != L"fo:block";
}

// The edges of an inline

/// The inline begins before the caret: the deletion goes on before it.
bool Backspace::takeInlineBehind() {
    caret_ = tag_;
    if (buffer_.elementContainsJustWhitespacesOrVoid(tag_))
        buffer_.removeAndRecord(tag_, buffer_.positionBehindElement(tag_));
    return true;
}

/// The inline ends before the caret: the deletion goes on inside it.
bool Backspace::takeInlineBefore() {
    const int inlineElement = buffer_.getCurrentElementPosition(tag_);
    if (!buffer_.editableElementContainsJustOneMoreChar(inlineElement)) {
        caret_ = tag_;
        return true;
    }
    caret_ = inlineElement;
    buffer_.removeAndRecord(inlineElement, behindTag());
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
    const bool isLineEmpty = end < buffer_.getClosingTagForTagAtPosition(block);
    caret_ = buffer_.startOfLayout(end);
    buffer_.removeAndRecord(caret_, isLineEmpty ? startOfJoined() : behindJoinedPlaceholder());
    const int before = buffer_.getPreviousEditablePositionInXml(caret_);
    return !isLineEmpty && buffer_.closingElementTagAtPosition(before) &&
           buffer_.onTagStartPosition(before) &&
           isBlockName(buffer_.getNameForTagAtPosition(before, true));
}

/// Where the last line of the block ends that goes on: before its placeholder if it is empty.
int Backspace::endOfLastLine(int block) const {
    if (buffer_.elementContainsJustNonBreakingSpace(block))
        return buffer_.getNonBreakingSpacePosition(block);
    const int closing = buffer_.getClosingTagForTagAtPosition(block);
    const int last =
        buffer_.getPreviousEditablePositionInXml(buffer_.startOfSkippedSpaces(closing));
    const bool goesOn =
        buffer_.isPlaceholderLine(last) && !buffer_.elementContainsJustWhitespacesOrVoid(element_);
    return goesOn ? last : closing;
}

/// Where what joins a line begins: at the caret, with the blanks that the start of its own line
/// hid.
int Backspace::startOfJoined() const {
    return std::min(buffer_.endOfLayout(spaces_), origin_);
}

/// The same, but behind its placeholder if that is all of the line.
int Backspace::behindJoinedPlaceholder() const {
    const int start = startOfJoined();
    const int length = XmlScan::placeholderLength(buffer_.text_.view(), start);
    return buffer_.isPlaceholderLine(start) ? start + length : start;
}

/// The element before the block, void blocks passed over.
int Backspace::previousBlock(String& name) const {
    name = buffer_.getPreviousNeighborName(origin_, true);
    int element = buffer_.getPreviousNeighborPosition(origin_, true);
    while (name == L"fo:block" && buffer_.elementContainsJustWhitespacesOrVoid(element)) {
        const int closing = buffer_.getClosingTagForTagAtPosition(element);
        name = buffer_.getPreviousNeighborName(closing, false);
        element = buffer_.getPreviousNeighborPosition(closing, false);
    }
    return element;
}

/// Whether text stands between the block and the one at whose start the round began. It would be
/// lost.
bool Backspace::isSeparatedFrom(int block) const {
    const Text text = buffer_.text_.view();
    for (int at = buffer_.positionBehindElement(block); at < tag_;
         at = buffer_.getNextEditablePositionInXml(at))
        if (!XmlScan::onTagStart(text, at) && !String::isSpace(XmlScan::unitAt(text, at)))
            return true;
    return false;
}

// A list

/// The list that ends before the line, right there or as the last thing in the block before; -1 if
/// text or something else stands in between.
int Backspace::listBefore() const {
    const Text text = buffer_.text_.view();
    int tag = tagName_ == L"fo:block" ? unitBefore(tag_) : tag_;
    while (XmlScan::tagName(text, tag).ends_with(L"fo:block") && !XmlScan::openingAt(text, tag)) {
        const bool closes = XmlScan::closingAt(text, tag);
        const int block = closes ? buffer_.getCurrentElementPosition(tag) : tag;
        tag = unitBefore(buffer_.elementContainsJustWhitespacesOrVoid(block) ? block : tag);
    }
    return XmlScan::tagName(text, tag) == L"/fo:list-block" ? buffer_.getCurrentElementPosition(tag)
                                                            : -1;
}

/// The unit before the position, white space that does not show passed over.
int Backspace::unitBefore(int position) const {
    return buffer_.getPreviousEditablePositionInXml(buffer_.startOfSkippedSpaces(position));
}

/// The caret steps into the last item of the list, from where Delete pulls the line in. Beside the
/// list, where no line follows, that is all. A list that the caret cannot enter goes whole.
bool Backspace::eraseInPreviousList(int list) {
    const Text text = buffer_.text_.view();
    const int last = buffer_.getPreviousValidCaretPos(buffer_.getClosingTagForTagAtPosition(list));
    if (last <= list)
        return removeList(list);
    const int next = buffer_.endOfSkippedSpaces(origin_);
    const bool beginsBlock = tagName_ == L"fo:block";
    const bool endsLine =
        XmlScan::closingAt(text, next) || XmlScan::tagName(text, next) == L"fo:block";
    const int place = buffer_.caretPos_;
    const String before = buffer_.text_;
    buffer_.recordCaret();
    buffer_.setCaret(false, last);
    if (beginsBlock || !endsLine)
        buffer_.getListBuffer().eraseTextFromListBuffer(true, false);
    if (beginsBlock && buffer_.text_ == before)
        buffer_.setCaret(false, place);
    buffer_.recordCaret();
    caret_ = buffer_.caretPos_;
    return false;
}

bool Backspace::removeList(int list) {
    const int behind = buffer_.positionBehindElement(list);
    buffer_.removeAndRecord(list, behind);
    caret_ = buffer_.repairEmptied(list, true).map(origin_ - (behind - list));
    return false;
}

// A table or another object

/// It goes whole.
bool Backspace::removeObject() {
    if (!buffer_.closingElementTagAtPosition(tag_))
        return false;
    int start = buffer_.getCurrentElementPosition(tag_);
    if (buffer_.isOnInvalidPosition(start))
        return false;
    buffer_.deleteSpacesBetweenTags(start);
    caret_ = start;
    buffer_.removeAndRecord(start, origin_);
    return false;
}

// A character

/// A blank beside it that would collapse now is kept as a non-breaking space.
bool Backspace::removeCharacter() {
    if (isOnlyUnitOfInline()) {
        caret_ = element_;
        buffer_.removeAndRecord(element_, buffer_.positionBehindElement(element_));
        return false;
    }
    const int character = buffer_.getPreviousEditablePositionInXml(spaces_);
    const int start = startWithBlank(character);
    const int end = endWithBlank();
    const bool blankBefore = start < character;
    const bool blankBehind = end > origin_;
    caret_ = start;
    buffer_.removeAndRecord(start, end);
    if (blankBefore || blankBehind)
        buffer_.insertAndRecord(start, String(XmlScan::nbspCharacter));
    else if (isBetweenBlockTags(start) || buffer_.isEmptyBehindLineBreak(start))
        buffer_.insertAndRecord(start, String(XmlScan::nbspEntity));
    // Deliberate: of two blanks only the one before is kept; recorded scripts rely on the result.
    if (blankBefore)
        ++caret_;
    return false;
}

bool Backspace::isOnlyUnitOfInline() const {
    return buffer_.isInlineEditableElementName(buffer_.getNameForTagAtPosition(element_, true)) &&
           buffer_.editableElementContainsJustOneMoreChar(element_) &&
           !buffer_.isFootnoteMark(element_) && buffer_.getNextValidCaretPos(element_) != origin_;
}

/// Where the blank before the character begins, with the white space before that which does not
/// show; the character itself where there is none.
int Backspace::startWithBlank(int character) const {
    const int blank = buffer_.getPreviousEditablePositionInXml(character);
    return buffer_.isKeptBlank(blank, element_) ? buffer_.startOfSkippedSpaces(blank) : character;
}

/// Where the blank behind the caret ends, in the same way; the caret itself where there is none.
int Backspace::endWithBlank() const {
    const int blank = buffer_.endOfSkippedSpaces(origin_);
    return buffer_.isKeptBlank(blank, element_) ? buffer_.endOfSkippedSpaces(blank + 1) : origin_;
}

bool Backspace::isBetweenBlockTags(int position) const {
    const int before = buffer_.getPreviousEditablePositionInXml(position);
    return isBlockName(buffer_.getNameForTagAtPosition(position, true)) &&
           isBlockName(buffer_.getNameForTagAtPosition(before, true));
}

// Questions

/// Whether a block begins or ends right before the position, or a soft break stands there.
bool Backspace::isBlockBoundaryBefore(int position) const {
    const int before = buffer_.getPreviousEditablePositionInXml(position);
    return buffer_.getElementTypeOnEndTagPosition(position - 1) == xmlElement &&
           isBlockName(buffer_.getNameForTagAtPosition(before, true));
}

/// Whether the tag opens, closes or is a block that the caret can stand in.
bool Backspace::isBlockName(const String& tagName) const {
    return buffer_.isBlockEditableElementName(tagName.substringAfter(L"/"));
}

int Backspace::behindTag() const {
    return buffer_.getNextEditablePositionInXml(tag_);
}
