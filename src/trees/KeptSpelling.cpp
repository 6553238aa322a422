#include "trees/KeptSpelling.h"

#include "text/WholeElement.h"

#include <algorithm>
#include <array>
#include <deque>
#include <map>
#include <set>
#include <vector>

using Core::String;
using XmlScan::Text;

namespace {

// The parts of an element

struct Attribute {
    int start; ///< with the white space before it
    int end;
    Text name;
    Text plainName; ///< without the prefix, where that is the element's own
    Text value;
};

/// An element of a text, and what stands directly in it.
struct Piece {
    Text text; ///< from the start tag through the closing tag
    int tagEnd;
    int contentEnd; ///< of a self-closing element, like `tagEnd`, the end of the tag
    std::vector<Text> children;
    std::vector<Text> gaps; ///< what stands before each child, and behind the last

    bool isSelfClosing() const { return tagEnd == static_cast<int>(text.size()); }

    Text name() const { return XmlScan::tagName(text, 0); }
    Text tag() const { return XmlScan::slice(text, 0, tagEnd); }
    Text closing() const { return XmlScan::slice(text, contentEnd, static_cast<int>(text.size())); }
};

/// The offset behind the element that begins there; that behind the text where it does not end.
int elementEnd(Text text, int element) {
    const int size = static_cast<int>(text.size());
    const int length = XmlScan::elementLength(XmlScan::slice(text, element, size));
    return length < 0 ? size : element + length;
}

Piece pieceOf(Text text) {
    const int tagEnd = XmlScan::tagEnd(text, 1) + 1;
    const int size = static_cast<int>(text.size());
    Piece piece{text, tagEnd, tagEnd, {}, {}};
    if (piece.isSelfClosing()) {
        piece.gaps.emplace_back();
        return piece;
    }
    int at = tagEnd;
    for (int tag = XmlScan::nextTag(text, at); tag >= 0 && !XmlScan::closingAt(text, tag);
         tag = XmlScan::nextTag(text, at)) {
        piece.gaps.push_back(XmlScan::slice(text, at, tag));
        at = elementEnd(text, tag);
        piece.children.push_back(XmlScan::slice(text, tag, at));
    }
    const int closing = XmlScan::nextTag(text, at);
    piece.contentEnd = closing < 0 ? size : closing;
    piece.gaps.push_back(XmlScan::slice(text, at, piece.contentEnd));
    return piece;
}

// Start tags

Text withoutPrefix(Text name, Text prefix) {
    return !prefix.empty() && name.starts_with(prefix) ? name.substr(prefix.size()) : name;
}

std::vector<Attribute> attributesOf(Text tag) {
    std::vector<Attribute> found;
    const Text element = XmlScan::tagName(tag, 0);
    const Text prefix = element.substr(0, element.size() - XmlScan::localName(element).size());
    int behind = 1 + static_cast<int>(element.size());
    for (int at = XmlScan::nextAttribute(tag, 0); at >= 0; at = XmlScan::nextAttribute(tag, at)) {
        const Text name = XmlScan::attributeName(tag, at);
        const Text value = XmlScan::attributeValue(tag, at);
        const int end = XmlScan::findQuote(tag, at) + static_cast<int>(value.size()) + 2;
        found.push_back({behind, end, name, withoutPrefix(name, prefix), value});
        behind = end;
    }
    return found;
}

/// Attributes that speak of the same, so that one may stand for others: "margin-left" belongs to
/// "margin".
Text familyOf(Text name) {
    static constexpr std::array<std::wstring_view, 4> shorthands{L"margin", L"padding", L"border",
                                                                 L"background"};
    const Text first = name.substr(0, name.find(L'-'));
    return std::any_of(shorthands.begin(), shorthands.end(),
                       [&](std::wstring_view shorthand) { return first == shorthand; })
               ? first
               : name;
}

/// The attributes of a tag, in their order.
class Attributes {
public:
    explicit Attributes(Text tag) : all_(attributesOf(tag)) {
        for (const Attribute& attribute : all_) {
            byName_.emplace(attribute.name, &attribute);
            byPlainName_.emplace(attribute.plainName, &attribute);
        }
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    /// One of a tag is one of another under the same name, or else under the one that a tree may
    /// write in its place.
    const Attribute* find(const Attribute& sought) const {
        if (const auto same = byName_.find(sought.name); same != byName_.end())
            return same->second;
        const auto meant = byPlainName_.find(sought.plainName);
        return meant == byPlainName_.end() ? nullptr : meant->second;
    }

    auto begin() const { return all_.begin(); }
    auto end() const { return all_.end(); }

private:
    std::vector<Attribute> all_;
    std::map<Text, const Attribute*> byName_; // the first of each name
    std::map<Text, const Attribute*> byPlainName_;
};

/// Gives a start tag the attributes that have changed from one tree to another.
class ChangedTag {
public:
    ChangedTag(Text source, Text asRead, Text edited)
        : source_(source), own_(source), before_(asRead), after_(edited) {
        findChanges(before_, after_);
        findChanges(after_, before_);
        for (const Attribute& attribute : own_)
            lastOf_[familyOf(attribute.plainName)] = &attribute;
        for (const Attribute& attribute : after_)
            if (const Text family = familyOf(attribute.plainName);
                changed_.contains(family) && !own_.find(attribute))
                (lastOf_.contains(family) ? gained_[family] : new_).push_back(&attribute);
    }

