#pragma once

#include "foundation/String.h"

#include <utility>
#include <vector>

/// Puts markup into a detached text. The edges of the range give way to markup: a "<" before it
/// goes with it, and a ">" that ends it stays out of what follows.
namespace EdgedSplice {

/// What becomes of the first unit where the range begins with it.
enum class Head {
    KeepsFirstUnit, ///< it stays, and the insertion goes behind it
    CanBeEmpty      ///< it goes with the range
};
enum class Removal { OfRange, None };

/// Puts the insertion in the place of `start` up to but excluding `end`. What is no range, its end
/// before its start or before the text, leaves the text as it is.
void apply(Core::String& text, int start, int end, const Core::String& insertion, Head head,
           Removal removal);

/// Takes out ranges, as they stand in the text and apart from each other, each with nothing in its
/// place and a head that can be empty.
void remove(Core::String& text, const std::vector<std::pair<int, int>>& ranges);

} // namespace EdgedSplice
