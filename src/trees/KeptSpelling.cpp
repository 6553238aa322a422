#include "trees/KeptSpelling.h"

#include "text/XmlScan.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
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

/// Tells stretches of a text apart without reading them again: equal stretches have equal hashes.
class RunningHash {
public:
    using Value = std::uint64_t;

    explicit RunningHash(Text text) : text_(text) {}

    /// Of what stands before the offset, which is not before one asked earlier.
    Value upTo(int end) {
        for (; read_ < end; ++read_)
            value_ = value_ * base + static_cast<Value>(XmlScan::unitAt(text_, read_));
        return value_;
    }

    /// Of a stretch, from the hashes up to its start and end.
    static Value between(Value start, Value end, int length) {
        for (Value power = base; length > 0; length /= 2, power *= power)
            if (length % 2 != 0)
                start *= power;
        return end - start;
    }

private:
    static constexpr Value base = 0x9E3779B97F4A7C15;

    Text text_;
    int read_ = 0;
    Value value_ = 0;
};

/// Where an element of a text stands.
struct Span {
    int start;
    int tagEnd;
    int contentEnd; ///< of a self-closing element, like `tagEnd`, the end of the tag
    int end;
    std::size_t behind; ///< the number of the first element that begins behind it
    RunningHash::Value hash;
    RunningHash::Value contentHash;
};

/// The elements of a text, which is one element, numbered as they begin. It is read only once.
class ElementIndex {
public:
    explicit ElementIndex(Text text) : text_(text), hash_(text) {
        int tag = XmlScan::nextTag(text, 0);
        do {
            read(tag);
            tag = XmlScan::nextTag(text, read_);
        } while (tag >= 0 && !open_.empty());
        while (!open_.empty()) // what has no end
            close(size(), size());
    }

    Text text() const { return text_; }
    const Span& operator[](std::size_t number) const { return spans_[number]; }

private:
    int size() const { return static_cast<int>(text_.size()); }

    void read(int tag) {
        const int last = XmlScan::tagEnd(text_, tag + 1);
        const int end = last < 0 ? size() : last + 1;
        if (XmlScan::closingAt(text_, tag)) {
            close(tag, end);
            return;
        }
        open(tag, end);
        if (XmlScan::unitAt(text_, end - 2) == L'/')
            close(end, end);
    }

    RunningHash::Value hashUpTo(int offset) {
        read_ = offset;
        return hash_.upTo(offset);
    }

    void open(int start, int tagEnd) {
        const RunningHash::Value hash = hashUpTo(start);
        open_.push_back(spans_.size());
        spans_.push_back({start, tagEnd, tagEnd, tagEnd, 0, hash, hashUpTo(tagEnd)});
    }

    void close(int closing, int end) {
        Span& span = spans_[open_.back()];
        open_.pop_back();
        span.contentEnd = closing;
        span.end = end;
        span.behind = spans_.size();
        span.contentHash =
            RunningHash::between(span.contentHash, hashUpTo(closing), closing - span.tagEnd);
        span.hash = RunningHash::between(span.hash, hashUpTo(end), end - span.start);
    }

    Text text_;
    RunningHash hash_;
    int read_ = 0;
    std::vector<Span> spans_;
    std::vector<std::size_t> open_; // the elements that have not ended yet
};

/// An element of a text that has been read.
class Piece {
public:
    Piece(const ElementIndex& index, std::size_t number) : index_(&index), number_(number) {}

    bool isSelfClosing() const { return span().tagEnd == span().end; }

    Text text() const { return slice(span().start, span().end); }
    Text tag() const { return slice(span().start, span().tagEnd); }
    Text inside() const { return slice(span().tagEnd, span().contentEnd); }
    Text closing() const { return slice(span().contentEnd, span().end); }
    Text name() const { return XmlScan::tagName(tag(), 0); }
    RunningHash::Value hash() const { return span().hash; }
    RunningHash::Value contentHash() const { return span().contentHash; }

