#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Xml {

/// A text in which the line breaks inside attribute values are character references, so that the
/// parser does not turn them into blanks. It tells where an offset of the new text was in the old.
class AttributeLineBreaks {
public:
    explicit AttributeLineBreaks(std::string_view source);

    std::string_view text() const { return text_; }
    std::size_t sourceOffset(std::size_t offset) const;

private:
    /// From `text` on, the new text is the old one from `source` on, up to the next shift.
    struct Shift {
        std::size_t text;
        std::size_t source;
    };

    void escapeTag(std::string_view source, std::size_t start, std::size_t end);
    void escapeLineBreak(std::string_view source, std::size_t& copied, std::size_t offset);

    std::string text_;
    std::vector<Shift> shifts_;
};

} // namespace Xml
