#pragma once

#include "text/TagQuotes.h"
#include "text/UnitMemo.h"

#include <array>
#include <optional>

/// Finds the tags before a position by their ends. It keeps what it has read, so that a walk over a
/// text is linear in it whatever stands there: a quote that is left open, a document type without
/// an end, `>` as text in great number.
class PrecedingTags {
public:
    using Text = XmlScan::Text;

    /// The last tag whose `>` stands at or before `position`, instructions and the document type
    /// included, comments and CDATA sections not; -1 if none or where the position is not valid.
    int find(Text text, int position) noexcept;

    /// Whether the `>` at a position is text and ends no markup.
    bool isText(Text text, int bracket) noexcept {
        return endingAt(text, bracket).kind == Kind::Text;
    }

    /// The text has changed from the position on. Answers whether that may have made other tags of
    /// those before it, because a document type no longer ends where it did.
    bool forgetBehind(int position) noexcept;

private:
    enum class Kind { Tag, Skipped, Text };
    struct Markup {
        Kind kind;
        int start;
    };

    /// A `<`, and how far the units behind it are known: none of them is another.
    struct TagStart {
        int position = -1;
        int last = -1;
        int end = -1;                               ///< of its tag; -1 while none was found
        XmlScan::Quotes quotes = XmlScan::NoQuotes; ///< behind `last`
    };

    /// The document type, and how much was read to know it. The end is -1 where there is none.
    struct DocumentType {
        int start;
        int end;
        int last;
    };

    /// From `first` up to and including `last` the answer is the same tag.
    struct Gap {
        int first = 0;
        int last = -1;
        int tag = -1;
    };

    Gap search(Text text, int position) noexcept;
    bool isInKnownGap(int position) noexcept;
    void remember(Gap gap) noexcept;
    Markup endingAt(Text text, int bracket) noexcept;
    void findTagBefore(Text text, int bracket) noexcept;
    const DocumentType& documentType(Text text) noexcept;

    UnitMemo brackets_{[](wchar_t unit) noexcept { return unit == L'>'; }};
    std::array<Gap, 4> gaps_; // long ones, the last one used first
    TagStart tag_;
    std::optional<DocumentType> type_;
};
