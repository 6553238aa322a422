#include "text/MarkupMatcher.h"

#include "foundation/String.h"

#include <algorithm>
#include <array>

using XmlScan::Text;

namespace {

/// Deeper a document can be read by nobody.
constexpr std::size_t maximumDepth = 4096;

bool isXmlSpace(wchar_t unit) {
    return unit == L' ' || unit == L'\t' || unit == L'\n' || unit == L'\r';
}

bool isHighSurrogate(unsigned long code) {
    return code >= 0xD800 && code < 0xDC00;
}

bool isLowSurrogate(unsigned long code) {
    return code >= 0xDC00 && code < 0xE000;
}

/// No pair of surrogates is a letter that a name may hold.
bool isForeignLetter(wchar_t unit) {
    return unit > 0x7F && (unit < 0xD800 || unit > 0xDFFF);
}

bool isNameStart(wchar_t unit) {
    return (unit >= L'a' && unit <= L'z') || (unit >= L'A' && unit <= L'Z') || unit == L'_' ||
           unit == L':' || isForeignLetter(unit);
}

bool isNameUnit(wchar_t unit) {
    return isNameStart(unit) || Core::String::isDigit(unit) || unit == L'-' || unit == L'.';
}

/// Whether XML can hold the character, of which a surrogate is half at best.
bool isCharacter(unsigned long code) {
    if (code < 0x20)
        return isXmlSpace(static_cast<wchar_t>(code));
    return code < 0xD800 || (code > 0xDFFF && code < 0xFFFE) || (code > 0xFFFF && code < 0x110000);
}

bool isPredefined(Text entity) {
    static constexpr std::array<Text, 5> names{L"amp", L"lt", L"gt", L"quot", L"apos"};
    return std::find(names.begin(), names.end(), entity) != names.end();
}

/// Whether it is "xml" in capital or small letters, which no instruction may be named.
bool isReserved(Text target) {
    const auto isLetter = [&](std::size_t at, wchar_t letter) {
        return (target[at] | 0x20) == letter;
    };
    return target.size() == 3 && isLetter(0, L'x') && isLetter(1, L'm') && isLetter(2, L'l');
}

int digitOf(wchar_t unit) {
    if (Core::String::isDigit(unit))
        return unit - L'0';
    const wchar_t letter = unit | 0x20;
    return letter >= L'a' && letter <= L'f' ? letter - L'a' + 10 : 16;
}

} // namespace

bool MarkupMatcher::readContent() {
    while (!isAtEnd())
        if (!readUnit())
            return false;
    return true;
}

bool MarkupMatcher::readElement() {
    if (!readStartTag())
        return false;
    while (!open_.empty())
        if (!readUnit())
            return false;
    return true;
}

bool MarkupMatcher::readUnit() {
    switch (unit()) {
    case L'<':
        return readTag();
    case L'&':
        return readReference(entitiesInText_);
    case L']':
        return !XmlScan::standsAt(text_, XmlScan::cdataEnd, at_) && readCharacter();
    default:
        return readCharacter();
    }
}

bool MarkupMatcher::readTag() {
    if (XmlScan::closingAt(text_, at_))
        return readClosingTag();
    if (XmlScan::commentAt(text_, at_))
        return readComment();
    if (XmlScan::cdataAt(text_, at_))
        return readSection();
    if (XmlScan::instructionAt(text_, at_))
        return readInstruction();
    return readStartTag();
}

bool MarkupMatcher::readStartTag() {
    if (!read(L"<"))
        return false;
    const Text name = readName();
    if (name.empty())
        return false;
    std::vector<Text> attributes;
    while (readSpaces() && isNameStart(unit()))
        if (!readAttribute(attributes))
            return false;
    std::sort(attributes.begin(), attributes.end());
    if (std::adjacent_find(attributes.begin(), attributes.end()) != attributes.end())
        return false;
    const bool isEmpty = read(L"/");
    if (!isEmpty)
        open_.push_back(name);
    return read(L">") && open_.size() <= maximumDepth;
}

bool MarkupMatcher::readClosingTag() {
    read(L"</");
    const Text name = readName();
    readSpaces();
    if (name.empty() || !read(L">"))
        return false;
    if (open_.empty()) {
        closed_.push_back(name);
        return true;
    }
    const bool matches = open_.back() == name;
    open_.pop_back();
    return matches;
}

bool MarkupMatcher::readAttribute(std::vector<Text>& names) {
    names.push_back(readName());
    readSpaces();
    if (!read(L"="))
        return false;
    readSpaces();
    return readValue();
}

/// White space or the end of the tag follows it.
bool MarkupMatcher::readValue() {
    const wchar_t quote = unit();
    if (quote != L'"' && quote != L'\'')
        return false;
    ++at_;
    while (unit() != quote) {
        const bool isReference = unit() == L'&';
        if (unit() == L'<' || !(isReference ? readReference(entitiesInValues_) : readCharacter()))
            return false;
    }
    ++at_;
    return isXmlSpace(unit()) || unit() == L'/' || unit() == L'>';
}

bool MarkupMatcher::readReference(std::set<Text>& entities) {
    ++at_;
    if (read(L"#"))
        return readNumber();
    const Text name = readName();
    if (!name.empty() && !isPredefined(name))
        entities.insert(name);
    return !name.empty() && read(L";");
}

bool MarkupMatcher::readNumber() {
    const unsigned long base = read(L"x") ? 16 : 10;
    const int start = at_;
    unsigned long code = 0;
    for (; static_cast<unsigned long>(digitOf(unit())) < base && code < 0x110000; ++at_)
        code = code * base + static_cast<unsigned long>(digitOf(unit()));
    return at_ > start && isCharacter(code) && read(L";");
}

/// No two hyphens stand in a comment but at its end.
bool MarkupMatcher::readComment() {
    return read(XmlScan::commentStart) && readCharactersUpTo(L"--") && read(L">");
}

bool MarkupMatcher::readSection() {
    return read(XmlScan::cdataStart) && readCharactersUpTo(XmlScan::cdataEnd);
}

bool MarkupMatcher::readInstruction() {
    read(XmlScan::instructionStart);
    const Text target = readName();
    if (target.empty() || isReserved(target))
        return false;
    return read(XmlScan::instructionEnd) ||
           (isXmlSpace(unit()) && readCharactersUpTo(XmlScan::instructionEnd));
}

bool MarkupMatcher::readCharacter() {
    if (isHighSurrogate(static_cast<unsigned long>(unit()))) {
        ++at_;
        if (!isLowSurrogate(static_cast<unsigned long>(unit())))
            return false;
    } else if (!isCharacter(static_cast<unsigned long>(unit()))) {
        return false;
    }
    ++at_;
    return true;
}

bool MarkupMatcher::readCharactersUpTo(Text delimiter) {
    while (!read(delimiter))
        if (!readCharacter())
            return false;
    return true;
}

bool MarkupMatcher::readSpaces() {
    const int start = at_;
    while (isXmlSpace(unit()))
        ++at_;
    return at_ > start;
}

/// Empty where none begins.
Text MarkupMatcher::readName() {
    const int start = at_;
    if (isNameStart(unit()))
        while (isNameUnit(unit()))
            ++at_;
    const Text name = XmlScan::slice(text_, start, at_);
    if (std::any_of(name.begin(), name.end(), isForeignLetter))
        foreignNames_.insert(name);
    return name;
}

bool MarkupMatcher::read(Text expected) {
    if (!XmlScan::standsAt(text_, expected, at_))
        return false;
    at_ += static_cast<int>(expected.size());
    return true;
}
