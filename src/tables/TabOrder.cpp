#include "tables/TabOrder.h"

#include "tables/TablePlaces.h"

using XmlScan::Text;
using Type = TableRowGroupType;

namespace {

bool isCell(Text name) {
    return name == L"fo:table-cell";
}

bool isStartTag(const XmlText& text, int tag) {
    return text.openingAt(tag) || text.selfClosingAt(tag);
}

/// The tag behind the one at the position.
int tagBehind(const XmlText& text, int tag) {
    return text.nextTag(text.next(tag));
}

/// The tag before the one at the position; an instruction is none.
int tagBefore(const XmlText& text, int tag) {
    do
        tag = tag > 0 ? text.previousTag(tag - 1) : -1;
    while (text.ignoredAt(tag));
    return tag;
}

/// The way from one cell to its neighbour, tag by tag. It begins in a row group, whose name it
/// learns where it leaves it, and goes on in at most one group that stands elsewhere in the text.
class Way {
public:
    explicit Way(const XmlText& text) : text_(text) {}

    int forwardFrom(int cell) {
        int tag = tagBehind(text_, text_.closingTag(cell));
        while (tag >= 0) {
            const Text name = text_.tagName(tag);
            if (isCell(name))
                return tag;
            if (isStartTag(text_, tag))
                tag = tagBehind(text_, entersForward(tag) ? tag : text_.closingTag(tag));
            else
                tag = leaveForward(tag, name);
        }
        return -1;
    }

    int backwardFrom(int cell) {
        int tag = tagBefore(text_, cell);
        while (tag >= 0) {
            const Text name = text_.tagName(tag);
            if (name == L"/fo:table-cell")
                return text_.startTag(tag);
            if (text_.selfClosingAt(tag)) {
                if (isCell(name))
                    return tag;
                tag = tagBefore(text_, tag);
            } else if (text_.closingAt(tag)) {
                tag = tagBefore(text_, entersBackward(name) ? tag : text_.startTag(tag));
            } else {
                tag = leaveBackward(tag, name);
            }
        }
        return -1;
    }

private:
    /// The footer, which a reader meets later, is passed whole, and so is what holds no rows.
    bool entersForward(int tag) const {
        return text_.openingAt(tag) &&
               (TablePlaces::isRow(text_, tag) || (text_.tagName(tag) == L"fo:table-body" &&
                                                   (left_ == Type::Header || left_ == Type::Body)));
    }

    int leaveForward(int tag, Text name) {
        if (name == L"/fo:table-footer")
            return -1;
        if (name == L"/fo:table-header")
            left_ = Type::Header;
        else if (name == L"/fo:table-body")
            left_ = Type::Body;
        else if (name == L"/fo:table")
            return left_ == Type::Body ? firstTagIn(Type::Footer, text_.startTag(tag)) : -1;
        return tagBehind(text_, tag);
    }

    int firstTagIn(Type type, int table) const {
        const std::vector<int> groups = TablePlaces::groupsOf(text_, table, type);
        return groups.empty() || !text_.openingAt(groups.front())
                   ? -1
                   : tagBehind(text_, groups.front());
    }

    bool entersBackward(Text name) const {
        return name == L"/fo:table-row" || name == L"/qfd:table-row-repeat" ||
               (name == L"/fo:table-body" && left_ == Type::Body);
    }

    int leaveBackward(int tag, Text name) {
        if (name == L"fo:table-footer")
            return lastTagIn(Type::Body, text_.elementAround(tag));
        if (name == L"fo:table")
            return left_ == Type::Body ? lastTagIn(Type::Header, tag) : -1;
        if (name == L"fo:table-header")
            return -1;
        if (name == L"fo:table-body")
            left_ = Type::Body;
        return tagBefore(text_, tag);
    }

    int lastTagIn(Type type, int table) {
        const std::vector<int> groups = TablePlaces::groupsOf(text_, table, type);
        left_ = type;
        if (groups.empty())
            return -1;
        // Of an empty group it is the tag before.
        return text_.openingAt(groups.back()) ? tagBefore(text_, text_.closingTag(groups.back()))
                                              : tagBefore(text_, groups.back());
    }

    const XmlText& text_;
    Type left_ = Type::None; // the group that was left last
};

} // namespace

int TabOrder::next(const XmlText& text, int cell) {
    return isCell(text.tagName(cell)) ? Way(text).forwardFrom(cell) : -1;
}

int TabOrder::previous(const XmlText& text, int cell) {
    return isCell(text.tagName(cell)) ? Way(text).backwardFrom(cell) : -1;
}

int TabOrder::nextInRow(const XmlText& text, int cell) {
    if (!isCell(text.tagName(cell)))
        return -1;
    int tag = tagBehind(text, text.closingTag(cell));
    while (isStartTag(text, tag) && !isCell(text.tagName(tag)))
        tag = tagBehind(text, text.closingTag(tag));
    return isStartTag(text, tag) ? tag : -1;
}

int TabOrder::previousInRow(const XmlText& text, int cell) {
    if (!isCell(text.tagName(cell)))
        return -1;
    for (int tag = tagBefore(text, cell); tag >= 0 && !text.openingAt(tag);
         tag = tagBefore(text, tag)) {
        if (text.closingAt(tag))
            tag = text.startTag(tag);
        if (isCell(text.tagName(tag)))
            return tag;
    }
    return -1;
}
