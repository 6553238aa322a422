#pragma once

#include "foundation/Api.h"
#include "foundation/TextReader.h"

namespace Core::IO {

/// Reads an XML document, whatever its encoding: a byte order mark tells it, without one the
/// encoding that the XML declaration names, and without either it is UTF-8. UTF-16 is known without
/// a mark too, by its first characters. Besides what TextReader refuses, it refuses an empty
/// document, a name that is no known encoding, and one that contradicts the bytes it is written in.
class FORME_API XmlReader : public TextReader {
public:
    explicit XmlReader(SmartPtr<Stream> stream);
    ~XmlReader() override;

private:
    std::unique_ptr<Decoder> chooseDecoder(std::string_view head,
                                           std::unique_ptr<Decoder> marked) override;
    std::unique_ptr<Decoder> declaredDecoder(std::string_view declaration, std::string_view name,
                                             std::size_t nameOffset) const;
};

} // namespace Core::IO
