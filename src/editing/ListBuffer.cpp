// Making lists, changing their labels, and turning them back into blocks.

#include "editing/ListBuffer.h"

#include "document/CaretWalk.h"
#include "document/CommandScope.h"
#include "document/EditableDocumentBuffer.h"
#include "document/TextRewrite.h"
#include "editing/ListCommand.h"
#include "text/XmlScan.h"

#include <algorithm>

using Core::String;
using XmlScan::Text;

namespace {

/// A bullet is drawn larger than the text beside it, on a line of the same height.
String blockTag(ListType type) {
    return type == ListType::Bullets ? L"<fo:block font-size=\"1.5em\" line-height=\"1em\">"
                                     : L"<fo:block>";
}

} // namespace

ListBuffer EditableDocumentBuffer::getListBuffer() {
    return ListBuffer(*this);
}

// The commands

void ListBuffer::makeList(ListType type) {
    if (getListPos(document_.caretPos_) < 0)
        createList(type);
    else if (type == getListType())
        removeList();
    else
        changeLabelType(type);
}

void ListBuffer::createList(ListType type) {
    const int block = document_.searchParent(L"fo:block", document_.caretPos_, false, true, L"");
    if (block >= 0 && !document_.inListItemLabel(document_.caretPos_))
        carryOut([&] { wrapBlock(block, type); });
}

void ListBuffer::removeList() {
    const int list = getListPos(document_.caretPos_);
    if (list >= 0)
        carryOut([&] { unwrap(list); });
}

void ListBuffer::changeLabelType(ListType type) {
    const int list = getListPos(document_.caretPos_);
    if (list >= 0)
        carryOut([&] { rewriteLabels(list, type); });
}

void ListBuffer::recalculateNumbering(int position) {
    const int list = listAt(position);
    if (list < 0)
        return;
    carryOut([&] {
        document_.recordCaret();
        renumber(list);
        document_.recordCaret();
    });
}

void ListBuffer::setItemLabelValue(int item, const String& value) {
    const int block = labelBlock(item);
    if (block < 0)
        return;
    carryOut([&] {
        document_.recordCaret();
        TextRewrite rewrite(document_);
        replaceInLabel(contentOf(block), value, rewrite);
        rewrite.apply();
        document_.recordCaret();
    });
}

void ListBuffer::selectListLabel() {
    const int block = labelBlock(document_.caretPos_);
    if (block < 0)
        return;
    CommandScope scope(&document_);
    document_.endKeyTypingSequence();
    const Range label = contentOf(block);
    document_.selectRange(label.start, label.end);
}

// Blocks to a list and back

void ListBuffer::wrapBlock(int block, ListType type) {
    const String opening =
        L"<fo:block><fo:list-block><fo:list-item><fo:list-item-label end-indent=\"label-end()\">" +
        blockTag(type) + getFirstListLabel(type) +
        L"</fo:block></fo:list-item-label><fo:list-item-body start-indent=\"body-start()\">";
    document_.recordCaret();
    document_.insertAndRecord(document_.positionBehindElement(block),
                              L"</fo:list-item-body></fo:list-item></fo:list-block></fo:block>");
    document_.insertAndRecord(block, opening);
    fillIfEmpty(block + opening.length());
    document_.adjustCaretToAnEditablePosition();
    document_.recordCaret();
}

/// A block that shows nothing gets a placeholder, so that its item has a place for the caret.
void ListBuffer::fillIfEmpty(int block) {
    document_.handleElementsContainingJustWhiteSpaces(document_.getNextEditablePositionInXml(block),
                                                      false);
}

void ListBuffer::unwrap(int list) {
    const String content = contentOfItems(list);
    document_.recordCaret();
    document_.insertAndRecord(list, content);
    const int moved = list + content.length();
    document_.removeAndRecord(moved, document_.positionBehindElement(moved));
    document_.setCaret(false, startOfContent(list));
    document_.handleElementsContainingJustWhiteSpaces(list, false);
    if (!CaretWalk(document_, document_.caretPos_).isStop())
        document_.moveCaretRight(false, false, false);
    document_.recordCaret();
}

/// The position, or behind the start tag that comes first there, so that the next stop is in the
/// element and not on the white space in front of it.
int ListBuffer::startOfContent(int position) const {
    const Text text = document_.text_.view();
    const int tag = XmlScan::skipSpaces(text, position);
    return XmlScan::openingAt(text, tag) ? document_.getNextEditablePositionInXml(tag) : position;
}

/// What the bodies of the items in the element hold. A repeat of items becomes one of that.
String ListBuffer::contentOfItems(int element) const {
    String content;
    for (const int child : childrenOf(element)) {
        const int inner = isItem(child) ? getItemBodyPos(child) : child;
        const Range range = contentOf(inner);
        content += isItem(child) ? slice(range.start, range.end)
                                 : startTag(child) + contentOfItems(child) +
                                       slice(range.end, document_.positionBehindElement(child));
    }
    return content;
}

// Labels

void ListBuffer::rewriteLabels(int list, ListType type) {
    document_.recordCaret();
    const std::vector<int> items = itemsOf(list);
    TextRewrite rewrite(document_);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const int block = labelBlock(items[i]);
        if (block >= 0)
            replaceInLabel({block, closingTag(block)}, blockTag(type) + labelFor(type, i + 1),
                           rewrite);
    }
    rewrite.apply();
    document_.recordCaret();
}

/// Gives the list's items the numbers from 1 on.
void ListBuffer::renumber(int list) {
    const std::vector<int> items = itemsOf(list);
    TextRewrite rewrite(document_);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const int block = labelBlock(items[i]);
        if (block >= 0)
            replaceInLabel(contentOf(block), labelFor(ListType::Numbering, i + 1), rewrite);
    }
    rewrite.apply();
}

/// A caret that the host has put into the label goes to its end.
void ListBuffer::replaceInLabel(const Range& range, const String& xml, TextRewrite& rewrite) const {
    if (slice(range.start, range.end) == xml)
        return;
    rewrite.keepCaretOutside(range.start, range.end);
    rewrite.replace(range.start, range.end, xml);
}
