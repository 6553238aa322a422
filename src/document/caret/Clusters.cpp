#include "document/caret/Clusters.h"

#include "document/Document.h"
#include "document/caret/NearText.h"

#include <algorithm>

using Unit = TextSegmenter::Unit;

namespace {

/// How many characters are looked at at first; clusters are mostly shorter.
constexpr int few = 16;

/// Whether a cluster that holds what follows may begin before: what stands far back then counts.
/// Letters of ASCII begin clusters of their own; flags are pairs, counted from where their row
/// begins, whose units are U+D83C and U+DDE6 to U+DDFF.
bool mayGoOnBefore(wchar_t unit) {
    return unit >= 0x300 || unit == L'\x2028';
}

bool isFlagHalf(wchar_t unit) {
    return unit >= 0xDDE6 && unit <= 0xDDFF;
}

/// Adds what the boundaries around the position hang on: a few characters, and a row of flags
/// whole.
void growToContext(NearText& near) {
    for (int added = 0; near.growBack(1); ++added) {
        const bool isEnough = added >= 4 * few || (added > 0 && !mayGoOnBefore(near.unitAt(0)));
        const int last = std::min(1, near.length() - 1);
        if (isEnough && !isFlagHalf(near.unitAt(last)))
            return;
    }
}

} // namespace

bool Clusters::areSteps(const Document& document) {
    return document.modes.clusterSteps && document.textSegmenter;
}

std::optional<Clusters::Reach> Clusters::behind(const Document& document, int position) {
    NearText near(document, position);
    if (!areSteps(document) || !near.growForward(1))
        return std::nullopt;
    growToContext(near);
    const int character = near.placeAt(near.index()).end;
    int boundary = 0;
    for (int more = few, isWhole = false; !isWhole; more *= 2) {
        isWhole = !near.growForward(more);
        boundary = document.textSegmenter->next(Unit::Cluster, near.text(), near.index());
        isWhole = isWhole || boundary < near.length();
    }
    return Reach{character, near.placeAt(boundary - 1).end};
}

std::optional<Clusters::Reach> Clusters::before(const Document& document, int position) {
    NearText near(document, position);
    if (!areSteps(document) || !near.growBack(1))
        return std::nullopt;
    const int character = near.placeAt(near.index() - 1).start;
    near.growForward(few); // a place in the midst of a cluster is no boundary
    growToContext(near);
    int boundary = 0;
    for (int more = few, isWhole = false; !isWhole; more *= 2) {
        boundary = document.textSegmenter->previous(Unit::Cluster, near.text(), near.index());
        isWhole = boundary > 0 || !near.growBack(more);
    }
    return Reach{character, near.placeAt(boundary).start};
}
