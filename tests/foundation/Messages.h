#pragma once

#include "foundation/Exception.h"

#include <string>

/// The message of the Core::Exception that `act` raises; empty if it raises none.
template <typename Act>
std::string messageOf(Act act) {
    try {
        act();
    } catch (const Core::Exception& exception) {
        return exception.what();
    }
    return {};
}
