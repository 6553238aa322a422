#pragma once

#include <csetjmp>
#include <cstddef>
#include <memory>
#include <vector>

/// The memory of one run of a parser that is written in C: what it asks for comes from here, and
/// all of it goes at once, so that no tree is climbed to free it. A parser that wants more than was
/// granted is left where it stands.
class ParserMemory {
public:
    explicit ParserMemory(std::size_t most) : granted_(most) {}

    ParserMemory(const ParserMemory&) = delete;
    ParserMemory& operator=(const ParserMemory&) = delete;

    /// In the form in which a parser calls them, with this object behind the pointer.
    static void* allocate(void* memory, std::size_t size);
    static void release(void* memory, void* block);

    /// Set before the parser runs, and gone back to where it is refused memory.
    std::jmp_buf refused;

private:
    void* take(std::size_t size) noexcept;

    std::vector<std::unique_ptr<char[]>> chunks_;
    char* free_ = nullptr;
    std::size_t left_ = 0;
    std::size_t granted_;
};
