#include "foundation/xml/WellFormed.h"

#include "foundation/Encoder.h"
#include "foundation/Exception.h"

#include <expat.h>

#include <memory>
#include <new>
#include <string_view>

namespace Xml {

namespace {

struct FreeParser {
    void operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }
};

bool parses(std::string_view text) {
    const std::unique_ptr<XML_ParserStruct, FreeParser> parser(XML_ParserCreate("UTF-8"));
    if (!parser)
        throw std::bad_alloc();
    // The parser takes its input in pieces, because it counts them in an int.
    constexpr std::size_t pieceBytes = 1 << 28;
    for (std::size_t start = 0; start == 0 || start < text.size(); start += pieceBytes) {
        const std::string_view piece = text.substr(start, pieceBytes);
        const bool isLast = start + piece.size() == text.size();
        if (XML_Parse(parser.get(), piece.data(), static_cast<int>(piece.size()), isLast) !=
            XML_STATUS_OK)
            return false;
    }
    return true;
}

} // namespace

bool isWellFormed(const Core::String& document) {
    try {
        return parses(Core::Encoder::convertStringToUTF8(document).view());
    } catch (const Core::Exception&) {
        return false; // half a surrogate pair
    }
}

} // namespace Xml
