#include "NestingCheck.h"

#include <forme/foundation/Exception.h>
#include <forme/foundation/String.h>

#include <algorithm>
#include <array>

namespace {

using Name = std::string_view;

char small(char unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + ('a' - 'A')) : unit;
}

bool isSame(Name a, Name b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char one, char other) { return small(one) == small(other); });
}

template <std::size_t Count>
bool contains(const std::array<Name, Count>& names, Name name) {
    return std::any_of(names.begin(), names.end(), [&](Name one) { return isSame(one, name); });
}

constexpr std::array<Name, 17> empty{"area",  "base",  "br",    "col",    "embed",   "hr",
                                     "img",   "input", "link",  "meta",   "param",   "source",
                                     "track", "wbr",   "frame", "keygen", "basefont"};

/// What ends where the next of its kind begins, if nothing else is open in it.
constexpr std::array<Name, 8> lines{"p", "li", "dt", "dd", "option", "optgroup", "rt", "rp"};

constexpr std::array<Name, 8> tableParts{"tr",    "td",    "th",      "thead",
                                         "tbody", "tfoot", "caption", "colgroup"};

/// In which text that looks like tags is none, but in what is not HTML or takes no such elements.
constexpr std::array<Name, 2> raw{"script", "style"};
constexpr std::array<Name, 4> withoutRaw{"svg", "math", "select", "frameset"};

bool isBlank(char unit) {
    return unit == ' ' || unit == '\t' || unit == '\n' || unit == '\r' || unit == '\f';
}

bool isLetter(char unit) {
    return small(unit) >= 'a' && small(unit) <= 'z';
}

} // namespace

void NestingCheck::run() {
    for (at_ = html_.find('<'); !isAtEnd(); at_ = html_.find('<', at_))
        readMarkup();
}

void NestingCheck::readMarkup() {
    if (html_.substr(at_).starts_with("<!--"))
        passComment();
    else if (isLetter(unit(1)) || (unit(1) == '/' && isLetter(unit(2))))
        passTag();
    else if (unit(1) == '!' || unit(1) == '?' || unit(1) == '/')
        at_ = std::min(html_.find('>', at_), html_.size());
    else
        ++at_;
}

/// "<!-->" and "<!--->" are whole comments, and "--!>" ends one too.
void NestingCheck::passComment() {
    at_ += 4;
    if (unit() == '>' || (unit() == '-' && unit(1) == '>'))
        return;
    const std::size_t end = std::min(html_.find("-->", at_), html_.find("--!>", at_));
    at_ = std::min(end, html_.size());
}

void NestingCheck::passTag() {
    const std::size_t start = at_;
    const bool isClosing = unit(1) == '/';
    at_ += isClosing ? 2 : 1;
    const Name name = readName();
    passAttributes();
    // What programs write of their own, as <o:p/>, ends at once.
    const bool endsAtOnce = at_ > 0 && html_[at_ - 1] == '/' && name.find(':') != Name::npos;
    if (isClosing)
        return end(name);
    if (contains(empty, name) || endsAtOnce)
        return;
    begin(name);
    if (open_.size() > deepest)
        fail(start, L"elements are nested too deep");
    if (contains(raw, name) &&
        std::none_of(withoutRaw.begin(), withoutRaw.end(), [&](Name one) { return isOpen(one); }))
        passRawText(name);
}

Name NestingCheck::readName() {
    const std::size_t start = at_;
    while (!isAtEnd() && !isBlank(unit()) && unit() != '/' && unit() != '>')
        ++at_;
    return html_.substr(start, at_ - start);
}

/// Up to the ">" that ends the tag.
void NestingCheck::passAttributes() {
    const std::size_t start = at_;
    std::size_t count = 0;
    while (!isAtEnd() && unit() != '>') {
        if (isBlank(unit()) || unit() == '/') {
            ++at_;
            continue;
        }
        if (++count > mostAttributes)
            fail(start, L"a tag has too many attributes");
        ++at_; // a name, which may begin with "="
        while (!isAtEnd() && !isBlank(unit()) && unit() != '/' && unit() != '>' && unit() != '=')
            ++at_;
        std::size_t equals = at_;
        while (equals < html_.size() && isBlank(html_[equals]))
            ++equals;
        if (equals < html_.size() && html_[equals] == '=') {
            at_ = equals + 1;
            passValue();
        }
    }
}

void NestingCheck::passValue() {
    while (isBlank(unit()))
        ++at_;
    if (unit() == '"' || unit() == '\'') {
        const std::size_t closing = html_.find(unit(), at_ + 1);
        at_ = closing == Name::npos ? html_.size() : closing + 1;
        return;
    }
    while (!isAtEnd() && !isBlank(unit()) && unit() != '>')
        ++at_;
}

void NestingCheck::begin(Name name) {
    endImplied(name);
    open_.push_back(name);
}

void NestingCheck::endImplied(Name name) {
    if (contains(lines, name)) {
        while (!open_.empty() && (isSame(open_.back(), name) || isSame(open_.back(), "p")))
            open_.pop_back();
    } else if (contains(tableParts, name) && isOpen("table")) {
        while (!isSame(open_.back(), "table"))
            open_.pop_back();
    }
}

void NestingCheck::end(Name name) {
    const auto found =
        std::find_if(open_.rbegin(), open_.rend(), [&](Name one) { return isSame(one, name); });
    if (found != open_.rend())
        open_.erase(found.base() - 1, open_.end());
}

void NestingCheck::passRawText(Name name) {
    for (; !isAtEnd(); ++at_) {
        at_ = std::min(html_.find("</", at_), html_.size());
        if (isSame(html_.substr(std::min(at_ + 2, html_.size()), name.size()), name))
            return;
    }
}

bool NestingCheck::isOpen(Name name) const {
    return std::any_of(open_.begin(), open_.end(), [&](Name one) { return isSame(one, name); });
}

void NestingCheck::fail(std::size_t offset, const wchar_t* reason) const {
    throw Core::Exception(L"HTML, byte " + Core::String(std::to_wstring(offset)) + L": " + reason);
}
