// Making lists, changing their labels, and turning them back into blocks.

#include "editing/lists/ListBuffer.h"

#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/Edit.h"
#include "document/EditableDocumentBuffer.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/TextRewrite.h"
#include "document/caret/CaretWalk.h"
#include "document/caret/Moves.h"
#include "editing/lists/Lists.h"

#include <algorithm>

using Core::String;

namespace {

/// A bullet is drawn larger than the text beside it, on a line of the same height.
String blockTag(ListType type) {
    return type == ListType::Bullets ? L"<fo:block font-size=\"1.5em\" line-height=\"1em\">"
                                     : L"<fo:block>";
}

void wrapBlock(Document& document, int block, ListType type) {
    const String opening = L"<fo:block><fo:list-block>" + Lists::openingOfItem(type, 1);
    document.recordCaret();
    Edit(document).insert(document.text().behindElement(block),
                          L"</fo:list-item-body></fo:list-item></fo:list-block></fo:block>");
    Edit(document).insert(block, opening);
    Lists::fillIfEmpty(document, block + opening.length());
    Moves::toStop(document);
    document.recordCaret();
}

/// The position, or behind the start tag that comes first there, so that the next stop is in the
/// element and not on the white space in front of it.
int startOfContent(const Document& document, int position) {
    const XmlText& text = document.text();
    const int tag = text.skipSpaces(position);
    return text.openingAt(tag) ? document.text().next(tag) : position;
}

/// What the bodies of the items in the element hold. A repeat of items becomes one of that.
String contentOfItems(const Document& document, int element) {
    String content;
    for (const int child : Lists::childrenOf(document, element)) {
        const int inner = Lists::isItem(document, child) ? Lists::bodyOf(document, child) : child;
        const Lists::Range range = Lists::contentOf(document, inner);
        content +=
            Lists::isItem(document, child)
                ? Lists::slice(document, range.start, range.end)
                : Lists::startTag(document, child) + contentOfItems(document, child) +
                      Lists::slice(document, range.end, document.text().behindElement(child));
    }
    return content;
}

/// A caret that the host has put into the label goes to its end.
void replaceInLabel(const Document& document, const Lists::Range& range, const String& xml,
                    TextRewrite& rewrite) {
    if (Lists::slice(document, range.start, range.end) == xml)
        return;
    rewrite.keepCaretOutside(range.start, range.end);
    rewrite.replace(range.start, range.end, xml);
}

void rewriteLabels(Document& document, int list, ListType type) {
    document.recordCaret();
    const std::vector<int> items = Lists::itemsOf(document, list);
    TextRewrite rewrite(document);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const int block = Lists::labelBlock(document, items[i]);
        if (block >= 0)
            replaceInLabel(document, {block, Lists::closingTag(document, block)},
                           blockTag(type) + Lists::labelFor(type, i + 1), rewrite);
    }
    rewrite.apply();
    document.recordCaret();
}

} // namespace

String Lists::openingOfItem(ListType type, std::size_t number) {
    return L"<fo:list-item><fo:list-item-label end-indent=\"label-end()\">" + blockTag(type) +
           labelFor(type, number) +
           L"</fo:block></fo:list-item-label><fo:list-item-body start-indent=\"body-start()\">";
}

void Lists::createList(Document& document, ListType type) {
    const int block = document.text().ancestor(document.caret(), L"fo:block");
    if (block >= 0 && !document.text().isInLabel(document.caret()))
        carryOut(document, [&] { wrapBlock(document, block, type); });
}

void Lists::removeList(Document& document) {
    const int list = listAround(document, document.caret());
    if (list >= 0)
        carryOut(document, [&] { unwrap(document, list); });
}

void Lists::changeLabelType(Document& document, ListType type) {
    const int list = listAround(document, document.caret());
    if (list >= 0)
        carryOut(document, [&] { rewriteLabels(document, list, type); });
}

void Lists::fillIfEmpty(Document& document, int block) {
    Placeholders::repairEmptied(document, document.text().next(block), false);
}

void Lists::unwrap(Document& document, int list) {
    const String content = contentOfItems(document, list);
    document.recordCaret();
    Edit(document).insert(list, content);
    const int moved = list + content.length();
    Edit(document).remove(moved, document.text().behindElement(moved));
    document.setCaret(startOfContent(document, list));
    Placeholders::repairEmptied(document, list, false);
    if (!CaretWalk(document, document.caret()).isStop())
        Moves::right(document);
    document.recordCaret();
}

void Lists::renumber(Document& document, int list) {
    const std::vector<int> items = itemsOf(document, list);
    TextRewrite rewrite(document);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const int block = labelBlock(document, items[i]);
        if (block >= 0)
            replaceInLabel(document, contentOf(document, block),
                           labelFor(ListType::Numbering, i + 1), rewrite);
    }
    rewrite.apply();
}

ListBuffer EditableDocumentBuffer::getListBuffer() {
    Document& document = *document_;
    return ListBuffer(document);
}

void ListBuffer::makeList(ListType type) {
    Document& document = document_;
    if (Lists::listAround(document, document.caret()) < 0)
        Lists::createList(document, type);
    else if (type == Lists::typeAtCaret(document))
        Lists::removeList(document);
    else
        Lists::changeLabelType(document, type);
}

void ListBuffer::createList(ListType type) {
    Lists::createList(document_, type);
}

void ListBuffer::removeList() {
    Lists::removeList(document_);
}

void ListBuffer::changeLabelType(ListType type) {
    Lists::changeLabelType(document_, type);
}

void ListBuffer::recalculateNumbering(int position) {
    Document& document = document_;
    const int list = Lists::listAt(document, position);
    if (list < 0)
        return;
    carryOut(document, [&] {
        document.recordCaret();
        Lists::renumber(document, list);
        document.recordCaret();
    });
}

void ListBuffer::setItemLabelValue(int item, const String& value) {
    Document& document = document_;
    const int block = Lists::labelBlock(document, item);
    if (block < 0)
        return;
    carryOut(document, [&] {
        document.recordCaret();
        TextRewrite rewrite(document);
        replaceInLabel(document, Lists::contentOf(document, block), value, rewrite);
        rewrite.apply();
        document.recordCaret();
    });
}

void ListBuffer::selectListLabel() {
    Document& document = document_;
    const int block = Lists::labelBlock(document, document.caret());
    if (block < 0)
        return;
    CommandScope scope(document);
    document.endTyping();
    const Lists::Range label = Lists::contentOf(document, block);
    document.select(label.start, label.end);
}
