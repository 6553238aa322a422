#include "html/HtmlLines.h"

#include "text/Markup.h"

#include <algorithm>
#include <utility>

using Core::String;

namespace {

constexpr std::wstring_view placeholder = L"&#x00A0;";
constexpr std::wstring_view softBreak = L"<fo:block />";

/// As markup; empty for what no document can hold.
std::wstring_view markupOf(wchar_t unit, wchar_t (&own)[1]) {
    switch (unit) {
    case L'&':
        return L"&amp;";
    case L'<':
        return L"&lt;";
    case L'>':
        return L"&gt;";
    case L'\x00A0':
        return placeholder;
    default:
        own[0] = unit;
        return unit < L' ' || unit == 0xFFFE || unit == 0xFFFF ? std::wstring_view()
                                                               : std::wstring_view(own, 1);
    }
}

} // namespace

void HtmlLines::addText(const HtmlFormat& format, std::wstring_view plain) {
    for (const wchar_t unit : plain)
        if (format.keepsBlanks)
            addKept(format, unit);
        else if (String::isSpace(unit))
            addBlank(format);
        else
            addUnit(format, unit);
}

/// Shows once something follows it on the line.
void HtmlLines::addBlank(const HtmlFormat& format) {
    if (!blankDue_)
        blankFormat_ = format;
    blankDue_ = !isLineEmpty_ && breaksDue_ == 0;
}

void HtmlLines::addUnit(const HtmlFormat& format, wchar_t unit) {
    wchar_t own[1];
    const std::wstring_view markup = markupOf(unit, own);
    if (markup.empty())
        return;
    putBreaks(std::exchange(breaksDue_, 0));
    if (std::exchange(blankDue_, false))
        put(blankFormat_, L" ");
    put(format, markup);
    isBehindKeptBlank_ = false;
}

/// Where white space is kept, each second blank of a row is one that does not collapse.
void HtmlLines::addKept(const HtmlFormat& format, wchar_t unit) {
    if (unit == L'\n')
        return addBreak();
    if (unit != L' ' && unit != L'\t')
        return addUnit(format, unit);
    putBreaks(std::exchange(breaksDue_, 0));
    const bool isPlain = unit == L' ' && !isLineEmpty_ && !isBehindKeptBlank_ && !blankDue_;
    put(format, unit == L'\t' ? std::wstring_view(L"<qf:tab/>")
                : isPlain     ? std::wstring_view(L" ")
                              : placeholder);
    blankDue_ = false;
    isBehindKeptBlank_ = isPlain;
}

void HtmlLines::addBreak() {
    ++breaksDue_;
    blankDue_ = false;
}

std::wstring HtmlLines::take() {
    // The last break ends a line and begins none.
    if (breaksDue_ > 1 || (breaksDue_ == 1 && isLineEmpty_)) {
        putBreaks(breaksDue_ - 1);
        put(HtmlFormat(), placeholder);
    }
    closeInline();
    std::wstring taken = std::move(markup_);
    *this = HtmlLines();
    return taken;
}

void HtmlLines::put(const HtmlFormat& format, std::wstring_view markup) {
    if (!(format == open_)) {
        closeInline();
        const String link = format.linkTag();
        const String properties = format.properties();
        if (!link.empty())
            closing_ = L"</fo:basic-link>";
        if (!properties.empty())
            closing_ = L"</fo:inline>" + closing_;
        markup_ += link.view();
        if (!properties.empty())
            markup_.append(L"<fo:inline").append(properties.view()).append(L">");
        open_ = format;
    }
    markup_ += markup;
    isLineEmpty_ = false;
}

/// An empty line between two keeps a place for the caret.
void HtmlLines::putBreaks(int count) {
    if (count > 0)
        closeInline();
    for (; count > 0; --count) {
        if (isLineEmpty_)
            markup_ += placeholder;
        markup_ += softBreak;
        isLineEmpty_ = true;
        isBehindKeptBlank_ = false;
    }
}

void HtmlLines::closeInline() {
    markup_ += std::exchange(closing_, std::wstring());
    open_ = HtmlFormat();
}
