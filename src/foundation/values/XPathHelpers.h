#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

/// Puts location paths together and takes them apart. A path is absolute if it begins with "/". A
/// "/" in a predicate or in quotes belongs to the step around it, and "//" to the step behind it.
class FORME_API XPathHelpers {
public:
    /// `path` as seen from `base`: the base for an empty path or ".", the path if it is absolute or
    /// the base empty. Else both with one "/" between, where each ".." that the path begins with
    /// takes a step off the base. A base that has no step that could go keeps the "..".
    static Core::String composeXPath(const Core::String& base, const Core::String& path);

    /// How `path` is reached from `base`: "." where they are equal, the path where only one of them
    /// is absolute. Else ".." for each step of the base behind those that they have in common, then
    /// the rest of the path.
    static Core::String getRelativeXPath(const Core::String& base, const Core::String& path);

    /// The path without its predicates, nested ones included.
    static Core::String removeXPathFilters(const Core::String& path);
};