    String text() {
        copyUpTo(1 + static_cast<int>(XmlScan::tagName(source_, 0).size()));
        for (const Attribute& attribute : own_) {
            const Text family = familyOf(attribute.plainName);
            copyUpTo(attribute.start);
            write(attribute);
            if (lastOf_[family] == &attribute)
                writeAll(gained_[family]);
        }
        writeAll(new_);
        copyUpTo(static_cast<int>(source_.size()));
        return text_;
    }

private:
    void findChanges(const Attributes& some, const Attributes& others) {
        for (const Attribute& attribute : some) {
            const Attribute* other = others.find(attribute);
            if (!other || other->value != attribute.value)
                changed_.insert(familyOf(attribute.plainName));
        }
    }

    /// One of the tag's own, with what has become of it.
    void write(const Attribute& attribute) {
        const Attribute* before = before_.find(attribute);
        const Attribute* after = after_.find(attribute);
        if (!changed_.contains(familyOf(attribute.plainName)) ||
            (before && after && before->value == after->value)) {
            copyUpTo(attribute.end);
        } else if (after) {
            copyUpTo(XmlScan::findQuote(source_, attribute.start));
            text_ += L"\"" + String(after->value) + L"\"";
        }
        copied_ = attribute.end;
    }

    void writeAll(const std::vector<const Attribute*>& gained) {
        for (const Attribute* attribute : gained)
            text_ += L" " + String(attribute->name) + L"=\"" + String(attribute->value) + L"\"";
    }

    void copyUpTo(int end) {
        text_ += String(XmlScan::slice(source_, copied_, end));
        copied_ = end;
    }

    Text source_;
    Attributes own_;
    Attributes before_;
    Attributes after_;
    std::set<Text> changed_;                  // families
    std::map<Text, const Attribute*> lastOf_; // of a family, its last attribute in the source
    std::map<Text, std::vector<const Attribute*>> gained_; // what these families have gained
    std::vector<const Attribute*> new_;                    // what belongs to none of them
    int copied_ = 0;                                       // how far the source has been written
    String text_;
};

// Content

/// What stands between the tags of an element.
Text contentOf(Text element) {
    const int start = XmlScan::tagEnd(element, 1) + 1;
    const int closing = XmlScan::closingTag(element, 0);
    return closing < start ? Text() : XmlScan::slice(element, start, closing);
}

/// The name by which others refer to an element; empty where it has none.
Text callingNameOf(Text element) {
    static constexpr std::array<std::wstring_view, 4> names{L"master-name", L"region-name",
                                                            L"flow-name", L"id"};
    for (const Attribute& attribute : attributesOf(element))
        if (std::any_of(names.begin(), names.end(), [&](std::wstring_view name) {
                return XmlScan::localName(attribute.name) == name;
            }))
            return attribute.value;
    return {};
}

/// Finds which child of what was read each child of what was edited is.
class Pairs {
public:
    Pairs(const Piece& asRead, const Piece& edited)
        : asRead_(asRead.children), edited_(edited.children), pairs_(edited_.size(), -1),
          isTaken_(asRead_.size()) {}

