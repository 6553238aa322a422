#include "text/Markup.h"

#include "text/XmlText.h"

#include <algorithm>
#include <utility>
#include <vector>

using Core::String;
using Core::StringArray;
using XmlScan::Text;

namespace {

/// The next tag at or after `position` that opens or closes an element with content.
int nextPairedTag(const XmlText& text, int position) {
    int tag = text.nextTag(position);
    while (text.selfClosingAt(tag))
        tag = text.nextTag(text.next(tag));
    return tag;
}

/// The whole tag at `position`, from `<` through `>`.
Text wholeTag(const XmlText& text, int position) {
    return text.view(position, text.tagEnd(position + 1) + 1);
}

/// Cuts a range out of a document and adds the tags that the range cuts off.
class RangeCutter {
public:
    RangeCutter(const XmlText& text, int start, int end) : text_(text), start_(start), end_(end) {}

    std::wstring cut() {
        int position = start_;
        while (text_.isValid(position) && position <= end_) {
            const int tag = nextPairedTag(text_, position);
            if (tag < 0 || tag > end_) {
                body_ += text_.view(position, end_ + 1);
                break;
            }
            body_ += text_.view(position, tag);
            if (text_.closingAt(tag))
                closeElement(tag);
            else
                openElement(tag);
            position = text_.next(tag);
        }
        for (; !open_.empty(); open_.pop_back())
            appendClosingTag(open_.back());
        std::wstring whole;
        for (auto piece = front_.rbegin(); piece != front_.rend(); ++piece)
            whole += *piece;
        return whole + body_;
    }

private:
    void openElement(int tag) {
        body_ += wholeTag(text_, tag);
        open_.push_back(text_.tagName(tag));
    }

    void closeElement(int tag) {
        const Text name = text_.tagName(tag).substr(1);
        if (open_.empty())
            putStartTagInFront(text_.elementAround(tag));
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
        const int element = text_.elementAround(tag);
        const int parent = text_.elementAround(element);
        if (isItemBody)
            putLabelInFront(parent, element);
        putContainersInFront(parent, isItemBody ? Text(L"fo:list-block") : Text(L"fo:table"));
    }

    void putLabelInFront(int item, int body) {
        int label = text_.nextTag(text_.next(item));
        while (label >= 0 && label < body && text_.tagName(label) != L"fo:list-item-label")
            label = text_.nextTag(text_.behindElement(label));
        const bool alreadyInRange = start_ <= text_.closingTag(label);
        if (label >= 0 && label < body && !alreadyInRange)
            front_.emplace_back(text_.view(label, body));
    }

