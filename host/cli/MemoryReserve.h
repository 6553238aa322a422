#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <new>

/// Memory kept for when there is no more, so that a request can run to its end and then be taken
/// back: the JSON library ends the program where even its destructors get none.
class MemoryReserve {
public:
    MemoryReserve();
    ~MemoryReserve();

    MemoryReserve(const MemoryReserve&) = delete;
    MemoryReserve& operator=(const MemoryReserve&) = delete;

    /// Throws std::bad_alloc if the reserve was needed.
    void requireUntouched() const;

private:
    static void giveUp();

    std::unique_ptr<std::array<std::byte, 1 << 16>> memory_;
    MemoryReserve* outer_;
    std::new_handler handler_;
};