    /// The same one, or else the one that is called the same, or has the same content, or the next
    /// that is left of its element's name and that nothing calls; -1 for a new one.
    std::vector<int> found() {
        pairBy([](Text child) { return std::pair(child, Text()); });
        pairBy([](Text child) {
            const Text name = callingNameOf(child);
            return std::pair(name.empty() ? Text() : XmlScan::tagName(child, 0), name);
        });
        pairBy([](Text child) { return std::pair(contentOf(child), Text()); });
        pairBy([](Text child) {
            return std::pair(callingNameOf(child).empty() ? XmlScan::tagName(child, 0) : Text(),
                             Text());
        });
        return std::move(pairs_);
    }

private:
    template <typename Trait>
    void pairBy(Trait traitOf) {
        std::map<std::pair<Text, Text>, std::deque<int>> left;
        for (std::size_t i = 0; i < asRead_.size(); ++i)
            if (!isTaken_[i])
                left[traitOf(asRead_[i])].push_back(static_cast<int>(i));
        for (std::size_t i = 0; i < pairs_.size() && !left.empty(); ++i)
            if (const auto trait = traitOf(edited_[i]); pairs_[i] < 0 && !trait.first.empty())
                pairs_[i] = take(left[trait]);
    }

    int take(std::deque<int>& left) {
        if (left.empty())
            return -1;
        const int pair = left.front();
        left.pop_front();
        isTaken_[static_cast<std::size_t>(pair)] = true;
        return pair;
    }

    const std::vector<Text>& asRead_;
    const std::vector<Text>& edited_;
    std::vector<int> pairs_;
    std::vector<bool> isTaken_;
};

/// Whether the tree has the elements that the text has. It may lack some whose entities were
/// written out.
bool agree(const Piece& source, const Piece& asRead) {
    return std::equal(source.children.begin(), source.children.end(), asRead.children.begin(),
                      asRead.children.end(), [](Text one, Text other) {
                          return XmlScan::tagName(one, 0) == XmlScan::tagName(other, 0);
                      });
}

class Spelling {
public:
    String text(Text source, Text asRead, Text edited) {
        write(source, asRead, edited);
        return std::move(text_);
    }

private:
    void write(Text source, Text asRead, Text edited) {
        if (edited == asRead) {
            text_ += String(source);
            return;
        }
        const Piece own = pieceOf(source);
        const Piece before = pieceOf(asRead);
        const Piece after = pieceOf(edited);
        if (!agree(own, before)) {
            text_ += String(edited);
            return;
        }
        if (own.name() == after.name())
            writeKept(own, before, after);
        else
            writeRenamed(own, before, after);
    }

    void writeKept(const Piece& own, const Piece& before, const Piece& after) {
        text_ += ChangedTag(own.tag(), before.tag(), after.tag()).text();
        const bool gainsContent = own.isSelfClosing() && !after.isSelfClosing();
        if (gainsContent)
            text_.erase(static_cast<unsigned>(text_.length() - 2), 1); // the "/"
        writeContent(own, before, after);
        text_ += String(gainsContent ? after.closing() : own.closing());
    }

    void writeRenamed(const Piece& own, const Piece& before, const Piece& after) {
        text_ += String(after.tag());
        writeContent(own, before, after);
        text_ += String(after.closing());
    }

    void writeContent(const Piece& own, const Piece& before, const Piece& after) {
        const std::vector<int> pairs = Pairs(before, after).found();
        for (std::size_t i = 0; i < after.gaps.size(); ++i) {
            const int previous = i == 0 ? -1 : pairs[i - 1];
            const int next = i < pairs.size() ? pairs[i] : static_cast<int>(before.children.size());
            writeGap(own, before, after.gaps[i], i > 0 && previous < 0 ? next : previous + 1, next);
            if (i < pairs.size())
                writeChild(own, before, after.children[i], pairs[i]);
        }
    }

    /// What stands between two elements stood behind the one or before the other.
    void writeGap(const Piece& own, const Piece& before, Text gap, int behind, int ahead) {
        for (const int place : {behind, ahead})
            if (const auto index = static_cast<std::size_t>(place);
                place >= 0 && index < own.gaps.size() && before.gaps[index] == gap) {
                text_ += String(own.gaps[index]);
                return;
            }
        text_ += String(gap);
    }

    void writeChild(const Piece& own, const Piece& before, Text child, int pair) {
        const auto index = static_cast<std::size_t>(pair);
        if (pair < 0)
            text_ += String(child);
        else
            write(own.children[index], before.children[index], child);
    }

    String text_;
};

} // namespace

String keepSpelling(const String& source, const String& asRead, const String& edited) {
    return Spelling().text(source.view(), asRead.view(), edited.view());
}
