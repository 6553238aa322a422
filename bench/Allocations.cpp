#include "Allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

long long count = 0;

} // namespace

long long allocations() noexcept {
    return count;
}

void* operator new(std::size_t size) {
    ++count;
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
