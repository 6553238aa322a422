// A break and what takes it away again, from the stops of documents that people wrote.

#include "properties/EveryStop.h"

#include <array>
#include <map>
#include <sstream>
#include <vector>

namespace {

/// A break, and whether Backspace takes it away or, from the line before, Delete.
struct Way {
    BreakType type;
    bool forward;
};

constexpr std::array<Way, 4> ways{Way{BreakType::Hard, false}, Way{BreakType::Hard, true},
                                  Way{BreakType::Soft, false}, Way{BreakType::Soft, true}};

using Lines = std::vector<std::wstring>;

struct BrokenDocument : StopsDocument {
    using StopsDocument::StopsDocument;

    /// What a reader sees: the lines, without their formatting. "_" is a non-breaking space, "*" an
    /// object.
    Lines lines() const {
        std::wistringstream all(readableText(0, text().length()));
        Lines lines;
        for (std::wstring line; std::getline(all, line);) {
            const auto bothBlank = [](wchar_t a, wchar_t b) { return a == L' ' && b == L' '; };
            line.erase(std::unique(line.begin(), line.end(), bothBlank), line.end());
            line.erase(0, line.starts_with(L' ') ? 1 : 0);
            if (line.ends_with(L' '))
                line.pop_back();
            if (!line.empty())
                lines.push_back(line);
        }
        return lines;
    }

    /// What no break may add to or take from the text.
    std::wstring letters() const {
        std::wstring read = readableText(0, text().length());
        std::erase_if(read,
                      [](wchar_t unit) { return unit == L' ' || unit == L'_' || unit == L'\n'; });
        return read;
    }

    /// Whether a line feed of the markup stands beside the caret, or beside the edges of inlines
    /// there. It separates words, and goes with the break as the layout of the markup does. The
    /// same happens to a blank that is all of an inline.
    bool isBesidePassingBlank() const {
        const auto isPassed = [this](int at) {
            return Core::String::isSpace(text().unitAt(at)) || isInlineEdge(at);
        };
        int start = caret();
        for (int at = start; at >= 0 && (at == caret() || isPassed(at)); at = text().previous(at))
            start = at;
        int end = caret();
        while (end >= 0 && isPassed(end))
            end = text().next(end);
        for (int at = start; at >= 0 && at < end; at = text().next(at))
            if (text().unitAt(at) == L'\n' ||
                (isInlineEdge(at) && text().openingAt(at) && Placeholders::isVoid(*this, at)))
                return true;
        return false;
    }

    /// Whether the caret is at the end of an inline that a footnote or a condition holds. Behind a
    /// soft break there it has no place, so that it stays before that or leaves what holds it.
    bool isAtEndOfHeldInline() const {
        const int position = caret();
        return text().closingAt(position) && isInlineEdge(position) &&
               (text().isWithin(position, L"fo:footnote") ||
                text().isWithin(position, L"qfd:conditional-inline"));
    }

    /// Whether nothing is on the line of the caret, not even a placeholder, or on the one before
    /// it, which a soft break ends. A break at the start of a line puts a placeholder there.
    bool isAtBareLine() const {
        if (!startsLine(caret()))
            return false;
        const int tag = text().previousTag(caret());
        return endsLine(caret()) || (text().selfClosingAt(tag) && startsLine(tag));
    }

    /// Moves to the end of the line before a break. If that line is empty and ends with the layout
    /// of the markup, it has a stop behind that, too. False if another thing than the break is
    /// there.
    bool goBackOverBreak() {
        const int start = caret();
        for (int from = -1; caret() != from && lineTagsBetween(caret(), start) == 0;) {
            from = caret();
            face().moveCaretLeft(false, false, false);
        }
        const int element = text().elementAround(caret());
        if (text().holdsOnlyPlaceholder(element))
            face().setCaretPos(false, text().placeholderBehind(element));
        const int tags = lineTagsBetween(caret(), start);
        return tags == 1 || tags == 2;
    }

    /// Whether Backspace leaves the line alone: in a list, and behind what is no block.
    bool isLineKept() const {
        return text().isWithin(caret(), L"fo:list-block") ||
               text().tagName(text().previousNeighbor(caret(), true)) != L"fo:block";
    }

private:
    bool startsLine(int position) const {
        int tag = text().previousTag(position);
        while (tag > 0 && *readableTag(tag) == 0)
            tag = text().previousTag(tag - 1);
        return isBlank(readableText(tag, position).substr(1));
    }

    bool endsLine(int position) const {
        int tag = text().nextTag(position);
        while (tag >= 0 && *readableTag(tag) == 0)
            tag = text().nextTag(text().next(tag));
        return isBlank(readableText(position, tag));
    }

    static bool isBlank(const std::wstring& line) {
        return line.find_first_not_of(L' ') == std::wstring::npos;
    }

