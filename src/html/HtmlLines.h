#pragma once

#include "html/HtmlFormat.h"

#include <string>
#include <string_view>

/// The lines of a paragraph as they are read from HTML: white space is collapsed as a browser does
/// it, and what is formatted alike stands in one inline.
class HtmlLines {
public:
    void addText(const HtmlFormat& format, std::wstring_view plain);
    void addBreak();

    bool empty() const { return markup_.empty() && breaksDue_ == 0; }
    /// What stands in the paragraph, its line breaks as empty blocks. The next one then begins.
    std::wstring take();

private:
    void addUnit(const HtmlFormat& format, wchar_t unit);
    void addBlank(const HtmlFormat& format);
    void addKept(const HtmlFormat& format, wchar_t unit);
    void put(const HtmlFormat& format, std::wstring_view markup);
    void putBreaks(int count);
    void closeInline();

    std::wstring markup_;
    HtmlFormat open_; // that the end of the markup has
    std::wstring closing_;
    bool isLineEmpty_ = true;
    bool blankDue_ = false;
    HtmlFormat blankFormat_; // of that blank
    bool isBehindKeptBlank_ = false;
    int breaksDue_ = 0; // which show once something follows them
};
