#include "support/WellFormed.h"

#include "foundation/Encoder.h"

#include <expat.h>

#include <memory>
#include <type_traits>

std::string xmlError(const Core::String& text) {
    const std::string bytes = Core::Encoder::toDisplayText(text);
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate("UTF-8"), &XML_ParserFree);
    if (XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()), XML_TRUE) ==
        XML_STATUS_OK)
        return {};
    return std::to_string(XML_GetCurrentLineNumber(parser.get())) + ":" +
           std::to_string(XML_GetCurrentColumnNumber(parser.get()) + 1) + ": " +
           XML_ErrorString(XML_GetErrorCode(parser.get()));
}
