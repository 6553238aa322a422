#include "foundation/Stream.h"

#include "foundation/Exception.h"

namespace Core::IO {

Stream::~Stream() = default;

String Stream::name() const {
    return {};
}

void Stream::fail(const String& reason) const {
    throw Exception(name().empty() ? reason : name() + L": " + reason);
}

unsigned char* Stream::placeFor(ByteArray* buffer, long long offset, long long count) const {
    if (!buffer || offset < 0 || count < 0)
        fail(L"no place in the buffer to read into");
    const auto end = static_cast<std::size_t>(offset) + static_cast<std::size_t>(count);
    if (end > buffer->size())
        buffer->resize(end);
    return buffer->ptr() + offset;
}

const unsigned char* Stream::pieceOf(const ByteArray* buffer, long long offset,
                                     long long count) const {
    const auto size = buffer ? static_cast<long long>(buffer->size()) : 0;
    if (!buffer || offset < 0 || count < 0 || offset > size || count > size - offset)
        fail(L"the piece to write does not lie in the buffer");
    return buffer->ptr() + offset;
}

} // namespace Core::IO