    std::vector<Piece> children() const {
        std::vector<Piece> found;
        for (std::size_t child = number_ + 1; child < span().behind;
             child = (*index_)[child].behind)
            found.emplace_back(*index_, child);
        return found;
    }

    /// What stands before each of its children, and behind the last.
    std::vector<Text> gaps(const std::vector<Piece>& children) const {
        std::vector<Text> found;
        int at = span().tagEnd;
        for (const Piece& child : children) {
            found.push_back(slice(at, child.span().start));
            at = child.span().end;
        }
        found.push_back(slice(at, span().contentEnd));
        return found;
    }

private:
    const Span& span() const { return (*index_)[number_]; }
    Text slice(int start, int end) const { return XmlScan::slice(index_->text(), start, end); }

    const ElementIndex* index_;
    std::size_t number_;
};

bool operator==(const Piece& one, const Piece& other) {
    return one.hash() == other.hash() && one.text() == other.text();
}

/// What stands directly in an element.
struct Content {
    explicit Content(const Piece& element)
        : children(element.children()), gaps(element.gaps(children)) {}

    std::vector<Piece> children;
    std::vector<Text> gaps; ///< before each child, and behind the last
};

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

/// The name by which others refer to an element; empty where it has none.
Text callingNameOf(const Piece& element) {
    static constexpr std::array<std::wstring_view, 4> names{L"master-name", L"region-name",
                                                            L"flow-name", L"id"};
    for (const Attribute& attribute : attributesOf(element.tag()))
        if (std::any_of(names.begin(), names.end(), [&](std::wstring_view name) {
                return XmlScan::localName(attribute.name) == name;
            }))
            return attribute.value;
    return {};
}

/// What two elements may have in common; nothing where the text is empty.
struct Trait {
    RunningHash::Value hash; ///< equal for equal traits
    Text text;
    Text name;

    explicit Trait(Text stretch, RunningHash::Value stretchHash = 0, Text calledName = {})
        : hash(stretchHash), text(stretch), name(calledName) {}

    bool operator<(const Trait& other) const {
        return std::tie(hash, text, name) < std::tie(other.hash, other.text, other.name);
    }
};

Trait wholeOf(const Piece& element) {
    return Trait(element.text(), element.hash());
}

Trait calledNameOf(const Piece& element) {
    const Text name = callingNameOf(element);
    return name.empty() ? Trait({}) : Trait(element.name(), 0, name);
}

Trait contentOf(const Piece& element) {
    return Trait(element.inside(), element.contentHash());
}

Trait nameOfUncalled(const Piece& element) {
    return Trait(callingNameOf(element).empty() ? element.name() : Text());
}

/// Finds which child of what was read each child of what was edited is.
class Pairs {
public:
    Pairs(const Content& asRead, const Content& edited)
        : asRead_(asRead.children), edited_(edited.children), pairs_(edited_.size(), -1),
          isTaken_(asRead_.size()) {}

