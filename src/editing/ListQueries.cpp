// Where lists and items are, what stands around a position in one, and their labels.

#include "document/EditableDocumentBuffer.h"
#include "editing/ListBuffer.h"
#include "foundation/Format.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <limits>

using Core::String;
using XmlScan::Text;

namespace {

constexpr const wchar_t* bullet = L"&#x2022;";
constexpr const wchar_t* bulletCharacter = L"\x2022";

bool isBullet(const String& label) {
    return label.startsWith(bullet) || label.startsWith(bulletCharacter);
}

} // namespace

// The list and the item around the caret

ListType ListBuffer::getListType() const {
    return typeOf(getListPos(document_.caretPos_));
}

int ListBuffer::getCurrentListSize() const {
    const int list = getListPos(document_.caretPos_);
    return list < 0 ? -1 : static_cast<int>(itemsOf(list).size());
}

int ListBuffer::getCurrentItemNumber() const {
    return getListItemNumber(document_.caretPos_);
}

// Finding lists and items

int ListBuffer::getListPos(int position) const {
    return document_.searchParent(L"fo:list-block", position, false, true, L"");
}

int ListBuffer::getItemPos(int position) const {
    return document_.searchParent(L"fo:list-item", position, false, true, L"");
}

int ListBuffer::getNextItemPos(int item) const {
    return neighborOf(itemAt(item), itemsOf(getListPos(itemAt(item))), 1);
}

int ListBuffer::getPreviousItemPos(int item) const {
    return neighborOf(itemAt(item), itemsOf(getListPos(itemAt(item))), -1);
}

int ListBuffer::getItemLabelPos(int item) const {
    return document_.getNextChildByName(L"fo:list-item-label", itemAt(item));
}

int ListBuffer::getItemBodyPos(int item) const {
    return document_.getNextChildByName(L"fo:list-item-body", itemAt(item));
}

int ListBuffer::getFirstBlockInElement(int element) const {
    const int end = closingTag(element);
    int block = document_.getNextElementByName(L"fo:block", element);
    while (block >= 0 && block < end && document_.selfClosingTagAtPosition(block))
        block = document_.getNextElementByName(L"fo:block", block);
    return block < end ? block : -1;
}

int ListBuffer::getLastBlockInElement(int element) const {
    const int closing = document_.getPreviousElementByName(L"/fo:block", closingTag(element));
    return closing > element ? document_.getCurrentElementPosition(closing) : -1;
}

int ListBuffer::getListItemNumber(int item) const {
    const int wanted = itemAt(item);
    const std::vector<int> items = itemsOf(getListPos(wanted));
    const auto found = std::find(items.begin(), items.end(), wanted);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin()) + 1;
}

bool ListBuffer::isFirstPositionInItemBody(int position) const {
    return isInItemBody(position) && isFirstPositionIn(getItemBodyPos(position), position);
}

int ListBuffer::listAt(int position) const {
    return XmlScan::tagName(document_.text_.view(), position) == L"fo:list-block"
               ? position
               : getListPos(position);
}

int ListBuffer::itemAt(int position) const {
    return isItem(position) ? position : getItemPos(position);
}

/// The elements that stand directly in it. In a list a repeat with items can be among them.
std::vector<int> ListBuffer::childrenOf(int element) const {
    std::vector<int> children;
    const int end = closingTag(element);
    for (int child = document_.getNextElementPosition(element); child >= 0 && child < end;
         child = document_.getNextSiblingElementPos(child))
        children.push_back(child);
    return children;
}

/// The items that are the list's own.
std::vector<int> ListBuffer::itemsOf(int list) const {
    std::vector<int> items = childrenOf(list);
    items.erase(
        std::remove_if(items.begin(), items.end(), [this](int child) { return !isItem(child); }),
        items.end());
    return items;
}

bool ListBuffer::isItem(int element) const {
    return XmlScan::tagName(document_.text_.view(), element) == L"fo:list-item";
}

/// The one that stands that many steps behind the element among them; -1 if there is none.
int ListBuffer::neighborOf(int element, const std::vector<int>& elements, int step) {
    const auto found = std::find(elements.begin(), elements.end(), element);
    const auto index = found - elements.begin() + step;
    const auto size = static_cast<std::ptrdiff_t>(elements.size());
    return found == elements.end() || index < 0 || index >= size
               ? -1
               : elements[static_cast<std::size_t>(index)];
}

/// An item in a repeat belongs to no list.
bool ListBuffer::isOwnItem(int item) const {
    return getListItemNumber(item) > 0;
}

// What stands around a position in an item

bool ListBuffer::isInItemBody(int position) const {
    const int body = getItemBodyPos(position);
    return body >= 0 && body < position && position <= closingTag(body);
}

