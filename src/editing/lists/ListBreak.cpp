// Enter in a list: an item is split, or an empty line leaves the list.

#include "document/Document.h"
#include "document/Edit.h"
#include "document/Placeholders.h"
#include "document/RecordedCommand.h"
#include "document/caret/Lines.h"
#include "document/caret/Stops.h"
#include "editing/deletion/Deletion.h"
#include "editing/lists/ListBuffer.h"
#include "editing/lists/Lists.h"
#include "text/Markup.h"
#include "text/XmlScan.h"

using Core::String;
using XmlScan::Text;

namespace {

constexpr const wchar_t* blockStart = L"<fo:block>";

String emptyBlock() {
    return blockStart + String(XmlScan::nbspEntity) + L"</fo:block>";
}

/// Where the caret can stand in the body of an item. A table in it would not survive being split.
bool canBreakAt(const Document& document, int position) {
    return Stops::canHoldCaret(document, position) && Lists::isInItemBody(document, position) &&
           document.text().ancestorWithin(position, L"fo:table", L"fo:list-item") < 0;
}

/// The rest of the list behind the item. Labels that count on from the number count one higher.
String followingItems(const Document& document, int item, std::int64_t number) {
    const int list = Lists::listAround(document, item);
    int done = document.text().behindElement(item);
    String text;
    for (const int next : Lists::itemsOf(document, list)) {
        if (next <= item || number <= 0)
            continue;
        if (Lists::labelValue(document, next) == Lists::numberLabel(number)) {
            const Lists::Range label =
                Lists::contentOf(document, Lists::labelBlock(document, next));
            text += Lists::slice(document, done, label.start) + Lists::numberLabel(number + 1);
            done = label.end;
        }
        ++number;
    }
    return text + Lists::slice(document, done, Lists::closingTag(document, list));
}

/// The new item does not begin with what was left of an inline that the one before ended with.
void removePlaceholderInline(Document& document) {
    const XmlText& text = document.text();
    int inside = document.caret();
    while (document.names.isInline(text.tagName(inside)))
        inside = text.next(inside);
    const int element = text.elementAround(inside);
    if (!document.names.isInline(text.tagName(element)) || !text.holdsOnlyPlaceholder(element))
        return;
    Edit(document).remove(element, text.behindElement(element));
    document.setCaret(Placeholders::repairLine(document, element));
    Deletion::settleCaret(document);
}

void splitItem(Document& document) {
    const int caret = document.caret();
    const int item = Lists::itemAround(document, caret);
    const int body = Lists::bodyOf(document, item);
    String label;
    int number = 0;
    Lists::getNextLabel(Lists::labelValue(document, item), label, number);
    const std::vector<int> open = Lists::elementsWithin(document, body, caret);
    const bool leavesNothing =
        Lists::isFirstPositionIn(document, open.empty() ? body : open.front(), caret);
    const String first =
        (leavesNothing ? Lists::placeholderAt(document, caret) : String()) +
        Markup::closingTagsInReverse(Markup::openedBetween(document.text(), item, caret));
    const String xml = first + Lists::createNewItem(document, label, caret) +
                       followingItems(document, item, number);

    document.recordCaret();
    Edit(document).remove(caret, Lists::closingTag(document, Lists::listAround(document, item)));
    Edit(document).insert(caret, xml);
    const int itemClose = document.text().previousTag(caret + first.length());
    const int behindFirst = Placeholders::repair(document, caret, true).map(itemClose);
    const int newItem = document.text().next(behindFirst);
    if (const int block = Lists::firstBlockIn(document, Lists::bodyOf(document, newItem));
        block >= 0)
        Lists::fillIfEmpty(document, block);
    document.setCaret(Stops::next(document, behindFirst));
    removePlaceholderInline(document);
    Placeholders::repairEmptied(document, document.caret(), true);
    document.recordCaret();
}

/// On over white space and blocks that hold nothing else.
int skipVoid(const Document& document, int position) {
    const XmlText& text = document.text();
    int at = text.skipSpaces(position);
    while (text.tagName(at) == L"fo:block" && text.openingAt(at) &&
           Placeholders::isVoid(document, at))
        at = text.skipSpaces(document.text().behindElement(at));
    return at;
}

/// Whether nothing shows between the element's start tag and the position.
bool beginsContent(const Document& document, int element, int position) {
    return skipVoid(document, Lists::contentOf(document, element).start) == position;
}

/// Whether nothing shows between the position and the element's closing tag.
bool endsContent(const Document& document, int element, int position) {
    return skipVoid(document, position) == Lists::closingTag(document, element);
}

/// Whether the tag of a block or an inline stands at the position.
bool isEdgeOfText(const Document& document, int position) {
    Text name = document.text().tagName(position);
    if (name.starts_with(L'/'))
        name = name.substr(1);
    return name == L"fo:block" || document.names.isInline(name);
}

/// Whether nothing stands in the element but blocks and inlines that hold no more than
/// placeholders.
bool holdsEmptyLines(const Document& document, int element) {
    const XmlText& text = document.text();
    const Lists::Range content = Lists::contentOf(document, element);
    bool isBehindTag = true;
    for (int at = content.start; at < content.end; at = document.text().next(at)) {
        if (at < 0)
            return false;
        if (String::isSpace(text.unitAt(at)))
            continue;
        const bool isPlaceholder = text.placeholderLength(at) > 0;
        if (isPlaceholder ? !isBehindTag : !isEdgeOfText(document, at))
            return false;
        isBehindTag = !isPlaceholder;
    }
    return true;
}

/// The item of a body, which begins and ends with it as far as a reader is concerned; any other
/// element itself.
int itemOfBody(const Document& document, int element) {
    const bool isBody = document.text().tagName(element) == L"fo:list-item-body";
    return isBody ? document.text().elementAround(element) : element;
}

/// The block with the tags that would be left around nothing: the start tags of what begins with it
/// in the list, which begin again behind it, and the closing tags of what ends with it.
Lists::Range widen(const Document& document, int block, int list) {
    const XmlText& text = document.text();
    Lists::Range range{block, text.behindElement(block)};
    const int behindList = text.behindElement(list);
    const auto around = [&](int position) { return text.elementAround(position); };
    const int item = Lists::itemAround(document, block);
    if (holdsEmptyLines(document, Lists::bodyOf(document, item)))
        range = {item, text.behindElement(item)};
    while (range.start > list && beginsContent(document, around(range.start), range.start))
        range.start = itemOfBody(document, around(range.start));
    for (int end = range.end; end < behindList && endsContent(document, around(end), end);) {
        end = text.behindElement(itemOfBody(document, around(end)));
        if (end <= range.end)
            break;
        range.end = end;
    }
    return range;
}

void replaceListByBlock(Document& document, int list) {
    document.recordCaret();
    Edit(document).remove(list, document.text().behindElement(list));
    PlaceholderRepair repaired = Placeholders::repair(document, list, false);
    if (!repaired.insertedPlaceholder()) {
        Edit(document).insert(list, emptyBlock());
        repaired.placeholder = list + String(blockStart).length();
    }
    document.setCaret(repaired.placeholder);
    document.recordCaret();
}

/// The start tags of the list and of what is open in it at the position, an item's with its label;
/// empty behind the list.
String reopenedTags(const Document& document, int list, int position) {
    String tags;
    for (const int element : Lists::elementsWithin(document, list - 1, position)) {
        const bool isItem = document.text().tagName(element) == L"fo:list-item";
        tags += isItem ? Lists::slice(document, element, Lists::bodyOf(document, element))
                       : Lists::startTag(document, element);
    }
    return tags;
}

/// The block becomes one of its own, and what stands before and behind it a list of its own each.
void leaveList(Document& document, int block) {
    const int list = Lists::listAround(document, Lists::itemAround(document, block));
    const Lists::Range range = widen(document, block, list);
    if (range.start == list && range.end == document.text().behindElement(list)) {
        replaceListByBlock(document, list);
        return;
    }
    const bool isNumbered = Lists::typeOf(document, list) == ListType::Numbering;
    const String closing =
        Markup::closingTagsInReverse(Markup::openedBetween(document.text(), list, range.start));
    const String reopening = reopenedTags(document, list, range.end);
    const int newBlock = range.start + closing.length();
    document.recordCaret();
    Edit(document).remove(range.start, range.end);
    Edit(document).insert(range.start, closing + emptyBlock() + reopening);
    document.setCaret(newBlock + String(blockStart).length());
    if (isNumbered && !reopening.empty())
        Lists::renumber(document, newBlock + emptyBlock().length());
    if (isNumbered && !closing.empty())
        Lists::renumber(document, list);
    document.recordCaret();
}

} // namespace

void Lists::breakList(Document& document) {
    if (!canBreakAt(document, document.caret()))
        return;
    carryOut(document, [&] {
        if (document.hasSelection())
            Deletion::deleteSelection(document, false);
        if (!canBreakAt(document, document.caret()))
            return;
        const int block = emptyBlockAround(document, document.caret());
        if (block >= 0)
            leaveList(document, block);
        else
            splitItem(document);
    });
}

int Lists::emptyBlockAround(const Document& document, int position) {
    const XmlText& text = document.text();
    int element = document.text().elementAround(position);
    if (!document.text().holdsOnlyPlaceholder(element))
        return -1;
    while (text.tagName(element) != L"fo:block") {
        const int parent = document.text().elementAround(element);
        if (!document.names.isInline(text.tagName(element)) ||
            !beginsContent(document, parent, element) ||
            !endsContent(document, parent, document.text().behindElement(element)))
            return -1;
        element = parent;
    }
    return element;
}

void ListBuffer::breakList() {
    Lists::breakList(document_);
}
