#pragma once

/// So much is read again in less time than it takes to remember it and to forget it in time.
namespace ReadAgain {

inline constexpr int tags = 16;
inline constexpr int units = 256;

} // namespace ReadAgain
