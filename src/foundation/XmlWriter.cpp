#include "foundation/XmlWriter.h"

namespace Core::IO {

XmlWriter::XmlWriter(Stream* stream, Encoding encoding, int mark)
    : TextWriter(stream, encoding, mark == withMark) {}

XmlWriter::~XmlWriter() = default;

} // namespace Core::IO
