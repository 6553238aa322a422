#pragma once

#include "foundation/String.h"

/// Puts markup into a detached text. The edges of the range give way to markup: a "<" before it
/// goes with it, and a ">" that ends it stays out of what follows.
namespace EdgedSplice {

/// What stands of the text before and behind its first unit where the range begins at the start.
enum class Head {
    KeepsFirstUnit, ///< that unit stays, whatever it is
    CanBeEmpty
};
enum class Removal { OfRange, None };

/// Puts the insertion in the place of `start` up to but excluding `end`. What is no range, its end
/// before its start or before the text, leaves the text as it is.
void apply(Core::String& text, int start, int end, const Core::String& insertion, Head head,
           Removal removal);

} // namespace EdgedSplice
