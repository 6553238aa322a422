#pragma once

#include "foundation/Api.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Core {

/// A sequence of bytes with value semantics.
class FORME_API ByteArray {
public:
    ByteArray() = default;
    ByteArray(const unsigned char* bytes, std::size_t count) : bytes_(bytes, bytes + count) {}
    explicit ByteArray(std::string_view bytes) : bytes_(bytes.begin(), bytes.end()) {}

    /// The first byte; valid until the next change, and not to be read when the size is 0.
    const unsigned char* ptr() const { return bytes_.data(); }
    unsigned char* ptr() { return bytes_.data(); }
    std::size_t size() const { return bytes_.size(); }

    /// Makes the array `count` bytes long; new bytes are zero.
    void resize(std::size_t count) { bytes_.resize(count); }

    std::string_view view() const {
        return {reinterpret_cast<const char*>(bytes_.data()), bytes_.size()};
    }

private:
    std::vector<unsigned char> bytes_;
};

} // namespace Core
