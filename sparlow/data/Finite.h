#pragma once

#include <bit>
#include <cstdint>

namespace sparlow {

/// Neither of two numbers is infinite or not a number. By their bits: a program that is built with
/// fast mathematics has the compiler take every comparison that would tell for granted.
inline bool BothFinite(double a, double b) noexcept {
  constexpr std::uint64_t limit = 0xFFE0'0000'0000'0000;
  const auto finite = [](double d) { return std::bit_cast<std::uint64_t>(d) << 1 < limit; };
  // A sum of what isn't finite isn't either. That of two huge numbers may not be, though they are.
  if (finite(a + b)) [[likely]]
    return true;
  return finite(a) && finite(b);
}

}  // namespace sparlow
