#include "foundation/ObjectId.h"

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr std::wstring_view lettersAndDigits =
    L"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr std::wstring_view letters = lettersAndDigits.substr(0, 52);
constexpr std::size_t idLength = 22;

std::optional<std::mt19937>& seededSource() {
    static std::optional<std::mt19937> source;
    return source;
}

/// 32 random bits.
std::uint64_t randomBits() {
    static std::random_device system;
    return seededSource() ? (*seededSource())() : system();
}

wchar_t anyOf(std::wstring_view units) {
    return units[(randomBits() * units.size()) >> 32U];
}

} // namespace

Core::String ObjectId::generate() {
    std::wstring id(1, anyOf(letters));
    while (id.size() < idLength)
        id += anyOf(lettersAndDigits);
    return Core::String(std::move(id));
}

void ObjectId::seed(unsigned value) {
    seededSource().emplace(value);
}

void ObjectId::unseed() {
    seededSource().reset();
}
