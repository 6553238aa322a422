#include "text/EditableXmlBuffer.h"

#include "text/XmlScan.h"

#include <algorithm>
#include <utility>
#include <vector>

using Core::String;
using Core::StringArray;
using XmlScan::Text;

namespace {

/// The next tag at or after `position` that opens or closes an element with content.
int nextPairedTag(Text text, int position) {
    int tag = XmlScan::nextTag(text, position);
    while (XmlScan::selfClosingAt(text, tag))
        tag = XmlScan::nextTag(text, XmlScan::stepForward(text, tag));
    return tag;
}

/// The whole tag at `position`, from `<` through `>`.
Text wholeTag(Text text, int position) {
    return XmlScan::slice(text, position, XmlScan::tagEnd(text, position + 1) + 1);
}

/// Cuts a range out of a document and adds the tags that the range cuts off.
class RangeCutter {
public:
    RangeCutter(Text text, int start, int end) : text_(text), start_(start), end_(end) {}

    std::wstring cut() {
        int position = start_;
        while (XmlScan::isValid(text_, position) && position <= end_) {
            const int tag = nextPairedTag(text_, position);
            if (tag < 0 || tag > end_) {
                body_ += XmlScan::slice(text_, position, end_ + 1);
                break;
            }
            body_ += XmlScan::slice(text_, position, tag);
            if (XmlScan::closingAt(text_, tag))
                closeElement(tag);
            else
                openElement(tag);
            position = XmlScan::stepForward(text_, tag);
        }
        for (; !open_.empty(); open_.pop_back())
            appendClosingTag(open_.back());
        return front_ + body_;
    }

private:
    void openElement(int tag) {
        body_ += wholeTag(text_, tag);
        open_.push_back(XmlScan::tagName(text_, tag));
    }

    void closeElement(int tag) {
        const Text name = XmlScan::tagName(text_, tag).substr(1);
        if (open_.empty())
            putStartTagInFront(XmlScan::currentElement(text_, tag));
        else if (open_.back() == name)
            open_.pop_back();
        appendClosingTag(name);
        // What closes while an element around it is still open needs no wrapping.
        if (open_.empty())
            wrapCutOffPart(name, tag);
    }

    /// A body or cell that ends where its item or row was not opened in the range is a part of a
    /// list or table, and nothing without it.
    void wrapCutOffPart(Text name, int tag) {
        const bool isItemBody = name == L"fo:list-item-body";
        if (!isItemBody && name != L"fo:table-cell")
            return;
        const int element = XmlScan::currentElement(text_, tag);
        const int parent = XmlScan::currentElement(text_, element);
        if (isItemBody)
            putLabelInFront(parent, element);
        putContainersInFront(parent, isItemBody ? L"fo:list-block" : L"fo:table");
    }

    void putLabelInFront(int item, int body) {
        int label = XmlScan::nextTag(text_, XmlScan::stepForward(text_, item));
        while (label >= 0 && label < body &&
               XmlScan::tagName(text_, label) != L"fo:list-item-label")
            label = XmlScan::nextTag(
                text_, XmlScan::stepForward(text_, XmlScan::closingTag(text_, label)));
        const bool alreadyInRange = start_ <= XmlScan::closingTag(text_, label);
        if (label >= 0 && label < body && !alreadyInRange)
            front_.insert(0, XmlScan::slice(text_, label, body));
    }

    /// Opens all elements from the container down to `parent` in front, to be closed at the end.
    void putContainersInFront(int parent, Text container) {
        // Deliberate: a part whose parent is the container itself is not wrapped.
        if (XmlScan::tagName(text_, parent) == container)
            return;
        std::vector<Text> wrapped;
        for (int element = parent; element >= 0;
             element = XmlScan::currentElement(text_, element)) {
            putStartTagInFront(element);
            wrapped.push_back(XmlScan::tagName(text_, element));
            if (wrapped.back() == container) {
                relaxTableLayout();
                break;
            }
        }
        open_.insert(open_.end(), wrapped.rbegin(), wrapped.rend());
    }

    /// The cut-off table has lost the column definitions that a fixed layout needs.
    void relaxTableLayout() {
        static constexpr Text fixed = L"table-layout=\"fixed\"";
        const int at = XmlScan::find(front_, fixed, 0);
        if (XmlScan::tagName(front_, 0) == L"fo:table" && at >= 0 &&
            at < XmlScan::tagEnd(front_, 1))
            front_.replace(static_cast<std::size_t>(at), fixed.size(), L"table-layout=\"auto\"");
    }

    void putStartTagInFront(int element) {
        if (element >= 0)
            front_.insert(0, wholeTag(text_, element));
    }

    void appendClosingTag(Text name) { body_.append(L"</").append(name).append(L">"); }

    Text text_;
    int start_;
    int end_;
    std::wstring front_;     // start tags and labels that the range began behind
    std::wstring body_;      // the range itself
    std::vector<Text> open_; // names still to be closed, the innermost last
};

} // namespace

String EditableXmlBuffer::getNativeText(int start, int end) const {
    const int last = std::min(end, text_.length() - 1);
    if (isOnInvalidPosition(start) || start > last)
        return {};
    return String(RangeCutter(text_.view(), start, last).cut());
}

StringArray EditableXmlBuffer::getClosingTagsBetweenPositions(int start, int end) const {
    const Text text = text_.view();
    std::vector<Text> open;
    for (int tag = nextPairedTag(text, start); tag >= 0 && tag < end;
         tag = nextPairedTag(text, XmlScan::stepForward(text, tag))) {
        if (!XmlScan::closingAt(text, tag))
            open.push_back(XmlScan::tagName(text, tag));
        else if (!open.empty() && open.back() == XmlScan::tagName(text, tag).substr(1))
            open.pop_back();
    }
    return {open.begin(), open.end()};
}

String EditableXmlBuffer::stringArrayToTagString(const StringArray& names) const {
    String tags;
    for (const String& name : names)
        tags += L"</" + name + L">";
    return tags;
}

String EditableXmlBuffer::stringArrayToReverseTagString(const StringArray& names) const {
    return stringArrayToTagString(StringArray(names.rbegin(), names.rend()));
}

String EditableXmlBuffer::getCharacterDataForElementAt(int element) const {
    // Deliberate: the unit behind a child is dropped and an entity gives its "&" only; list
    // numbering, the one caller, reads labels that hold neither.
    const Text text = text_.view();
    const int end = XmlScan::closingTag(text, element);
    std::wstring data;
    for (int at = XmlScan::stepForward(text, element); XmlScan::isValid(text, at) && at < end;
         at = XmlScan::stepForward(text, at)) {
        if (XmlScan::openingAt(text, at))
            at = XmlScan::stepForward(text, XmlScan::closingTag(text, at));
        else if (XmlScan::onTagStart(text, at))
            at = XmlScan::stepForward(text, at);
        else
            data += XmlScan::unitAt(text, at);
    }
    return String(std::move(data));
}
