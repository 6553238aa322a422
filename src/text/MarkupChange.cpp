#include "text/MarkupChange.h"

#include "foundation/xml/WellFormed.h"
#include "text/MarkupMatcher.h"
#include "text/XmlCharacters.h"
#include "text/XmlValidator.h"

#include <algorithm>
#include <set>
#include <string>

using Core::String;
using XmlScan::length;
using XmlScan::Text;

namespace {

/// Whether a document with this prolog may use the entities and names that a matcher has met.
bool knowsNames(Text prolog, const MarkupMatcher& met) {
    if (met.entitiesInText().empty() && met.entitiesInValues().empty() &&
        met.foreignNames().empty())
        return true;
    std::wstring document(prolog);
    const auto refer = [&document](const std::set<Text>& entities) {
        for (const Text entity : entities)
            document += L"&" + std::wstring(entity) + L";";
    };
    document += L"<r k=\"";
    refer(met.entitiesInValues());
    document += L"\">";
    refer(met.entitiesInText());
    for (const Text name : met.foreignNames())
        document += L"<" + std::wstring(name) + L"/>";
    return Xml::isWellFormed(String(document += L"</r>"));
}

/// Whether a whole text is well formed: its root, and what stands around that.
bool isWhole(Text text) {
    const int root = RootEdges::of(text).root;
    if (root < 0)
        return false;
    const Text prolog = XmlScan::slice(text, 0, root);
    MarkupMatcher element(XmlScan::slice(text, root, length(text)));
    if (!element.readElement() || !knowsNames(prolog, element))
        return false;
    const Text epilog = XmlScan::slice(text, root + element.position(), length(text));
    return Xml::isWellFormed(String(std::wstring(prolog) + L"<r/>" + std::wstring(epilog)));
}

/// Whether it is text that means the same in every document.
bool isPlainText(Text part) {
    MarkupMatcher matcher(part);
    return part.find(L'<') == Text::npos && matcher.readContent() &&
           matcher.entitiesInText().empty();
}

/// The names of what is open behind a part, of which some elements around it are told.
std::vector<Text> openBehind(const MarkupMatcher& part, const std::vector<Text>& around) {
    std::vector<Text> names(around.rbegin(),
                            around.rend() - static_cast<std::ptrdiff_t>(part.closed().size()));
    names.insert(names.end(), part.open().begin(), part.open().end());
    return names;
}

bool joinsNext(wchar_t unit) {
    return unit == L']' || (unit >= 0xD800 && unit < 0xDC00);
}

bool joinsPrevious(wchar_t unit) {
    return unit == L']' || unit == L'>' || (unit >= 0xDC00 && unit < 0xE000);
}

} // namespace

MarkupChange::MarkupChange(const XmlText& text, const TextMark& before)
    : text_(text), mark_(before), after_(text.view(0, text.length())), edges_(text.rootEdges()) {
    findDifference();
    isPlain_ = onlyTextDiffers();
    isAroundRoot_ = !isInRoot();
    if (isPlain_ || isAroundRoot_)
        return;
    widenToWholeUnits();
}

void MarkupChange::findDifference() {
    const TextChange change = text_.changeSince(mark_);
    oldPart_ = std::wstring(XmlText::oldText(mark_, change));
    start_ = change.start;
    behind_ = length(after_) - change.start - change.inserted;
    const Text old = oldPart_;
    const Text part = newPart();
    const auto start = std::mismatch(old.begin(), old.end(), part.begin(), part.end());
    const auto end = std::mismatch(old.rbegin(), std::make_reverse_iterator(start.first),
                                   part.rbegin(), std::make_reverse_iterator(start.second));
    const auto same = static_cast<std::size_t>(start.first - old.begin());
    const auto sameBehind = static_cast<std::size_t>(end.first - old.rbegin());
    start_ += static_cast<int>(same);
    behind_ += static_cast<int>(sameBehind);
    oldPart_ = oldPart_.substr(same, oldPart_.size() - same - sameBehind);
}

bool MarkupChange::isInRoot() const {
    return edges_.content <= start_ && 0 <= edges_.behindContent && edges_.behindContent <= behind_;
}

