#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

/// Makes identifiers for elements and values of a document.
class FORME_API ObjectId {
public:
    /// A new identifier, valid as an XML id: a letter and 21 letters and digits, all of them
    /// random, so that also its first characters tell it apart. Taken from the system's source of
    /// randomness, hence unique within and across processes, forked ones included.
    static Core::String generate();

    /// Makes the identifiers from here on a repeatable sequence, for tests and recorded scripts.
    /// Ends with unseed().
    static void seed(unsigned value);

    /// Goes back to the system's source of randomness.
    static void unseed();
};
