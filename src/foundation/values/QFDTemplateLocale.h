#pragma once

#include "foundation/String.h"

/// A language that a template can be produced in.
struct QFDTemplateLocale {
    Core::String id;
    Core::String file; ///< with the texts in that language; empty for the template's own
    Core::String name;

    bool operator==(const QFDTemplateLocale&) const = default;
};