/// Whether nothing differs but text, from one whole unit to another, so that the markup around it
/// stays what it is. So it is with nearly every key.
bool MarkupChange::onlyTextDiffers() const {
    if (oldPart_.empty() && newPart().empty())
        return true;
    if (!isPlainText(oldPart_) || !isPlainText(newPart()) || !isInRoot())
        return false;
    const wchar_t previous = XmlScan::unitAt(after_, start_ - 1);
    const wchar_t next = XmlScan::unitAt(after_, length(after_) - behind_);
    return !joinsNext(previous) && !joinsPrevious(next) && oldUnitStart() == start_;
}

/// Where the unit began that held the start of the difference. Whether that is markup, the text in
/// front tells, which is the same as before.
int MarkupChange::oldUnitStart() const {
    const int markup = text_.markupAround(start_);
    if (markup >= 0)
        return markup;
    const int nameEnd = text_.nameEndBefore(start_ - 1);
    const bool mayBeEntity = XmlScan::unitAt(after_, nameEnd) == L'&';
    const int from = mayBeEntity ? nameEnd : start_ - 1;
    int to = length(after_) - behind_;
    while (mayBeEntity && to < length(after_) - 1 &&
           !XmlScan::endsEntityName(XmlScan::unitAt(after_, to)))
        ++to;
    std::wstring word(XmlScan::slice(after_, from, start_));
    word += oldPart_;
    word += XmlScan::slice(after_, length(after_) - behind_, to + 1);
    return from + XmlScan::unitStartInText(word, start_ - from);
}

Text MarkupChange::newPart() const {
    return XmlScan::slice(after_, start_, length(after_) - behind_);
}
/// What the ends of the difference cut through belongs to it whole, in both texts: a unit, a
/// surrogate pair, and what could become the end of a CDATA section, which no text may hold.
void MarkupChange::widenToWholeUnits() {
    int start = oldUnitStart();
    while (start > edges_.content && joinsNext(XmlScan::unitAt(after_, start - 1)))
        --start;
    startAt(start);
    int rest = std::min(behind_, 256);
    while (!widenInto(rest))
        rest = rest > behind_ / 4 ? behind_ : rest * 4;
}

void MarkupChange::startAt(int position) {
    oldPart_.insert(0, std::wstring(XmlScan::slice(after_, position, start_)));
    start_ = position;
}

/// Widens the end into so many units of what is behind; false where they do not tell all.
bool MarkupChange::widenInto(int rest) {
    const int behind = behind_ - rest;
    const std::wstring before =
        oldPart_ + std::wstring(after_.substr(after_.size() - static_cast<std::size_t>(behind_),
                                              static_cast<std::size_t>(rest)));
    const Text after = XmlScan::slice(after_, start_, length(after_) - behind);
    const auto pass = [&](Text text, int& end) {
        const bool mayBeCut = behind > 0 && XmlScan::unitAt(text, end) == L'&' &&
                              XmlScan::unitEnd(text, end) == end + 1;
        end = mayBeCut ? length(text) : XmlScan::behindUnit(text, end);
    };
    int oldEnd = 0;
    int newEnd = 0;
    while (oldEnd < length(oldPart_))
        pass(before, oldEnd);
    const int wholeUnits = oldEnd;
    // Units are passed in the text that is behind, until both are at the same place or at the end.
    for (int same = rest;;) {
        const int oldRest = length(before) - oldEnd;
        const int newRest = length(after) - newEnd;
        if (oldRest > std::min(newRest, same))
            pass(before, oldEnd);
        else if (newRest > std::min(oldRest, same))
            pass(after, newEnd);
        else if (oldRest > 0 && joinsPrevious(XmlScan::unitAt(before, oldEnd)))
            same = oldRest - 1;
        else
            break;
    }
    if (behind > 0 && oldEnd == length(before))
        return false;
    wasContent_ = MarkupMatcher(XmlScan::slice(before, 0, wholeUnits)).readContent();
    behind_ = behind + length(before) - oldEnd;
    oldPart_ = before.substr(0, static_cast<std::size_t>(oldEnd));
    return true;
}