    /// Opens all elements from the container down to `parent` in front, to be closed at the end.
    void putContainersInFront(int parent, Text container) {
        // Deliberate: a part whose parent is the container itself is not wrapped.
        if (text_.tagName(parent) == container)
            return;
        std::vector<Text> wrapped;
        for (int element = parent; element >= 0; element = text_.elementAround(element)) {
            putStartTagInFront(element);
            wrapped.push_back(text_.tagName(element));
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
        std::wstring& table = front_.back();
        const int at = XmlScan::find(table, fixed, 0);
        if (XmlScan::tagName(table, 0) == L"fo:table" && at >= 0 && at < XmlScan::tagEnd(table, 1))
            table.replace(static_cast<std::size_t>(at), fixed.size(), L"table-layout=\"auto\"");
    }

    void putStartTagInFront(int element) {
        if (element >= 0)
            front_.emplace_back(wholeTag(text_, element));
    }

    void appendClosingTag(Text name) { body_ += L"</" + std::wstring(name) + L">"; }

    const XmlText& text_;
    int start_;
    int end_;
    std::vector<std::wstring> front_; // start tags and labels that the range began behind,
                                      // the first one last
    std::wstring body_;               // the range itself
    std::vector<Text> open_;          // names still to be closed, the innermost last
};

/// The character with the number that is written in the base, 10 or 16; empty for none.
String characterNumbered(Text digits, int base) {
    constexpr int last = 0x10FFFF;
    int number = 0;
    for (const wchar_t digit : digits) {
        const std::size_t value = Text(L"0123456789abcdef").find(digit | L' ');
        if (value >= static_cast<std::size_t>(base) || number > last)
            return {};
        number = number * base + static_cast<int>(value);
    }
    const wchar_t character[] = {static_cast<wchar_t>(number), 0};
    return number > last ? String() : String(character);
}

/// What a reference with that between its "&" and ";" stands for; empty where only a declaration
/// tells.
String meaningOf(Text name) {
    static constexpr std::pair<Text, const wchar_t*> known[] = {
        {L"lt", L"<"}, {L"gt", L">"}, {L"amp", L"&"}, {L"quot", L"\""}, {L"apos", L"'"}};
    if (name.starts_with(L"#x"))
        return characterNumbered(name.substr(2), 16);
    if (name.starts_with(L'#'))
        return characterNumbered(name.substr(1), 10);
    const auto found = std::find_if(std::begin(known), std::end(known),
                                    [&](const auto& entity) { return entity.first == name; });
    return found == std::end(known) ? String() : String(found->second);
}

} // namespace

void Markup::escape(String& plain) {
    std::wstring escaped;
    escaped.reserve(plain.view().size());
    for (const wchar_t unit : plain.view()) {
        switch (unit) {
        case L'"':
            escaped += L"&quot;";
            break;
        case L'&':
            escaped += L"&amp;";
            break;
        case L'\'':
            escaped += L"&apos;";
            break;
        case L'<':
            escaped += L"&lt;";
            break;
        case L'>':
            escaped += L"&gt;";
            break;
        default:
            escaped += unit < L' ' && unit != L'\t' ? L' ' : unit;
        }
    }
    plain = String(std::move(escaped));
}

String Markup::unescaped(Text markup) {
    std::wstring plain;
    std::size_t copied = 0;
    for (std::size_t at = markup.find(L'&'); at != Text::npos;) {
        const std::size_t end = markup.findEither(L';', L'&', at + 1);
        if (end == Text::npos)
            break;
        const String meant =
            markup[end] == L';' ? meaningOf(markup.substr(at + 1, end - at - 1)) : String();
        if (!meant.empty()) {
            plain += markup.substr(copied, at - copied);
            plain += meant.view();
            copied = end + 1;
        }
        at = markup.find(L'&', end);
    }
    plain += markup.substr(copied);
    return String(std::move(plain));
}

String Markup::closingTags(const StringArray& names) {
    String tags;
    for (const String& name : names)
        tags += L"</" + name + L">";
    return tags;
}

String Markup::closingTagsInReverse(const StringArray& names) {
    return closingTags(StringArray(names.rbegin(), names.rend()));
}

String Markup::cutOut(const XmlText& text, int start, int end) {
    const int last = std::min(end, text.length() - 1);
    if (!text.isValid(start) || start > last)
        return {};
    return String(RangeCutter(text, start, last).cut());
}

StringArray Markup::openedBetween(const XmlText& text, int start, int end) {
    std::vector<Text> open;
    for (int tag = nextPairedTag(text, start); tag >= 0 && tag < end;
         tag = nextPairedTag(text, text.next(tag))) {
        if (!text.closingAt(tag))
            open.push_back(text.tagName(tag));
        else if (!open.empty() && open.back() == text.tagName(tag).substr(1))
            open.pop_back();
    }
    return {open.begin(), open.end()};
}

String Markup::characterData(const XmlText& text, int element) {
    // Deliberate: the unit behind a child is dropped and an entity gives its "&" only; list
    // numbering, the one caller, reads labels that hold neither.
    const int end = text.closingTag(element);
    std::wstring data;
    for (int at = text.next(element); text.isValid(at) && at < end; at = text.next(at)) {
        if (text.openingAt(at))
            at = text.behindElement(at);
        else if (text.onTagStart(at))
            at = text.next(at);
        else if (text.unitAt(at) == L'&')
            data += L'&';
        else
            data += text.view(at, text.next(at));
    }
    return String(std::move(data));
}

String Markup::pathToParent(const String& path, const String& parentName) {
    const int found =
        parentName.empty() ? -1 : path.rFind(parentName, static_cast<unsigned>(path.length()));
    return found < 0 ? path
                     : path.subString(0, static_cast<unsigned>(found + parentName.length() - 1));
}

bool Namespaces::declares(const std::set<String>& declared, const String& declaration) {
    const String wanted = declaration.substringBefore(L"=").toLower();
    return std::any_of(declared.begin(), declared.end(), [&](const String& entry) {
        return entry.substringBefore(L"=").toLower() == wanted;
    });
}

String Namespaces::asAttributes(const std::set<String>& declared) {
    String declarations;
    for (const String& entry : declared)
        declarations += L" " + entry;
    return declarations;
}

bool Namespaces::isDeclaredAt(const XmlText& text, const String& prefix, int element) {
    const String declaration = L"xmlns:" + prefix + L"=";
    const auto isMeant = [&](const String& other) { return other.startsWith(declaration); };
    const std::set<String> own = of(text, element);
    if (std::any_of(own.begin(), own.end(), isMeant))
        return true;
    // Of those that differ in case the first hides the others.
    const std::set<String> nearest = of(text, text.declaringAround(element, prefix));
    const auto first = std::find_if(nearest.begin(), nearest.end(), [&](const String& other) {
        return declares({other}, declaration);
    });
    return first != nearest.end() && isMeant(*first);
}

std::set<String> Namespaces::of(const XmlText& text, int element) {
    std::set<String> declared;
    if (!text.onTagStart(element))
        return declared;
    for (int at = text.nextAttribute(element + 1); at >= 0; at = text.nextAttribute(at)) {
        const Text name = text.attributeName(at);
        if (!name.starts_with(L"xmlns:"))
            continue;
        String address(text.attributeValue(at));
        address.replaceAll(L"\"", L"&quot;"); // it may have stood between single quotes
        declared.insert(String(name) + L"=\"" + address + L"\"");
    }
    return declared;
}

std::set<String> Namespaces::around(const XmlText& text, int position) {
    std::set<String> declared;
    for (int element = text.elementAround(position); element >= 0;
         element = text.elementAround(element)) {
        for (const String& declaration : of(text, element))
            if (!declares(declared, declaration))
                declared.insert(declaration);
    }
    return declared;
}
