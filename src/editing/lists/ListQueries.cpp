// Where lists and items are, what stands around a position in one, and their labels.

#include "document/Document.h"
#include "document/caret/Stops.h"
#include "editing/lists/ListBuffer.h"
#include "editing/lists/Lists.h"
#include "foundation/Format.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <limits>

using Core::String;

namespace {

constexpr const wchar_t* bullet = L"&#x2022;";
constexpr const wchar_t* bulletCharacter = L"\x2022";

bool isBullet(const String& label) {
    return label.startsWith(bullet) || label.startsWith(bulletCharacter);
}

int itemAt(const Document& document, int position) {
    return Lists::isItem(document, position) ? position : Lists::itemAround(document, position);
}

String textOfLabel(const Document& document, int label) {
    const int block = Lists::firstBlockIn(document, label);
    if (block < 0)
        return {};
    const Lists::Range content = Lists::contentOf(document, block);
    return Lists::slice(document, content.start, content.end);
}

/// Whether nothing but white space stands between the position and the end of the element around it
/// or a line break.
bool isEndOfLine(const Document& document, int position) {
    const XmlText& text = document.text();
    const int next = text.skipSpaces(position);
    return next == document.text().closingTagAround(position) ||
           (text.selfClosingAt(next) && text.tagName(next) == L"fo:block");
}

} // namespace

ListType Lists::typeAtCaret(const Document& document) {
    return typeOf(document, listAround(document, document.caret()));
}

int Lists::listAround(const Document& document, int position) {
    return document.text().ancestor(position, L"fo:list-block");
}

int Lists::itemAround(const Document& document, int position) {
    return document.text().ancestor(position, L"fo:list-item");
}

int Lists::labelOf(const Document& document, int item) {
    return document.text().childNamed(itemAt(document, item), L"fo:list-item-label");
}

int Lists::bodyOf(const Document& document, int item) {
    return document.text().childNamed(itemAt(document, item), L"fo:list-item-body");
}

int Lists::firstBlockIn(const Document& document, int element) {
    const XmlText& text = document.text();
    const int end = closingTag(document, element);
    int block = text.nextNamed(element, L"fo:block");
    while (block >= 0 && block < end && text.selfClosingAt(block))
        block = text.nextNamed(block, L"fo:block");
    return block < end ? block : -1;
}

int Lists::lastBlockIn(const Document& document, int element) {
    const int closing = document.text().previousNamed(closingTag(document, element), L"/fo:block");
    return closing > element ? document.text().elementAround(closing) : -1;
}

int Lists::numberOf(const Document& document, int item) {
    const int wanted = itemAt(document, item);
    const std::vector<int> items = itemsOf(document, listAround(document, wanted));
    const auto found = std::find(items.begin(), items.end(), wanted);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin()) + 1;
}

bool Lists::isFirstPositionInItemBody(const Document& document, int position) {
    return isInItemBody(document, position) &&
           isFirstPositionIn(document, bodyOf(document, position), position);
}

int Lists::listAt(const Document& document, int position) {
    return document.text().tagName(position) == L"fo:list-block" ? position
                                                                 : listAround(document, position);
}

std::vector<int> Lists::childrenOf(const Document& document, int element) {
    std::vector<int> children;
    const int end = closingTag(document, element);
    for (int child = document.text().nextElement(element); child >= 0 && child < end;
         child = document.text().nextSibling(child))
        children.push_back(child);
    return children;
}

std::vector<int> Lists::itemsOf(const Document& document, int list) {
    std::vector<int> items = childrenOf(document, list);
    items.erase(std::remove_if(items.begin(), items.end(),
                               [&](int child) { return !isItem(document, child); }),
                items.end());
    return items;
}

bool Lists::isItem(const Document& document, int element) {
    return document.text().tagName(element) == L"fo:list-item";
}

int Lists::neighborOf(int element, const std::vector<int>& elements, int step) {
    const auto found = std::find(elements.begin(), elements.end(), element);
    const auto index = found - elements.begin() + step;
    const auto size = static_cast<std::ptrdiff_t>(elements.size());
    return found == elements.end() || index < 0 || index >= size
               ? -1
               : elements[static_cast<std::size_t>(index)];
}

bool Lists::isOwnItem(const Document& document, int item) {
    return numberOf(document, item) > 0;
}

bool Lists::isInItemBody(const Document& document, int position) {
    const int body = bodyOf(document, position);
    return body >= 0 && body < position && position <= closingTag(document, body);
}

bool Lists::isFirstPositionIn(const Document& document, int element, int position) {
    const XmlText& text = document.text();
    int stop = Stops::next(document, element);
    while (stop >= 0 && stop < position && document.names.isInline(text.tagName(stop)))
        stop = Stops::next(document, stop);
    return stop < 0 || position <= stop;
}

bool Lists::isLastPositionIn(const Document& document, int element, int position) {
    const int end = closingTag(document, element);
    const auto closesInline = [&](int stop) {
        return document.names.closesInline(document.text().tagName(stop));
    };
    int next = Stops::next(document, position);
    while (next >= 0 && next <= end && closesInline(position)) {
        position = next;
        next = Stops::next(document, position);
    }
    return next < 0 || next > end;
}

ListType Lists::typeOf(const Document& document, int list) {
    const int first = document.text().nextNamed(list, L"fo:list-item-label");
    const String label =
        first < closingTag(document, list) ? textOfLabel(document, first) : String();
    if (isBullet(label))
        return ListType::Bullets;
    int number = 0;
    return Core::Format::parseInt(label.substringBefore(L")"), number) ? ListType::Numbering
                                                                       : ListType::None;
}