/// Whether nothing but the start tags of inlines stands between the element's own and the position.
bool ListBuffer::isFirstPositionIn(int element, int position) const {
    const Text text = document_.text_.view();
    int stop = document_.getNextValidCaretPos(element);
    while (stop >= 0 && stop < position && document_.isInlineName(XmlScan::tagName(text, stop)))
        stop = document_.getNextValidCaretPos(stop);
    return stop < 0 || position <= stop;
}

/// Whether nothing but the closing tags of inlines stands between the position and the element's.
bool ListBuffer::isLastPositionIn(int element, int position) const {
    const int end = closingTag(element);
    const auto closesInline = [this](int stop) {
        return document_.isInlineEditableElementClosingTagName(
            document_.getNameForTagAtPosition(stop, true));
    };
    int next = document_.getNextValidCaretPos(position);
    while (next >= 0 && next <= end && closesInline(position)) {
        position = next;
        next = document_.getNextValidCaretPos(position);
    }
    return next < 0 || next > end;
}

// Labels

ListType ListBuffer::typeOf(int list) const {
    const int first = document_.getNextElementByName(L"fo:list-item-label", list);
    const String label = first < closingTag(list) ? textOfLabel(first) : String();
    if (isBullet(label))
        return ListType::Bullets;
    int number = 0;
    return Core::Format::parseInt(label.substringBefore(L")"), number) ? ListType::Numbering
                                                                       : ListType::None;
}

int ListBuffer::labelBlock(int item) const {
    return getFirstBlockInElement(getItemLabelPos(item));
}

String ListBuffer::getItemLabelValue(int item) const {
    return textOfLabel(getItemLabelPos(item));
}

String ListBuffer::textOfLabel(int label) const {
    const int block = getFirstBlockInElement(label);
    if (block < 0)
        return {};
    const Range content = contentOf(block);
    return slice(content.start, content.end);
}

String ListBuffer::getFirstListLabel(ListType type) const {
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

void ListBuffer::getNextLabel(const String& label, String& next, int& number) const {
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

/// The label of the item with that number, counted from 1.
String ListBuffer::labelFor(ListType type, std::size_t number) const {
    return type == ListType::Numbering ? numberLabel(static_cast<std::int64_t>(number))
                                       : getFirstListLabel(type);
}

String ListBuffer::numberLabel(std::int64_t number) {
    return String(std::to_wstring(number) + L")");
}

// The markup of a new item

String ListBuffer::createNewItem(const String& label, int position) const {
    const String body = createNewItemBody(position);
    if (body.empty())
        return {};
    const int item = getItemPos(position);
    const int block = labelBlock(item);
    String text = startTag(item);
    if (block >= 0)
        text += startTag(getItemLabelPos(item)) + startTag(block) + label +
                L"</fo:block></fo:list-item-label>";
    const int behindBody = document_.positionBehindElement(getItemBodyPos(item));
    return text + body + slice(behindBody, document_.positionBehindElement(item));
}

String ListBuffer::createNewItemBody(int position) const {
    if (!isInItemBody(position))
        return {};
    const int body = getItemBodyPos(position);
    String text = startTag(body);
    for (const int element : elementsWithin(body, position))
        text += startTag(element);
    if (isEndOfLine(position))
        text += placeholderAt(position);
    return text + slice(position, document_.positionBehindElement(body));
}

/// Whether nothing but white space stands between the position and the end of the element around it
/// or a line break.
bool ListBuffer::isEndOfLine(int position) const {
    const Text text = document_.text_.view();
    const int next = XmlScan::skipSpaces(text, position);
    return next == document_.getLastPositionInElementContaining(position) ||
           (XmlScan::selfClosingAt(text, next) && XmlScan::tagName(text, next) == L"fo:block");
}

/// What keeps a place for the caret at the position if nothing else stands there.
String ListBuffer::placeholderAt(int position) const {
    const String placeholder(XmlScan::nbspEntity);
    return document_.inEditableElement(position) ? placeholder
                                                 : L"<fo:block>" + placeholder + L"</fo:block>";
}

// The text

String ListBuffer::slice(int start, int end) const {
    return start < 0 || end < start ? String()
                                    : String(XmlScan::slice(document_.text_.view(), start, end));
}

String ListBuffer::startTag(int element) const {
    return slice(element, contentOf(element).start);
}

/// What stands between the element's tags.
ListBuffer::Range ListBuffer::contentOf(int element) const {
    return {document_.getNextEditablePositionInXml(element), closingTag(element)};
}

int ListBuffer::closingTag(int element) const {
    return document_.getClosingTagForTagAtPosition(element);
}

/// The elements around the position that lie in the element, the outermost first.
std::vector<int> ListBuffer::elementsWithin(int element, int position) const {
    std::vector<int> around = document_.elementsAround(position);
    around.erase(around.begin(), std::upper_bound(around.begin(), around.end(), element));
    return around;
}
