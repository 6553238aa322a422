#include "ParserMemory.h"

#include <algorithm>
#include <new>

void* ParserMemory::allocate(void* memory, std::size_t size) {
    auto& own = *static_cast<ParserMemory*>(memory);
    if (void* const block = own.take(size))
        return block;
    // No exception may pass through the parser's frames, and none of them has anything to clean up.
    std::longjmp(own.refused, 1); // NOLINT(cert-err52-cpp)
}

void ParserMemory::release(void*, void*) {}

void* ParserMemory::take(std::size_t size) noexcept {
    constexpr std::size_t chunk = std::size_t(1) << 16;
    constexpr std::size_t alignment = alignof(std::max_align_t);
    size = (size + alignment - 1) / alignment * alignment;
    if (size > left_) {
        const std::size_t wanted = std::max(size, chunk);
        if (wanted > granted_)
            return nullptr;
        try {
            chunks_.push_back(std::unique_ptr<char[]>(new char[wanted]));
        } catch (const std::bad_alloc&) {
            return nullptr;
        }
        granted_ -= wanted;
        free_ = chunks_.back().get();
        left_ = wanted;
    }
    void* const block = free_;
    free_ += size;
    left_ -= size;
    return block;
}
