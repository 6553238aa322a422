// The walks from stop to stop and the moves of the caret, over documents that people wrote. With
// FORME_ALL_STOPS set they go over every stop, and otherwise over stretches from all parts of a
// text.

#include "document/caret/CaretWalk.h"
#include "document/Placeholders.h"
#include "document/caret/Moves.h"
#include "document/caret/Stops.h"
#include "support/Documents.h"
#include "support/MarkedDocument.h"
#include "text/ReferenceMarkup.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <random>

namespace {

const bool allStops = std::getenv("FORME_ALL_STOPS") != nullptr;

bool isScript(TextView name) {
    return name == L"qfd:xslt" || name == L"qfd:inline-xslt" || name == L"qfd:xslt-global";
}

class WalkedDocument : public MarkedDocument {
public:
    WalkedDocument(const Core::String& content, const wchar_t* root) {
        face().setRootElement(root);
        face().setContent(content, true);
        markInaccessible();
    }

    int next(int position) const { return Stops::next(*this, position); }
    int previous(int position) const { return Stops::previous(*this, position); }
    bool isStop(int position) const { return CaretWalk(*this, position).isStop(); }
    int length() const { return text().length(); }

    /// Directly behind an object, where a move that passed the object whole ends in any case.
    bool isBehindObject(int position) const {
        return position > 0 && text().unitAt(position - 1) == L'>' &&
               !document().names.isEditable(
                   text().previousTagName(position).substringAfter(L"/").view());
    }

    /// Comments, sections and scripts are passed in another way to the left, and to the right a
    /// placeholder is left for the end of what holds it alone.
    bool isPassedOtherwise(int stop, int behind) const {
        const Core::String between(text().slice(stop, behind));
        return between.find(L"<!", 0) >= 0 || between.find(L"xslt", 0) >= 0 ||
               text().holdsOnlyPlaceholder(text().elementAround(stop));
    }

    /// Inside markup or an entity.
    bool isInsideUnit(int position) const {
        return insideUnit_[static_cast<std::size_t>(position)];
    }
    /// In a list label or a script.
    bool isClosed(int position) const { return closed_[static_cast<std::size_t>(position)]; }

    /// So many positions from all parts of the text, the first of them its start.
    std::vector<int> startingPoints(int count) const {
        std::vector<int> points{0};
        for (int part = 1; part < count; ++part) {
            int point = length() / count * part;
            while (isInsideUnit(point))
                --point;
            points.push_back(point);
        }
        return points;
    }

private:
    void mark(std::vector<bool>& marks, int start, int end) {
        std::fill(marks.begin() + start, marks.begin() + end, true);
    }

    void markInaccessible() {
        const auto markup = parseMarkup(content());
        ASSERT_TRUE(markup);
        insideUnit_.assign(static_cast<std::size_t>(length()), false);
        closed_ = insideUnit_;
        int behind = 0;
        for (const ReferenceMarkup& tag : *markup) {
            markEntities(behind, tag.start);
            behind = tag.last + 1;
            mark(insideUnit_, tag.start + 1, behind);
            if (tag.kind == ReferenceMarkup::Opening &&
                (tag.name == L"fo:list-item-label" || isScript(tag.name)))
                mark(closed_, behind, (*markup)[tag.partner].last + 1);
        }
    }

    void markEntities(int start, int end) {
        for (int at = text().find(L'&', start); at >= 0 && at < end; at = text().find(L'&', at + 1))
            mark(insideUnit_, at + 1, text().find(L';', at) + 1);
    }