int Lists::labelBlock(const Document& document, int item) {
    return firstBlockIn(document, labelOf(document, item));
}

String Lists::labelValue(const Document& document, int item) {
    return textOfLabel(document, labelOf(document, item));
}

String Lists::firstLabel(ListType type) {
    switch (type) {
    case ListType::Numbering:
        return L"1)";
    case ListType::Bullets:
        return bullet;
    case ListType::None:
        break;
    }
    return {};
}

void Lists::getNextLabel(const String& label, String& next, int& number) {
    next = label;
    number = 0;
    const String digits = label.substringBefore(L")");
    int value = 0;
    if (label != digits + L")" || !Core::Format::parseInt(digits, value) ||
        value == std::numeric_limits<int>::max())
        return;
    number = value + 1;
    next = numberLabel(number);
}

String Lists::labelFor(ListType type, std::size_t number) {
    return type == ListType::Numbering ? numberLabel(static_cast<std::int64_t>(number))
                                       : firstLabel(type);
}

String Lists::numberLabel(std::int64_t number) {
    return String(std::to_wstring(number) + L")");
}

String Lists::createNewItem(const Document& document, const String& label, int position) {
    const String body = createNewItemBody(document, position);
    if (body.empty())
        return {};
    const int item = itemAround(document, position);
    const int block = labelBlock(document, item);
    String text = startTag(document, item);
    if (block >= 0)
        text += startTag(document, labelOf(document, item)) + startTag(document, block) + label +
                L"</fo:block></fo:list-item-label>";
    const int behindBody = document.text().behindElement(bodyOf(document, item));
    return text + body + slice(document, behindBody, document.text().behindElement(item));
}

String Lists::createNewItemBody(const Document& document, int position) {
    if (!isInItemBody(document, position))
        return {};
    const int body = bodyOf(document, position);
    String text = startTag(document, body);
    for (const int element : elementsWithin(document, body, position))
        text += startTag(document, element);
    if (isEndOfLine(document, position))
        text += placeholderAt(document, position);
    return text + slice(document, position, document.text().behindElement(body));
}

String Lists::placeholderAt(const Document& document, int position) {
    const String placeholder(XmlScan::nbspEntity);
    return document.isInEditable(position) ? placeholder
                                           : L"<fo:block>" + placeholder + L"</fo:block>";
}

String Lists::slice(const Document& document, int start, int end) {
    return start < 0 || end < start ? String() : String(document.text().view(start, end));
}

String Lists::startTag(const Document& document, int element) {
    return slice(document, element, contentOf(document, element).start);
}

Lists::Range Lists::contentOf(const Document& document, int element) {
    return {document.text().next(element), closingTag(document, element)};
}

int Lists::closingTag(const Document& document, int element) {
    return document.text().closingTag(element);
}

std::vector<int> Lists::elementsWithin(const Document& document, int element, int position) {
    std::vector<int> around = document.text().elementsAround(position);
    around.erase(around.begin(), std::upper_bound(around.begin(), around.end(), element));
    return around;
}

ListType ListBuffer::getListType() const {
    return Lists::typeAtCaret(document_);
}

int ListBuffer::getCurrentListSize() const {
    const Document& document = document_;
    const int list = Lists::listAround(document, document.caret());
    return list < 0 ? -1 : static_cast<int>(Lists::itemsOf(document, list).size());
}

int ListBuffer::getCurrentItemNumber() const {
    const Document& document = document_;
    return Lists::numberOf(document, document.caret());
}

int ListBuffer::getListPos(int position) const {
    return Lists::listAround(document_, position);
}

int ListBuffer::getItemPos(int position) const {
    return Lists::itemAround(document_, position);
}

int ListBuffer::getNextItemPos(int item) const {
    const Document& document = document_;
    return Lists::neighborOf(
        itemAt(document, item),
        Lists::itemsOf(document, Lists::listAround(document, itemAt(document, item))), 1);
}

int ListBuffer::getPreviousItemPos(int item) const {
    const Document& document = document_;
    return Lists::neighborOf(
        itemAt(document, item),
        Lists::itemsOf(document, Lists::listAround(document, itemAt(document, item))), -1);
}

int ListBuffer::getItemLabelPos(int item) const {
    return Lists::labelOf(document_, item);
}

int ListBuffer::getItemBodyPos(int item) const {
    return Lists::bodyOf(document_, item);
}

int ListBuffer::getFirstBlockInElement(int element) const {
    return Lists::firstBlockIn(document_, element);
}

int ListBuffer::getLastBlockInElement(int element) const {
    return Lists::lastBlockIn(document_, element);
}

int ListBuffer::getListItemNumber(int item) const {
    return Lists::numberOf(document_, item);
}

bool ListBuffer::isFirstPositionInItemBody(int position) const {
    return Lists::isFirstPositionInItemBody(document_, position);
}

String ListBuffer::getItemLabelValue(int item) const {
    return Lists::labelValue(document_, item);
}

String ListBuffer::getFirstListLabel(ListType type) const {
    return Lists::firstLabel(type);
}

void ListBuffer::getNextLabel(const String& label, String& next, int& number) const {
    Lists::getNextLabel(label, next, number);
}

String ListBuffer::createNewItem(const String& label, int position) const {
    return Lists::createNewItem(document_, label, position);
}

String ListBuffer::createNewItemBody(int position) const {
    return Lists::createNewItemBody(document_, position);
}
