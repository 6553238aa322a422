#include "document/MarkupChange.h"

#include "document/XmlValidator.h"
#include "foundation/DomParser.h"
#include "foundation/Encoder.h"
#include "foundation/Exception.h"
#include "text/XmlCharacters.h"

#include <algorithm>
#include <vector>

using Core::String;
using XmlScan::Text;

namespace {

int length(Text text) {
    return static_cast<int>(text.size());
}

/// The offset behind the tag, section, entity or character at a valid position; the length of the
/// text where it is not complete.
int behindUnit(Text text, int position) {
    const auto behind = [&](Text start, Text end) {
        const int found = XmlScan::find(text, end, position + length(start));
        return found < 0 ? length(text) : found + length(end);
    };
    if (XmlScan::commentAt(text, position))
        return behind(XmlScan::commentStart, XmlScan::commentEnd);
    if (XmlScan::cdataAt(text, position))
        return behind(XmlScan::cdataStart, XmlScan::cdataEnd);
    if (XmlScan::instructionAt(text, position))
        return behind(XmlScan::instructionStart, XmlScan::instructionEnd);
    if (XmlScan::unitAt(text, position) == L'&')
        return behind(L"&", L";");
    if (!XmlScan::onTagStart(text, position))
        return position + 1;
    const int end = XmlScan::tagEnd(text, position);
    return end < 0 ? length(text) : end + 1;
}

/// The offset behind a document type, with what it declares between brackets.
int behindDocumentType(Text text, int position) {
    bool inBrackets = false;
    for (int at = position + 1; XmlScan::isValid(text, at);) {
        const wchar_t unit = XmlScan::unitAt(text, at);
        if (unit == L'>' && !inBrackets)
            return at + 1;
        if (unit == L'[' || unit == L']')
            inBrackets = unit == L'[';
        if (XmlScan::ignoredAt(text, at))
            at = behindUnit(text, at);
        else if (unit == L'"' || unit == L'\'')
            at = std::max(XmlScan::find(text, unit, at + 1), at) + 1;
        else
            ++at;
    }
    return length(text);
}

/// How many units two texts have in common at an end, up to `most`; `areSame` compares so many of
/// them at a time, which the library does much faster than one by one.
template <typename AreSame>
std::size_t commonLength(std::size_t most, AreSame areSame) {
    std::size_t common = 0;
    for (std::size_t count = 1024; count > 0; count /= 2)
        while (common + count <= most && areSame(common, count))
            common += count;
    return common;
}

int rootStart(Text text) {
    int at = XmlScan::find(text, L'<', 0);
    while (at >= 0 && (XmlScan::ignoredAt(text, at) || XmlScan::standsAt(text, L"<!", at))) {
        const bool isType = XmlScan::standsAt(text, L"<!DOCTYPE", at);
        const int behind = isType ? behindDocumentType(text, at) : behindUnit(text, at);
        at = XmlScan::find(text, L'<', behind);
    }
    return at;
}

/// Where the closing tag of the root at `root` begins; -1 where anything but white space follows
/// it, which is rare enough not to be looked through.
int rootEnd(Text text, int root) {
    const int closing = XmlScan::rFind(text, L"</", length(text) - 1);
    const Text name = XmlScan::tagName(text, root);
    if (!XmlScan::standsAt(text, L"</" + std::wstring(name), closing))
        return -1;
    const int end = XmlScan::skipSpaces(text, closing + 2 + length(name));
    const bool isTag = XmlScan::standsAt(text, L">", end);
    return isTag && XmlScan::skipSpaces(text, end + 1) == length(text) ? closing : -1;
}

/// The names of the elements that a part of a text leaves open, the outermost first, and the number
/// of its closing tags whose elements begin before it.
struct Balance {
    std::vector<Text> open;
    int unmatched = 0;
};

Balance balanceOf(Text part) {
    Balance balance;
    for (int tag = XmlScan::find(part, L'<', 0); tag >= 0;
         tag = XmlScan::find(part, L'<', behindUnit(part, tag))) {
        if (XmlScan::openingAt(part, tag))
            balance.open.push_back(XmlScan::tagName(part, tag));
        else if (!XmlScan::closingAt(part, tag))
            continue;
        else if (balance.open.empty())
            ++balance.unmatched;
        else
            balance.open.pop_back();
    }
    return balance;
}

bool parses(const String& document) {
    try {
        // The mark says how the text is encoded here, whatever it declares.
        const Core::ByteArray bytes =
            Core::Encoder::convertStringToUTF8(String(L"\xFEFF") + document);
        Xml::DomParser().parseMemory(bytes.ptr(), bytes.size());
        return true;
    } catch (const Core::Exception&) {
        return false;
    }
}

bool isHighSurrogate(wchar_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

MarkupChange::MarkupChange(const String& before, const String& after)
    : oldText_(before), newText_(after), before_(before.view()), after_(after.view()),
      root_(rootStart(before_)),
      content_(root_ < 0 ? length(before_) : behindUnit(before_, root_)) {
    findDifference();
    if (!isInRoot())
        return;
    widenToWholeUnits();
    widenToStartTags();
}

void MarkupChange::findDifference() {
    const std::size_t shorter = std::min(before_.size(), after_.size());
    const std::size_t start = commonLength(shorter, [this](std::size_t at, std::size_t count) {
        return before_.substr(at, count) == after_.substr(at, count);
    });
    const std::size_t behind =
        commonLength(shorter - start, [this](std::size_t at, std::size_t count) {
            return before_.substr(before_.size() - at - count, count) ==
                   after_.substr(after_.size() - at - count, count);
        });
    start_ = static_cast<int>(start);
    behind_ = static_cast<int>(behind);
}

bool MarkupChange::isInRoot() const {
    return content_ <= start_ && length(before_) - behind_ <= rootEnd(before_, root_);
}

/// What the ends of the difference cut through belongs to it whole, in both texts: a unit, a
/// surrogate pair, and what could become the end of a CDATA section, which no text may hold.
void MarkupChange::widenToWholeUnits() {
    start_ = unitStart(start_);
    const auto joinsNext = [](wchar_t unit) { return unit == L']' || isHighSurrogate(unit); };
    while (start_ > content_ && joinsNext(XmlScan::unitAt(before_, start_ - 1)))
        --start_;
    const auto joinsPrevious = [](wchar_t unit) {
        return unit == L']' || unit == L'>' || isLowSurrogate(unit);
    };
    for (int known = -1; known != behind_;) {
        known = behind_;
        for (const Text text : {before_, after_}) {
            int end = start_;
            while (end < length(text) - behind_)
                end = behindUnit(text, end);
            while (end < length(text) && joinsPrevious(XmlScan::unitAt(text, end)))
                ++end;
            behind_ = length(text) - end;
        }
    }
}

/// The elements that the part closes belong to it from their start tags on, so that their names can
/// be compared.
void MarkupChange::widenToStartTags() {
    int count = std::max(balanceOf(part(before_)).unmatched, balanceOf(part(after_)).unmatched);
    for (; count > 0 && isInRoot(); --count)
        start_ = unitStart(XmlScan::currentElement(before_, start_));
}

/// Where the unit of the root's content that holds the position begins.
int MarkupChange::unitStart(int position) const {
    const Text content = before_.substr(static_cast<std::size_t>(content_));
    return content_ + XmlScan::unitStart(content, position - content_);
}

Text MarkupChange::part(Text text) const {
    return XmlScan::slice(text, start_, length(text) - behind_);
}

/// Whether the part of this text is well formed and leaves the same elements open as the part of
/// the text before, of which it must be known. It is read with the entities that the document
/// declares.
bool MarkupChange::fits(Text text) const {
    if (!isInRoot())
        return false;
    const Balance balance = balanceOf(part(before_));
    if (balance.unmatched > 0)
        return false;
    std::wstring document(before_.substr(0, static_cast<std::size_t>(root_)));
    document.append(L"<part>").append(part(text));
    for (auto name = balance.open.rbegin(); name != balance.open.rend(); ++name)
        document.append(L"</").append(*name).append(L">");
    return parses(String(document.append(L"</part>")));
}

/// A document type that declares something does not pass for tags; such a text is only parsed.
bool MarkupChange::keepsLexicallyValid() const {
    return XmlValidator(newText_).validate() || !XmlValidator(oldText_).validate();
}

bool MarkupChange::keepsToCharacters() const {
    return XmlCharacters::countForbidden(part(after_)) <=
           XmlCharacters::countForbidden(part(before_));
}

bool MarkupChange::keepsWellFormed() const {
    if (!keepsToCharacters() || !keepsLexicallyValid())
        return false;
    return fits(after_) || parses(newText_) || (!fits(before_) && !parses(oldText_));
}
