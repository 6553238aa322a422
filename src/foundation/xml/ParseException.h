#pragma once

#include "foundation/Exception.h"

namespace Xml {

/// Raised when a text is not well-formed XML, with the place, as in "letter.xml:12:7: mismatched
/// tag" or, for what comes from memory, "12:7: mismatched tag".
class FORME_API ParseException : public Core::Exception {
public:
    /// `source` names the file; it is empty when there is none.
    ParseException(const Core::String& source, int line, int column, const Core::String& reason);
    ~ParseException() override;

    /// Counts from 1.
    int getLine() const { return line_; }
    /// Counts 16-bit code units from 1.
    int getColumn() const { return column_; }

private:
    int line_;
    int column_;
};

} // namespace Xml
