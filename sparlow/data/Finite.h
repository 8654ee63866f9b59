#pragma once

#include <bit>
#include <cstdint>

namespace sparlow {

/// Neither of two numbers is infinite or not a number. By their bits: a program that is built with
/// fast mathematics has the compiler take every comparison that would tell for granted.
/// Threads: works on its arguments alone; any.
inline bool BothFinite(double a, double b) noexcept {
  constexpr std::uint64_t exponent = 0x7FF0'0000'0000'0000;
  return (std::bit_cast<std::uint64_t>(a) & exponent) != exponent &&
         (std::bit_cast<std::uint64_t>(b) & exponent) != exponent;
}

}  // namespace sparlow