/// Whether the part is well formed and was, and leaves the same elements open, by the names of
/// those that begin before it. So it is with nearly every command, and no more than the part is
/// read.
bool MarkupChange::fitsBetweenTags() const {
    MarkupMatcher before(oldPart_);
    MarkupMatcher after(newPart());
    if (!before.readContent() || !after.readContent())
        return false;
    const std::vector<Text> around =
        namesAround(std::max(before.closed().size(), after.closed().size()));
    const auto closes = [&around](const MarkupMatcher& part) {
        return part.closed().size() <= around.size() &&
               std::equal(part.closed().begin(), part.closed().end(), around.begin());
    };
    return closes(before) && closes(after) &&
           openBehind(before, around) == openBehind(after, around) && knowsNames(prolog(), after);
}

/// Of at most so many elements around the part, the innermost first; the root is not told.
std::vector<Text> MarkupChange::namesAround(std::size_t most) const {
    std::vector<Text> names;
    for (int element = start_; names.size() < most;) {
        element = text_.elementAround(element);
        if (element < edges_.content)
            break;
        names.push_back(text_.tagName(element));
    }
    return names;
}

/// The elements that the part closes belong to it from their start tags on, so that their names can
/// be compared.
void MarkupChange::widenToStartTags() {
    MarkupMatcher before(oldPart_);
    MarkupMatcher after(newPart());
    before.readContent();
    after.readContent();
    int element = start_;
    for (std::size_t count = std::max(before.closed().size(), after.closed().size()); count > 0;
         --count)
        element = element < edges_.content ? edges_.root : text_.elementAround(element);
    startAt(element < edges_.content ? edges_.root : element);
}

/// Whether the part is well formed, if it was, and leaves the same elements open. One that has come
/// to reach out of the root cannot be.
bool MarkupChange::partFits() const {
    if (!isInRoot())
        return !wasContent_;
    MarkupMatcher before(oldPart_);
    MarkupMatcher after(newPart());
    if (!before.readContent() || !before.closed().empty())
        return true;
    if (!after.readContent() || !after.closed().empty() || after.open() != before.open())
        return false;
    return knowsNames(prolog(), after) || !knowsNames(prolog(), before);
}

/// The same, if the part does not tell it, by reading on from the start tags of what it closes.
bool MarkupChange::fits() const {
    if (fitsBetweenTags())
        return true;
    MarkupChange wide = *this;
    wide.widenToStartTags();
    return wide.partFits();
}

/// Of what is regular a part tells for the whole. A document type that declares something does not
/// pass for tags; what is put around such a root is only parsed.
bool MarkupChange::keepsLexicallyValid() const {
    const bool isLocal = mark_.text().isRegularAsTags() && !isAroundRoot_;
    if (XmlValidator::isRegular(isLocal ? newPart() : after_))
        return true;
    const Core::String now(after_);
    return XmlValidator(now).validate() || !XmlValidator(oldContent()).validate();
}

bool MarkupChange::keepsToCharacters() const {
    return XmlCharacters::countForbidden(newPart()) <= XmlCharacters::countForbidden(oldPart_);
}

/// That a text was well formed is found out once.
bool MarkupChange::wasWhole() const {
    if (!mark_.isKnownWhole() && isWhole(Text(mark_.text())))
        mark_.noteWhole();
    return mark_.isKnownWhole();
}

bool MarkupChange::fitsAroundRoot() const {
    if (!keepsLexicallyValid())
        return false;
    if (isWhole(after_))
        text_.noteWhole();
    return text_.isKnownWhole() || !wasWhole();
}

/// Where the part does not fit it may still mend a text that was not well formed.
bool MarkupChange::fitsInRoot() const {
    if (fits())
        return keepsLexicallyValid();
    return !wasWhole() && keepsLexicallyValid() && isWhole(after_);
}

bool MarkupChange::keepsWellFormed() const {
    const bool keeps =
        isPlain_ || (keepsToCharacters() && (isAroundRoot_ ? fitsAroundRoot() : fitsInRoot()));
    if (keeps && mark_.isKnownWhole())
        text_.noteWhole();
    return keeps;
}
