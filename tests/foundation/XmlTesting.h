#pragma once

#include "Messages.h"
#include "foundation/Encoder.h"
#include "foundation/xml/DomParser.h"
#include "foundation/xml/ParseException.h"

#include <string>
#include <string_view>

inline void feed(Xml::DomParser& parser, std::string_view text) {
    parser.parseMemory(reinterpret_cast<const unsigned char*>(text.data()), text.size());
}

inline SmartPtr<Xml::XmlDocument> parse(std::string_view text) {
    Xml::DomParser parser;
    feed(parser, text);
    return parser.getDocument();
}

inline std::string narrow(const Core::String& text) {
    return Core::Encoder::toDisplayText(text);
}

inline std::string written(const SmartPtr<Xml::XmlDocument>& document) {
    return narrow(document->writeToString("UTF-8"));
}

inline std::string rewritten(std::string_view text) {
    return written(parse(text));
}
