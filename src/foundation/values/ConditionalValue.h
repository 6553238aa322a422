#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

class QFDAttribute;

/// A row of a value that is chosen by conditions.
struct FORME_API ConditionalValue {
    Core::String staticValue;
    Core::String dynamicValue; ///< an expression
    Core::String condition;    ///< empty in a row that holds whenever it is reached
    bool isDynamic = false;    ///< whether the row's value is the dynamic one; only that is kept

    /// Takes the row from an entry of the template's data. It is dynamic if the entry has a dynamic
    /// value.
    void read(const QFDAttribute& entry);

    bool operator==(const ConditionalValue&) const = default;
};
