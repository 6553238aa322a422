#include "templates/EntityTexts.h"

#include "foundation/Encoder.h"
#include "foundation/MemoryStream.h"
#include "foundation/xml/DomParser.h"

using Core::String;

SmartPtr<Xml::XmlDocument> EntityTexts::replacedIn(const String& element,
                                                   const String& documentType) {
    Xml::DomParser parser;
    parser.setSubstituteEntities(true);
    parser.parseStream(SmartPtr<Core::IO::Stream>(
        new Core::IO::MemoryStream(Core::Encoder::convertStringToUTF8(documentType + element))));
    return parser.getDocument();
}
