#pragma once

#include "foundation/Api.h"
#include "foundation/TextWriter.h"

namespace Core::IO {

/// Writes the text of an XML document. The declaration in the text is written as it stands: whoever
/// changes the encoding changes it too, or relies on the byte order mark, which readers believe
/// first.
class FORME_API XmlWriter : public TextWriter {
public:
    static constexpr int withMark = 2;
    static constexpr int withoutMark = 4;

    /// Shares `stream` like a SmartPtr, so it lives on the heap. Any `mark` but `withMark` means
    /// none.
    XmlWriter(Stream* stream, Encoding encoding, int mark);
    ~XmlWriter() override;
};

} // namespace Core::IO
