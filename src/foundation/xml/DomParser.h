#pragma once

#include "foundation/Api.h"
#include "foundation/SmartPtr.h"
#include "foundation/Stream.h"
#include "foundation/String.h"
#include "foundation/xml/Parser.h"
#include "foundation/xml/XmlDocument.h"

#include <cstddef>

namespace Xml {

/// Reads XML text into a tree.
///
/// The encoding is found from the byte order mark and the XML declaration. Prefixes are kept as
/// written and need no declaration. A text that is not well formed is refused with a
/// ParseException, and so are one whose elements nest more than 4096 deep, one whose entities
/// expand to far more than its own size, and one that refers to an entity outside of itself:
/// nothing outside is ever read. Bytes that cannot be decoded are refused with a Core::Exception.
class FORME_API DomParser : public Parser {
public:
    DomParser() = default;
    ~DomParser() override;

    /// Reads from the stream's position to its end.
    void parseStream(const SmartPtr<Core::IO::Stream>& stream);
    void parseFile(const Core::String& path);
    void parseMemory(const unsigned char* bytes, std::size_t count);

    /// The document that was read last; null before, and after a parse that failed. The parser
    /// holds on to it until it parses again or dies, and a SmartPtr to it for longer.
    XmlDocument* getDocument() const { return document_.get(); }

private:
    SmartPtr<XmlDocument> document_;
};

} // namespace Xml
