#include "support/FailingAllocation.h"

#include <cstdlib>
#include <new>

namespace {

long remaining = -1; // until the allocation that fails; below zero none does
bool failed = false;

bool mustFail() {
    if (remaining < 0 || remaining-- > 0)
        return false;
    failed = true;
    return true;
}

} // namespace

FailingAllocation::FailingAllocation(long n) {
    failed = false;
    remaining = n;
}

FailingAllocation::~FailingAllocation() {
    remaining = -1;
}

bool FailingAllocation::hasFailed() {
    return failed;
}

void* operator new(std::size_t size) {
    for (;;) {
        if (void* memory = mustFail() ? nullptr : std::malloc(size > 0 ? size : 1))
            return memory;
        const std::new_handler handler = std::get_new_handler();
        if (!handler)
            throw std::bad_alloc();
        handler();
    }
}

/// Told apart by the sanitizers, which would otherwise bring their own beside the others here.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return mustFail() ? nullptr : std::malloc(size > 0 ? size : 1);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