    std::vector<bool> insideUnit_;
    std::vector<bool> closed_;
};

Core::String withRootRenamed(Core::String text) {
    text.replaceAll(L"<fo:root", L"<qfd:document");
    text.replaceAll(L"</fo:root>", L"</qfd:document>");
    return text;
}

/// Calls `check` with every document: as it is, and those with the root "fo:root" also renamed.
template <typename Check>
void forEachDocument(Check check) {
    for (const auto& path : corpusAndSamples()) {
        SCOPED_TRACE(path.filename());
        const Core::String text = textOf(path);
        if (text.find(L"<fo:root", 0) >= 0)
            check(WalkedDocument(text, L"fo:root"));
        check(WalkedDocument(withRootRenamed(text), L"qfd:document"));
    }
}

void expectOpenStop(const WalkedDocument& document, int stop) {
    EXPECT_TRUE(document.isStop(stop)) << stop;
    EXPECT_FALSE(document.isInsideUnit(stop)) << stop;
    EXPECT_FALSE(document.isClosed(stop)) << stop;
}

void walkStretch(const WalkedDocument& document, int start, int count) {
    int stop = document.next(start);
    for (int steps = 0; stop >= 0 && steps < count; ++steps) {
        expectOpenStop(document, stop);
        const int behind = document.next(stop);
        if (behind >= 0) {
            EXPECT_LT(stop, behind);
            const int back = document.previous(behind);
            EXPECT_TRUE(back == stop || (back < behind && document.isStop(back) &&
                                         document.isPassedOtherwise(std::min(stop, back), behind)))
                << stop << " to " << behind << ", back " << back;
        }
        stop = behind;
    }
}

} // namespace

TEST(CaretWalkProperties, TheWalksFindTheSameStops) {
    forEachDocument([](const WalkedDocument& document) {
        for (const int start : document.startingPoints(allStops ? 1 : 6))
            walkStretch(document, start, allStops ? INT_MAX : 8);
        const int last = document.previous(document.length() - 1);
        EXPECT_EQ(document.next(last), -1);
        EXPECT_EQ(document.previous(document.next(0)), -1);
    });
}

TEST(CaretWalkProperties, StopsNearManyPlacesAreThoseNearEach) {
    std::mt19937 random(3);
    forEachDocument([&random](const WalkedDocument& document) {
        NearStops stops(document);
        const XmlText& text = document.text();
        for (const int start : document.startingPoints(allStops ? 20 : 2)) {
            int at = start;
            for (int steps = 0; steps < 30 && text.isValid(at); ++steps) {
                ASSERT_EQ(stops.next(at), document.next(at)) << at;
                ASSERT_EQ(stops.previous(at), document.previous(at)) << at;
                at = random() % 4 == 0 ? text.previous(at) : text.next(at);
            }
            for (; at > start; at = text.previous(at))
                ASSERT_EQ(stops.previous(at), document.previous(at)) << at;
        }
    });
}

TEST(CaretWalkProperties, VoidElementsAreThoseThatHoldNothing) {
    forEachDocument([](const WalkedDocument& document) {
        const XmlText& text = document.text();
        VoidElements voids(document);
        for (const int start : document.startingPoints(allStops ? 200 : 20))
            for (int tag = text.nextTag(start); tag >= 0; tag = text.elementAround(tag))
                ASSERT_EQ(voids.contains(tag), Placeholders::isVoid(document, tag)) << tag;
    });
}

TEST(CaretWalkProperties, NoMoveLeavesItsRegion) {
    std::mt19937 random(7);
    forEachDocument([&random](const WalkedDocument& document) {
        for (const int start : document.startingPoints(allStops ? 20 : 3)) {
            Moves::to(document, false, document.next(start));
            const int from = document.caret();
            for (int moves = allStops ? 200 : 10; from >= 0 && moves > 0; --moves) {
                const bool byWord = random() % 2 == 0, merge = random() % 2 == 0;
                if (random() % 2 == 0)
                    Moves::right(document, false, byWord, merge);
                else
                    Moves::left(document, false, byWord, merge);
                const int caret = document.caret();
                ASSERT_TRUE(document.isStop(caret) || document.isBehindObject(caret)) << caret;
                ASSERT_FALSE(document.isInsideUnit(caret)) << caret;
                ASSERT_TRUE(document.text().isInFlow(from)
                                ? document.text().isInFlow(caret)
                                : document.text().areInSameStaticContent(from, caret))
                    << caret;
            }
        }
    });
}