    /// The same one, or else the one that is called the same, or has the same content, or the next
    /// that is left of its element's name and that nothing calls; -1 for a new one.
    std::vector<int> found() {
        for (const auto trait : {wholeOf, calledNameOf, contentOf, nameOfUncalled})
            pairBy(trait);
        return std::move(pairs_);
    }

private:
    void pairBy(Trait (*traitOf)(const Piece&)) {
        std::map<Trait, std::deque<int>> left;
        for (std::size_t i = 0; i < asRead_.size(); ++i)
            if (!isTaken_[i])
                left[traitOf(asRead_[i])].push_back(static_cast<int>(i));
        for (std::size_t i = 0; i < pairs_.size() && !left.empty(); ++i)
            if (pairs_[i] < 0)
                if (const Trait trait = traitOf(edited_[i]); !trait.text.empty())
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

    const std::vector<Piece>& asRead_;
    const std::vector<Piece>& edited_;
    std::vector<int> pairs_;
    std::vector<bool> isTaken_;
};

/// Whether the tree has the elements that the text has. It may lack some whose entities were
/// written out.
bool agree(const Content& source, const Content& asRead) {
    return std::equal(source.children.begin(), source.children.end(), asRead.children.begin(),
                      asRead.children.end(), [](const Piece& one, const Piece& other) {
                          return one.name() == other.name();
                      });
}

/// Writes the three texts' elements level by level, without a call within a call, for elements may
/// be nested deeply.
class Spelling {
public:
    String text(const Piece& source, const Piece& asRead, const Piece& edited) {
        next(Element{source, asRead, edited});
        while (!steps_.empty()) {
            const Step step = steps_.back();
            steps_.pop_back();
            if (const auto* const text = std::get_if<Text>(&step))
                text_ += *text;
            else
                write(std::get<Element>(step));
        }
        return String(text_);
    }

private:
    /// An element as it was in the source, when it was read and as it is now.
    struct Element {
        Piece own;
        Piece before;
        Piece after;
    };
    /// What is to be written as it is, or to be looked at.
    using Step = std::variant<Text, Element>;

    void write(const Element& element) {
        const auto& [own, before, after] = element;
        if (after == before) {
            text_ += own.text();
            return;
        }
        const Content source(own);
        const Content asRead(before);
        if (!agree(source, asRead)) {
            text_ += after.text();
            return;
        }
        const bool isKept = own.name() == after.name();
        const bool gainsContent = own.isSelfClosing() && !after.isSelfClosing();
        writeTag(element, isKept, gainsContent);
        const std::size_t first = steps_.size();
        addContent(source, asRead, Content(after));
        next(isKept && !gainsContent ? own.closing() : after.closing());
        std::reverse(steps_.begin() + static_cast<std::ptrdiff_t>(first), steps_.end());
    }

    void writeTag(const Element& element, bool isKept, bool gainsContent) {
        const auto& [own, before, after] = element;
        if (!isKept) {
            text_ += after.tag();
            return;
        }
        text_ += ChangedTag(own.tag(), before.tag(), after.tag()).text();
        if (gainsContent)
            text_.erase(text_.size() - 2, 1); // the "/"
    }

    void addContent(const Content& own, const Content& before, const Content& after) {
        const std::vector<int> pairs = Pairs(before, after).found();
        for (std::size_t i = 0; i < after.gaps.size(); ++i) {
            const int previous = i == 0 ? -1 : pairs[i - 1];
            const int ahead =
                i < pairs.size() ? pairs[i] : static_cast<int>(before.children.size());
            addGap(own, before, after.gaps[i], i > 0 && previous < 0 ? ahead : previous + 1, ahead);
            if (i < pairs.size())
                addChild(own, before, after.children[i], pairs[i]);
        }
    }

    /// What stands between two elements stood behind the one or before the other.
    void addGap(const Content& own, const Content& before, Text gap, int behind, int ahead) {
        for (const int place : {behind, ahead})
            if (const auto index = static_cast<std::size_t>(place);
                place >= 0 && index < own.gaps.size() && before.gaps[index] == gap) {
                next(own.gaps[index]);
                return;
            }
        next(gap);
    }

    void addChild(const Content& own, const Content& before, const Piece& child, int pair) {
        const auto index = static_cast<std::size_t>(pair);
        if (pair < 0)
            next(child.text());
        else
            next(Element{own.children[index], before.children[index], child});
    }

    void next(Step step) { steps_.push_back(step); }

    std::vector<Step> steps_; // the last comes first
    std::wstring text_;
};

} // namespace

String keepSpelling(const String& source, const String& asRead, const String& edited) {
    const ElementIndex own(source.view());
    const ElementIndex before(asRead.view());
    const ElementIndex after(edited.view());
    return Spelling().text({own, 0}, {before, 0}, {after, 0});
}
