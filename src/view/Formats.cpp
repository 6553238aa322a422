#include "view/Formats.h"

#include "document/Document.h"
#include "document/caret/Stops.h"
#include "editing/formatting/Formatting.h"
#include "foundation/values/XslProperties.h"
#include "view/ComputedProperties.h"
#include "view/KnownFormats.h"

#include <algorithm>
#include <array>
#include <memory>

using Core::String;

namespace {

using Name = std::wstring_view;

/// How a format comes to an element.
enum class Way { Computed, ShowsThrough, Line };

struct Row {
    Name name;
    Way way = Way::Computed;
    Name word = {}; ///< of a line, that "text-decoration" has for it
};

constexpr std::array<Row, 14> rows{{
    {L"font-family"},
    {L"font-size"},
    {L"font-weight"},
    {L"font-style"},
    {L"text-underline-style", Way::Line, L"underline"},
    {L"text-overline-style", Way::Line, L"overline"},
    {L"text-line-through-style", Way::Line, L"line-through"},
    {L"baseline-shift", Way::ShowsThrough},
    {L"color"},
    {L"background-color", Way::ShowsThrough},
    {L"text-align"},
    {L"line-height"},
    {L"start-indent"},
    {L"end-indent"},
}};

/// Whether the word is one of those that blanks lie between.
bool holdsWord(const String& words, const String& word) {
    return (L" " + words + L" ").find(L" " + word + L" ", 0) >= 0;
}

class Reader {
public:
    explicit Reader(const Document& document) : document_(document), properties_(document) {}

    String valueOf(const Row& row, int element) {
        switch (row.way) {
        case Way::ShowsThrough:
            return shownThrough(row.name, element);
        case Way::Line:
            return styleOfLine(row, element);
        case Way::Computed:
            break;
        }
        return properties_.value(element, row.name);
    }

private:
    String shownThrough(Name name, int element) {
        String initial(XslProperties::find(name)->initial);
        for (; element >= 0; element = properties_.parentOf(element)) {
            String value = properties_.value(element, name);
            if (value != initial || !document_.names.isInline(document_.text().tagName(element)))
                return value;
        }
        return initial;
    }

    /// An element decorates all that it holds; the innermost that says something of the line
    /// counts.
    String styleOfLine(const Row& row, int element) {
        for (; element >= 0; element = properties_.parentOf(element)) {
            if (const auto style = properties_.specified(element, row.name);
                style && *style != L"inherit")
                return *style;
            const auto decoration = properties_.specified(element, L"text-decoration");
            if (decoration && holdsWord(*decoration, String(row.word)))
                return L"solid";
            if (decoration && holdsWord(*decoration, L"no-" + String(row.word)))
                break;
        }
        return L"none";
    }

    const Document& document_;
    ComputedProperties properties_;
};

/// The formats by name, without values.
std::vector<Format> emptyFormats() {
    std::vector<Format> formats;
    formats.reserve(rows.size());
    for (const Row& row : rows)
        formats.push_back({L"fo:" + String(row.name), {}});
    return formats;
}

std::vector<Format> formatsOf(Reader& reader, int element) {
    static const std::vector<Format> empty = emptyFormats();
    std::vector<Format> formats = empty;
    for (std::size_t i = 0; i < rows.size(); ++i)
        formats[i].value = reader.valueOf(rows[i], element);
    return formats;
}

std::vector<Format> formatsAt(const Document& document, int element) {
    std::shared_ptr<const KnownFormats>& known = document.knownFormats;
    if (!known || !known->areOf(document, element)) {
        Reader reader(document);
        known = std::make_shared<KnownFormats>(document, element, formatsOf(reader, element));
    }
    return known->formats();
}

/// Notes where the element differs; answers whether another may still tell something new.
bool compare(std::vector<Format>& formats, Reader& reader, int element) {
    bool isAnyAlike = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Format& format = formats[i];
        format.isMixed = format.isMixed || reader.valueOf(rows[i], element) != format.value;
        isAnyAlike = isAnyAlike || !format.isMixed;
    }
    return isAnyAlike;
}

std::vector<Format> formatsOfSelection(const Document& document) {
    const XmlText& text = document.text();
    const int end = document.selectionEnd();
    int run = Formatting::startOfTextRun(document, document.selectionStart(), end);
    int element = text.elementAround(run >= 0 ? run : document.caret());
    Reader reader(document);
    std::vector<Format> formats = formatsOf(reader, element);
    bool goesOn = run >= 0;
    while (goesOn) {
        const int behind = Formatting::endOfTextRun(document, run, end);
        run = Formatting::startOfTextRun(document, Stops::next(document, behind), end);
        const int other = text.elementAround(run);
        goesOn = run >= 0 && (other == element || compare(formats, reader, other));
        element = other;
    }
    return formats;
}

} // namespace

std::vector<Format> Formats::of(const Document& document) {
    if (!document.text().isValid(document.caret()))
        return {};
    if (document.hasSelection())
        return formatsOfSelection(document);
    return formatsAt(document, document.text().elementAround(document.caret()));
}
