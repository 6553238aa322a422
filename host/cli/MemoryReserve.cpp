#include "MemoryReserve.h"

#include <utility>

namespace {

MemoryReserve* current = nullptr;

} // namespace

MemoryReserve::MemoryReserve()
    : memory_(new std::array<std::byte, 1 << 16>), outer_(std::exchange(current, this)),
      handler_(std::set_new_handler(giveUp)) {}

MemoryReserve::~MemoryReserve() {
    std::set_new_handler(handler_);
    current = outer_;
}

/// What this frees is tried next.
void MemoryReserve::giveUp() {
    if (!current->memory_)
        throw std::bad_alloc();
    current->memory_.reset();
}

void MemoryReserve::requireUntouched() const {
    if (!memory_)
        throw std::bad_alloc();
}
