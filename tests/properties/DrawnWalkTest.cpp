// What is drawn of documents that people wrote, beside the stops and the plain text of a selection.

#include "document/caret/CaretWalk.h"
#include "document/caret/Stops.h"
#include "properties/EveryStop.h"
#include "view/Drawn.h"

#include <climits>
#include <tuple>
#include <vector>

namespace {

bool isText(const Drawn& piece) {
    return piece.kind == DrawnKind::Text;
}

bool isTag(const Drawn& piece) {
    return piece.kind < DrawnKind::Text || piece.kind == DrawnKind::Object;
}

/// The pieces with each unit of a text by itself.
std::vector<std::tuple<int, DrawnKind, std::wstring>> unitsOf(const std::vector<Drawn>& pieces) {
    std::vector<std::tuple<int, DrawnKind, std::wstring>> units;
    for (const Drawn& piece : pieces)
        if (isText(piece))
            for (int i = 0; i < piece.text.length(); ++i)
                units.emplace_back(piece.start + i, piece.kind, std::wstring(1, piece.text[i]));
        else
            units.emplace_back(piece.start, piece.kind, piece.text.view());
    return units;
}

std::vector<int> stopsIn(const std::vector<Drawn>& pieces, const XmlText& text) {
    std::vector<int> stops;
    for (const Drawn& piece : pieces)
        for (int at = piece.start; piece.isStop && at < piece.end; at = text.next(at)) {
            stops.push_back(at);
            if (!isText(piece))
                break;
        }
    return stops;
}

std::vector<int> stopsOf(const Document& document) {
    std::vector<int> stops;
    CaretWalk walk(document, 0);
    while (walk.toNextStop())
        stops.push_back(walk.position());
    return stops;
}

/// As a selection is read: text from a stop on, and a line feed for the next tag if it ends a line.
Core::String plainText(const Document& document, const std::vector<Drawn>& pieces, int start,
                       int end) {
    Core::String plain;
    int from = -1;
    for (const Drawn& piece : pieces) {
        if (from < 0 && piece.start >= end)
            break;
        if (from < 0 && piece.isStop && piece.start >= start)
            from = piece.start;
        if (from < 0 || !isTag(piece))
            continue;
        plain += document.text().slice(from, std::min(piece.start, end));
        plain += document.names.isInline(piece.text) ? L"" : L"\n";
        from = -1;
    }
    return plain;
}

} // namespace

class WhatIsDrawn : public EveryDocument {};

TEST_P(WhatIsDrawn, GivesTheStopsAndTheText) {
    const StopsDocument document(GetParam());
    const XmlText& text = document.text();
    const std::vector<Drawn> pieces = document->getDrawn(0, INT_MAX);
    EXPECT_EQ(stopsIn(pieces, text), stopsOf(document));
    for (const Drawn& piece : pieces)
        for (int i = 0; isText(piece) && i < piece.text.length(); ++i) {
            const wchar_t unit = text.unitAt(piece.start + i);
            ASSERT_EQ(piece.text[i], Core::String::isSpace(unit) ? piece.text[i] : unit);
            ASSERT_EQ(Core::String::isSpace(piece.text[i]), Core::String::isSpace(unit));
        }
    for (const Drawn& region : pieces) {
        if (region.kind != DrawnKind::Start ||
            (region.text != L"fo:flow" && region.text != L"fo:static-content"))
            continue;
        const int first = Stops::next(document, region.start);
        const int last = Stops::previous(document, text.behindElement(region.start));
        document.document().select(first, last);
        EXPECT_EQ(wide(document->getSelectionAs(TextFormat::Plain)),
                  first < last ? wide(plainText(document, pieces, first, last)) : L"");
    }
}

TEST_P(WhatIsDrawn, GoesOnFromAnyOffset) {
    const StopsDocument document(GetParam());
    const auto all = unitsOf(document->getDrawn(0, INT_MAX));
    for (int part = 1; part < 8; ++part) {
        const int offset = document.text().length() / 8 * part;
        std::vector<Drawn> pieces;
        for (int from = offset;;) { // as a host does that draws few at a time
            const auto more = document->getDrawn(from, 40);
            pieces.insert(pieces.end(), more.begin(), more.end());
            if (more.empty() || pieces.size() > 100)
                break;
            from = more.back().end;
        }
        const auto units = unitsOf(pieces);
        ASSERT_FALSE(units.empty());
        const auto same = std::lower_bound(all.begin(), all.end(), units.front());
        ASSERT_LE(units.size(), static_cast<std::size_t>(all.end() - same));
        EXPECT_TRUE(std::equal(units.begin(), units.end(), same)) << offset;
        EXPECT_TRUE(same == all.begin() || std::get<0>(*(same - 1)) < offset) << offset;
    }
}

INSTANTIATE_TEST_SUITE_P(All, WhatIsDrawn, testing::ValuesIn(corpusAndSamples()), nameOfDocument);
