#include "document/MarkupChange.h"

#include "foundation/xml/WellFormed.h"
#include "text/XmlCharacters.h"
#include "text/XmlValidator.h"

#include <algorithm>
#include <set>
#include <string>

using Core::String;
using XmlScan::Text;

namespace {

int length(Text text) {
    return static_cast<int>(text.size());
}

/// The offset behind the unit at a valid position; the length of the text where it is not complete.
int behindUnit(Text text, int position) {
    const int end = XmlScan::unitEnd(text, position);
    return end < 0 ? length(text) : end;
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
    while (at >= 0 && (XmlScan::ignoredAt(text, at) || XmlScan::standsAt(text, L"<!", at)))
        at = XmlScan::find(text, L'<', behindUnit(text, at));
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

/// Whether a document with this prolog may use the entities and names that a matcher has met.
bool knowsNames(Text prolog, const MarkupMatcher& met) {
    if (met.entitiesInText().empty() && met.entitiesInValues().empty() &&
        met.foreignNames().empty())
        return true;
    std::wstring document(prolog);
    const auto refer = [&document](const std::set<Text>& entities) {
        for (const Text entity : entities)
            document.append(L"&").append(entity).append(L";");
    };
    document += L"<r k=\"";
    refer(met.entitiesInValues());
    document += L"\">";
    refer(met.entitiesInText());
    for (const Text name : met.foreignNames())
        document.append(L"<").append(name).append(L"/>");
    return Xml::isWellFormed(String(document += L"</r>"));
}

/// Whether a whole text is well formed: its root, and what stands around that.
bool isWhole(Text text) {
    const int root = rootStart(text);
    if (root < 0)
        return false;
    const Text prolog = XmlScan::slice(text, 0, root);
    MarkupMatcher element(XmlScan::slice(text, root, length(text)));
    if (!element.readElement() || !knowsNames(prolog, element))
        return false;
    const Text epilog = XmlScan::slice(text, root + element.position(), length(text));
    return Xml::isWellFormed(String(std::wstring(prolog).append(L"<r/>").append(epilog)));
}

/// Whether it is text that means the same in every document.
bool isPlainText(Text part) {
    MarkupMatcher matcher(part);
    return part.find(L'<') == Text::npos && matcher.readContent() &&
           matcher.entitiesInText().empty();
}

bool joinsNext(wchar_t unit) {
    return unit == L']' || (unit >= 0xD800 && unit < 0xDC00);
}

bool joinsPrevious(wchar_t unit) {
    return unit == L']' || unit == L'>' || (unit >= 0xDC00 && unit < 0xE000);
}

} // namespace

MarkupChange::MarkupChange(const String& before, const String& after)
    : oldText_(before), newText_(after), before_(before.view()), after_(after.view()),
      root_(rootStart(before_)),
      content_(root_ < 0 ? length(before_) : behindUnit(before_, root_)) {
    findDifference();
    isPlain_ = onlyTextDiffers();
    isAroundRoot_ = !isInRoot();
    if (isPlain_ || isAroundRoot_)
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

/// Whether nothing differs but text, from one whole unit to another, so that the markup around it
/// stays what it is. So it is with nearly every key.
bool MarkupChange::onlyTextDiffers() const {
    if (before_ == after_)
        return true;
    if (!isPlainText(part(before_)) || !isPlainText(part(after_)) || !isInRoot())
        return false;
    const wchar_t previous = XmlScan::unitAt(before_, start_ - 1);
    const wchar_t next = XmlScan::unitAt(before_, length(before_) - behind_);
    return !joinsNext(previous) && !joinsPrevious(next) && unitStart(start_) == start_;
}

/// Where the unit of the root's content that holds the position begins.
int MarkupChange::unitStart(int position) const {
    const Text content = before_.substr(static_cast<std::size_t>(content_));
    return content_ + XmlScan::unitStart(content, position - content_);
}

Text MarkupChange::part(Text text) const {
    return XmlScan::slice(text, start_, length(text) - behind_);
}

/// What the ends of the difference cut through belongs to it whole, in both texts: a unit, a
/// surrogate pair, and what could become the end of a CDATA section, which no text may hold.
void MarkupChange::widenToWholeUnits() {
    start_ = unitStart(start_);
    while (start_ > content_ && joinsNext(XmlScan::unitAt(before_, start_ - 1)))
        --start_;
    int oldEnd = start_;
    int newEnd = start_;
    while (oldEnd < length(before_) - behind_)
        oldEnd = behindUnit(before_, oldEnd);
    oldPart_ = XmlScan::slice(before_, start_, oldEnd);
    // Units are passed in the text that is behind, until both are at the same place or at the end.
    const auto rest = [](Text text, int end) { return length(text) - end; };
    const auto pass = [](Text text, int& end) { end = behindUnit(text, end); };
    for (;;) {
        const int oldRest = rest(before_, oldEnd);
        const int newRest = rest(after_, newEnd);
        if (oldRest > std::min(newRest, behind_))
            pass(before_, oldEnd);
        else if (newRest > std::min(oldRest, behind_))
            pass(after_, newEnd);
        else if (oldRest > 0 && joinsPrevious(XmlScan::unitAt(before_, oldEnd)))
            behind_ = oldRest - 1;
        else
            break;
    }
    behind_ = rest(before_, oldEnd);
}

/// The elements that the part closes belong to it from their start tags on, so that their names can
/// be compared.
void MarkupChange::widenToStartTags() {
    MarkupMatcher before(part(before_));
    MarkupMatcher after(part(after_));
    before.readContent();
    after.readContent();
    const auto count = static_cast<std::size_t>(std::max(before.unmatched(), after.unmatched()));
    if (count == 0)
        return;
    const std::vector<int> open = openTagsBefore(start_);
    start_ = count > open.size() ? root_ : open[open.size() - count];
}

/// Where the elements begin that are open in the root at the position, the outermost first.
std::vector<int> MarkupChange::openTagsBefore(int position) const {
    std::vector<int> open;
    for (int tag = XmlScan::find(before_, L'<', content_); tag >= 0 && tag < position;
         tag = XmlScan::find(before_, L'<', behindUnit(before_, tag))) {
        if (XmlScan::openingAt(before_, tag))
            open.push_back(tag);
        else if (XmlScan::closingAt(before_, tag) && !open.empty())
            open.pop_back();
    }
    return open;
}

/// Whether the part is well formed, if it was, and leaves the same elements open. One that has come
/// to reach out of the root cannot be.
bool MarkupChange::partFits() const {
    if (!isInRoot())
        return !MarkupMatcher(oldPart_).readContent();
    MarkupMatcher before(part(before_));
    MarkupMatcher after(part(after_));
    if (!before.readContent() || before.unmatched() > 0)
        return true;
    if (!after.readContent() || after.unmatched() > 0 || after.open() != before.open())
        return false;
    const Text prolog = XmlScan::slice(before_, 0, root_);
    return knowsNames(prolog, after) || !knowsNames(prolog, before);
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
    if (isPlain_)
        return true;
    if (!keepsToCharacters() || !keepsLexicallyValid())
        return false;
    if (isAroundRoot_)
        return isWhole(after_) || !isWhole(before_);
    return partFits() || isWhole(after_);
}
