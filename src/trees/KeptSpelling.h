#pragma once

#include "foundation/String.h"

/// The text of an edited tree, with all that nobody touched spelt as it was before: quotes, line
/// breaks between attributes, entities, shorthands.
///
/// `source` is the element that was read, `asRead` what the tree gave right then, `edited` what it
/// gives now; each is one element. An element of `edited` that `asRead` has, too, is taken from
/// `source`. Of one that has changed, attributes that say the same stay as they are, and its
/// content is looked at in the same way. Nothing is moved across elements. Each text is read once,
/// however deep the change.
Core::String keepSpelling(const Core::String& source, const Core::String& asRead,
                          const Core::String& edited);
