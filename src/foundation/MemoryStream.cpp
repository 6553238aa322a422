#include "foundation/MemoryStream.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace Core::IO {

MemoryStream::MemoryStream(ByteArray bytes) : bytes_(std::move(bytes)) {}

MemoryStream::~MemoryStream() = default;

long long MemoryStream::length() {
    return static_cast<long long>(bytes_.size());
}

long long MemoryStream::read(ByteArray* buffer, long long offset, long long count) {
    const long long available = std::max(0LL, length() - position_);
    const long long taken = std::min(count, available);
    unsigned char* to = placeFor(buffer, offset, taken);
    if (taken > 0)
        std::memmove(to, bytes_.ptr() + position_, static_cast<std::size_t>(taken));
    position_ += taken;
    return taken;
}

void MemoryStream::write(ByteArray* buffer, long long offset, long long count) {
    pieceOf(buffer, offset, count);
    if (count == 0)
        return;
    const long long end = position_ + count;
    if (end > length())
        bytes_.resize(static_cast<std::size_t>(end));
    const unsigned char* from = pieceOf(buffer, offset, count);
    std::memmove(bytes_.ptr() + position_, from, static_cast<std::size_t>(count));
    position_ = end;
}

long long MemoryStream::seek(long long offset, SeekOrigin origin) {
    const long long base = origin == SeekOrigin::Begin     ? 0
                           : origin == SeekOrigin::Current ? position_
                                                           : length();
    if (offset < -base || offset > std::numeric_limits<long long>::max() - base)
        fail(L"a position before the beginning");
    return position_ = base + offset;
}

} // namespace Core::IO
