#include "foundation/Allocator.h"

#include <new>

namespace Core {

void* Allocator::alloc(std::size_t size) {
    return ::operator new(size);
}

void Allocator::free(void* memory) noexcept {
    ::operator delete(memory);
}

} // namespace Core
