#pragma once

#include "foundation/Api.h"

#include <cstddef>

namespace Core {

/// The one place from which the library's string arrays take their memory.
class FORME_API Allocator {
public:
    /// Returns `size` bytes aligned for any object; throws std::bad_alloc when there are none.
    static void* alloc(std::size_t size);

    /// Gives back what alloc() returned. Null is allowed and does nothing.
    static void free(void* memory) noexcept;
};

/// Lets a standard container allocate through Allocator.
template <typename T>
class STLAllocator {
public:
    using value_type = T;

    STLAllocator() noexcept = default;
    template <typename U>
    STLAllocator(const STLAllocator<U>&) noexcept {}

    T* allocate(std::size_t count) { return static_cast<T*>(Allocator::alloc(count * sizeof(T))); }
    void deallocate(T* memory, std::size_t) noexcept { Allocator::free(memory); }

    friend bool operator==(const STLAllocator&, const STLAllocator&) noexcept { return true; }
};

} // namespace Core
