#include "foundation/String.h"

#include "foundation/UnitSearch.h"

#include <algorithm>
#include <clocale>
#include <cwctype>
#include <map>
#include <utility>

namespace Core {

namespace {

constexpr String::Size largestOffset = 0x7FFFFFFF;

bool isNegative(String::Size offset) {
    return offset > largestOffset;
}

/// The text of a `const wchar_t*` argument as code units, split into surrogate pairs where needed.
class SplitUnits {
public:
    explicit SplitUnits(const wchar_t* text)
        : SplitUnits(text ? std::wstring_view(text) : std::wstring_view()) {}

    explicit SplitUnits(std::wstring_view text) : view_(text) {
        if (std::any_of(text.begin(), text.end(), [](wchar_t ch) { return ch > 0xFFFF; })) {
            for (wchar_t ch : text)
                appendSplit(ch);
            view_ = split_;
        }
    }

    std::wstring_view view() const { return view_; }

private:
    void appendSplit(wchar_t ch) {
        if (ch <= 0xFFFF) {
            split_ += ch;
            return;
        }
        const auto rest = static_cast<unsigned>(ch) - 0x10000U;
        split_ += static_cast<wchar_t>(0xD800U + (rest >> 10U));
        split_ += static_cast<wchar_t>(0xDC00U + (rest & 0x3FFU));
    }

    std::wstring split_;
    std::wstring_view view_;
};

/// The character type table of every locale that this library reads text in.
locale_t unicodeLocale() {
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

wchar_t lowerCase(wchar_t ch) {
    const wint_t unit = std::char_traits<wchar_t>::to_int_type(ch);
    return static_cast<wchar_t>(unicodeLocale() ? towlower_l(unit, unicodeLocale())
                                                : towlower(unit));
}

wchar_t upperCase(wchar_t ch) {
    const wint_t unit = std::char_traits<wchar_t>::to_int_type(ch);
    return static_cast<wchar_t>(unicodeLocale() ? towupper_l(unit, unicodeLocale())
                                                : towupper(unit));
}

String mapped(std::wstring_view text, wchar_t (*map)(wchar_t)) {
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), map);
    return String(std::move(result));
}

std::map<int, String>& resourceTexts() {
    static std::map<int, String> texts{
        {19600, L"This page type, {0}, is not used by any page sequence."},
        {19601, L"You can edit its headers, footers and side regions here."},
        {19602, L"New region"}};
    return texts;
}

} // namespace

String::String(const wchar_t* text)
    : String(text ? std::wstring_view(text) : std::wstring_view()) {}

String::String(const wchar_t* text, Size count)
    : String(isNegative(count) ? std::wstring_view() : std::wstring_view(text, count)) {}

String::String(std::wstring_view text) {
    splice(0, 0, SplitUnits(text).view());
}

String::String(std::wstring&& units)
    : units_(units.empty() ? nullptr : std::make_shared<Units>(std::move(units))) {}

String::String(std::shared_ptr<const StoredText> text)
    : units_(text->length() == 0 ? nullptr : std::make_shared<Units>(std::move(text))) {}

String::String(const char* text) {
    if (!text || !*text)
        return;
    std::wstring units;
    for (; *text; ++text)
        units += static_cast<wchar_t>(static_cast<unsigned char>(*text));
    units_ = std::make_shared<Units>(std::move(units));
}

String::String(wchar_t ch, Size count)
    : String(std::wstring_view(std::wstring(isNegative(count) ? 0 : count, ch))) {}

String::String(const String& other)
    : units_(other.lent_ ? std::make_shared<Units>(other.units_->inOnePiece()) : other.units_) {}

String::String(String&& other) noexcept
    : units_(std::move(other.units_)), lent_(std::exchange(other.lent_, false)) {}

String& String::operator=(String&& other) noexcept {
    units_ = std::move(other.units_);
    lent_ = std::exchange(other.lent_, false);
    return *this;
}

String& String::operator=(const String& other) {
    if (this != &other)
        *this = String(other);
    return *this;
}

wchar_t& String::operator[](int offset) {
    makeUnique();
    lent_ = true;
    return units_->own()[static_cast<std::size_t>(offset)];
}

void String::makeUnique() {
    if (!isOwn())
        units_ = std::make_shared<Units>(std::wstring(view()));
}

void String::Units::join() const {
    std::call_once(isJoined_, [this] { units_ = stored_->slice(0, stored_->length()); });
}

/// The one way in which a text changes its length.
void String::splice(std::size_t start, std::size_t count, std::wstring_view with) {
    if (count == 0 && with.empty())
        return;
    lent_ = false;
    if (isOwn()) {
        units_->own().replace(start, count, with);
        return;
    }
    const std::wstring_view old = view();
    std::wstring changed;
    changed.reserve(old.size() - count + with.size());
    changed.append(old.substr(0, start)).append(with).append(old.substr(start + count));
    units_ = std::make_shared<Units>(std::move(changed));
}

String& String::operator+=(wchar_t ch) {
    splice(view().size(), 0, SplitUnits(std::wstring_view(&ch, 1)).view());
    return *this;
}

String& String::append(const wchar_t* text) {
    splice(view().size(), 0, SplitUnits(text).view());
    return *this;
}

String& String::append(const String& text) {
    splice(view().size(), 0, text.view());
    return *this;
}

String String::subString(Size start, Size end) const {
    const auto length = static_cast<Size>(this->length());
    const Size first = isNegative(start) ? 0 : start;
    if (length == 0 || isNegative(end) || first >= length || end < first)
        return {};
    if (first == 0 && end >= length - 1)
        return *this;
    const Size behind = std::min(end + 1, length);
    if (const StoredText* const text = stored())
        return String(text->slice(static_cast<int>(first), static_cast<int>(behind)));
    String slice;
    slice.splice(0, 0, view().substr(first, behind - first));
    return slice;
}

