#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

namespace Xml {

/// How thick a border is: "thin", "medium", "thick" or a length.
class FORME_API BorderWidth {
public:
    /// Reads `text`, white space around it aside. False when that is no such width; `result` then
    /// keeps its value.
    static bool parseBorderWidth(const Core::String& text, BorderWidth& result);

    Core::String getValueAsString() const { return text_; }

private:
    Core::String text_;
};

} // namespace Xml
