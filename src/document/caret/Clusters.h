#pragma once

#include <optional>

class Document;

/// What a reader sees as one character though it is several: a letter and its accents, a flag, an
/// emoji of a family. Keys take it as one where the host has that switched on.
namespace Clusters {

/// The characters beside a place: where the nearest one ends, or before a place begins, and where
/// the cluster does of which it is.
struct Reach {
    int character;
    int cluster;

    bool isLonger() const { return character != cluster; }
};

/// Whether keys take clusters. Only then the rest answers anything.
bool areSteps(const Document& document);
/// Nothing where the paragraph ends there.
std::optional<Reach> behind(const Document& document, int position);
std::optional<Reach> before(const Document& document, int position);

/// Whether there is certainly a boundary between two units, whatever stands around them.
constexpr bool areApart(wchar_t unit, wchar_t next) {
    return unit > L' ' && unit < 0x300 && next > L' ' && next < 0x300;
}

} // namespace Clusters
