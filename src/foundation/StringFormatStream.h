#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

#include <variant>
#include <vector>

namespace Core {

/// Builds a text from a template with numbered holes, as in "<fo:inline {0}>{1}</fo:inline>": the
/// n-th value streamed in, counted from zero, stands in each hole `{n}` of the template. A value is
/// never searched for holes.
///
/// A hole may carry a number format, as in `{0:0.###}`; Format::formatValue() tells which. It
/// counts for floats only. A hole for which there is no value, and a brace that belongs to no hole,
/// stay.
class FORME_API StringFormatStream {
public:
    explicit StringFormatStream(const wchar_t* format);

    StringFormatStream& operator<<(const String& value);
    StringFormatStream& operator<<(const wchar_t* value);
    StringFormatStream& operator<<(const char* value);
    StringFormatStream& operator<<(int value);
    StringFormatStream& operator<<(float value);
    // Else a character would come out as its number.
    StringFormatStream& operator<<(wchar_t value) = delete;
    StringFormatStream& operator<<(char value) = delete;

    /// The template with the values so far; more may be streamed in afterwards.
    String getString() const;

private:
    String template_;
    std::vector<std::variant<String, float>> values_;
};

} // namespace Core