    std::wstring readableText(int start, int end) const {
        std::wstring read;
        for (int at = start; at < end;) {
            const wchar_t unit = text().unitAt(at);
            const bool isCharacter = unit != L'<' && unit != L'&';
            const int next = isCharacter ? at + 1 : std::max(text().next(at), at + 1);
            if (isCharacter)
                read += Core::String::isSpace(unit) ? L' ' : unit == L'\xA0' ? L'_' : unit;
            else if (unit == L'<')
                read += readableTag(at);
            else if (text().placeholderLength(at) > 0)
                read += L'_';
            else
                read += text().view(at, next);
            at = next;
        }
        return read;
    }

    /// How many tags begin or end a line there; -1 if an object stands there.
    int lineTagsBetween(int start, int end) const {
        int count = 0;
        for (int at = start; at >= 0 && at < end; at = text().next(at)) {
            const wchar_t read = text().onTagStart(at) ? *readableTag(at) : 0;
            if (read == L'*')
                return -1;
            count += read == L'\n' ? 1 : 0;
        }
        return count;
    }

    const wchar_t* readableTag(int tag) const {
        if (text().ignoredAt(tag))
            return L"";
        XmlScan::Text name = text().tagName(tag);
        name = name.substr(name.starts_with(L'/') ? 1 : 0);
        const auto known = readings_.find(name);
        return known != readings_.end()
                   ? known->second
                   : readings_.emplace(name, readableElement(name)).first->second;
    }

    const wchar_t* readableElement(XmlScan::Text name) const {
        if (document().names.isInline(name))
            return L"";
        bool isLine = document().names.isBlock(name) || name == L"fo:block-container";
        for (const wchar_t* kind : {L"fo:table", L"fo:list", L"fo:flow", L"fo:static-content"})
            isLine = isLine || name.starts_with(kind);
        return isLine ? L"\n" : L"*";
    }

    bool isInlineEdge(int at) const { return text().onTagStart(at) && *readableTag(at) == 0; }

    mutable std::map<std::wstring, const wchar_t*, std::less<>> readings_; // by name
};

/// The first line that differs, as it reads in both; empty if none does.
std::string firstDifference(const Lines& expected, const Lines& actual) {
    const auto [at, other] =
        std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    if (at == expected.end() && other == actual.end())
        return {};
    const auto shown = [](const Lines& lines, Lines::const_iterator line) {
        return line == lines.end() ? "nothing" : Core::Encoder::toDisplayText(line->c_str());
    };
    return "expected \"" + shown(expected, at) + "\", but it is \"" + shown(actual, other) + '"';
}

/// How the document reads before the break.
struct Original {
    Lines lines;
    std::wstring letters;
};

void checkJoin(BrokenDocument& document, Lines expected, bool losesBlank, Way way,
               const EditorState& before) {
    const Core::String broken = document.state().text;
    const bool isLineKept = document.isLineKept();
    const bool isMadeBefore = document.caret() <= before.caret;
    const bool isWrapped = isLineKept && way.type == BreakType::Hard;
    if (way.forward && (isWrapped || isMadeBefore || !document.goBackOverBreak()))
        return;
    document->erase(way.forward, false);
    const Core::String joined = document.state().text;
    if (joined == before.text || (joined == broken && isLineKept))
        return;
    Lines lines = document.lines();
    if (losesBlank)
        for (Lines* read : {&expected, &lines})
            for (std::wstring& line : *read)
                std::erase(line, L' ');
    EXPECT_EQ(firstDifference(expected, lines), "");
}

void tryAt(BrokenDocument& document, int stop, Way way, const Original& original) {
    SCOPED_TRACE(std::string(way.type == BreakType::Hard ? "hard" : "soft") +
                 (way.forward ? ", Delete" : ", Backspace"));
    document->setCaretPos(false, stop);
    if (document.isAtBareLine() || (way.type == BreakType::Soft && document.isAtEndOfHeldInline()))
        return;
    const EditorState before = document.state();
    const bool isBesidePassingBlank = document.isBesidePassingBlank();
    document->insertBreak(way.type, false);
    const EditorState after = document.state();
    if (after.text == before.text)
        return;
    EXPECT_EQ(xmlError(after.text), "");
    EXPECT_TRUE(Stops::canHoldCaret(document, after.caret)) << after.caret;
    expectReplays(document.face(), before);
    EXPECT_TRUE(document.letters() == original.letters);
    checkJoin(document, original.lines, isBesidePassingBlank, way, before);
    while (document.state() != before && document->canUndo())
        document->undo();
}

class BreakAndJoin : public EveryDocument {};

TEST_P(BreakAndJoin, ReadsAsBefore) {
    BrokenDocument document(GetParam());
    document.fromEachStop([&](int stop) {
        const Original original{document.lines(), document.letters()};
        for (const Way way : ways)
            tryAt(document, stop, way, original);
    });
}

INSTANTIATE_TEST_SUITE_P(Documents, BreakAndJoin, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

} // namespace
