#pragma once

#include "foundation/String.h"

/// A variable of a template's expressions.
struct QFDVariable {
    Core::String name;
    Core::String value;

    bool operator==(const QFDVariable&) const = default;
};