int String::findText(std::wstring_view what, Size start) const {
    const StoredText* const text = stored();
    return text && !what.empty() ? text->find(what, start)
                                 : UnitSearch::forward(view(), what, start);
}

int String::rFindText(std::wstring_view what, Size start) const {
    if (isNegative(start))
        return -1;
    const StoredText* const text = stored();
    return text && !what.empty() ? text->rFind(what, start)
                                 : UnitSearch::backward(view(), what, start);
}

int String::find(wchar_t ch, Size start) const noexcept {
    const StoredText* const text = stored();
    return text ? text->find({&ch, 1}, start) : UnitSearch::forward(view(), ch, start);
}

int String::find(const wchar_t* what, Size start) const {
    return findText(SplitUnits(what).view(), start);
}

int String::find(const String& what, Size start) const {
    return findText(what.view(), start);
}

int String::rFind(wchar_t ch) const noexcept {
    return rFind(ch, largestOffset);
}

int String::rFind(wchar_t ch, Size start) const noexcept {
    if (isNegative(start))
        return -1;
    const StoredText* const text = stored();
    return text ? text->rFind({&ch, 1}, start) : UnitSearch::backward(view(), ch, start);
}

int String::rFind(const wchar_t* what, Size start) const {
    return rFindText(SplitUnits(what).view(), start);
}

int String::rFind(const String& what, Size start) const {
    return rFindText(what.view(), start);
}

bool String::startsWith(const String& prefix) const {
    return view().starts_with(prefix.view());
}

bool String::endsIn(const wchar_t* suffix) const {
    return view().ends_with(SplitUnits(suffix).view());
}

int String::compare(const wchar_t* other) const {
    return view().compare(SplitUnits(other).view());
}

int String::compareNoCase(const wchar_t* other) const {
    return toLower().view().compare(mapped(SplitUnits(other).view(), lowerCase).view());
}

String String::substringBefore(const String& mark) const {
    const int at = find(mark, 0);
    return at < 1 ? String() : subString(0, static_cast<Size>(at - 1));
}

String String::substringAfter(const String& mark) const {
    const int at = find(mark, 0);
    if (at < 0)
        return *this;
    return String(view().substr(static_cast<std::size_t>(at) + mark.view().size()));
}

std::vector<String, STLAllocator<String>> String::split(wchar_t separator) const {
    std::vector<String, STLAllocator<String>> pieces;
    std::wstring_view rest = view();
    for (;;) {
        const std::size_t at = rest.find(separator);
        pieces.emplace_back(rest.substr(0, at));
        if (at == std::wstring_view::npos)
            return pieces;
        rest.remove_prefix(at + 1);
    }
}

void String::insert(Size position, const wchar_t* text) {
    splice(std::min<std::size_t>(isNegative(position) ? 0 : position, view().size()), 0,
           SplitUnits(text).view());
}

void String::insert(Size position, const String& text) {
    replace(position, 0, text);
}

void String::erase(Size start, Size count) {
    replace(start, count, String());
}

void String::replace(Size start, Size count, const String& with) {
    const std::size_t size = view().size();
    const std::size_t first = std::min<std::size_t>(isNegative(start) ? 0 : start, size);
    const std::size_t removed = isNegative(count) ? 0 : std::min<std::size_t>(count, size - first);
    splice(first, removed, with.view());
}

int String::replaceAll(const wchar_t* what, const wchar_t* with) {
    const SplitUnits wanted(what);
    const SplitUnits substitute(with);
    const std::wstring_view all = view();
    if (wanted.view().empty())
        return 0;
    std::wstring result;
    int count = 0;
    std::size_t done = 0;
    for (std::size_t at = all.find(wanted.view()); at != std::wstring_view::npos;
         at = all.find(wanted.view(), done)) {
        result.append(all.substr(done, at - done)).append(substitute.view());
        done = at + wanted.view().size();
        ++count;
    }
    if (count > 0)
        *this = String(std::move(result.append(all.substr(done))));
    return count;
}

String& String::trim() {
    const std::wstring_view all = view();
    const auto first = std::find_if_not(all.begin(), all.end(), isSpace);
    const auto last = std::find_if_not(all.rbegin(), std::make_reverse_iterator(first), isSpace);
    const auto start = static_cast<std::size_t>(first - all.begin());
    const auto behind = static_cast<std::size_t>(last.base() - all.begin());
    splice(behind, all.size() - behind, {});
    splice(0, start, {});
    return *this;
}

String String::toLower() const {
    return mapped(view(), lowerCase);
}

String String::toUpper() const {
    return mapped(view(), upperCase);
}

void String::reverse(int first, int last) {
    const int begin = std::max(first, 0);
    const int end = std::min(last, length() - 1);
    if (begin >= end)
        return;
    makeUnique();
    std::wstring& units = units_->own();
    std::reverse(units.begin() + begin, units.begin() + end + 1);
}

String String::formatS(int value) {
    return String(std::to_wstring(value));
}

const wchar_t* String::loadString(int id) {
    const std::map<int, String>& texts = resourceTexts();
    const auto text = texts.find(id);
    return text == texts.end() ? L"" : text->second.c_str();
}

void String::setResourceText(int id, const String& text) {
    resourceTexts()[id] = text;
}

String operator+(const String& a, const String& b) {
    String sum(a);
    sum.append(b);
    return sum;
}

String operator+(const String& a, const wchar_t* b) {
    String sum(a);
    sum.append(b);
    return sum;
}

String operator+(const wchar_t* a, const String& b) {
    String sum(a);
    sum.append(b);
    return sum;
}

} // namespace Core
