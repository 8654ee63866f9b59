#pragma once

#include <cstdint>

namespace sparlow {

/// What the library throws, by value, for the host to catch. A block of samples that can't be
/// allocated is no Error but the allocator's own exception.
class Error {
 public:
  /// A view has no rendered columns.
  static constexpr std::int32_t kNotRendered = 0xFF03;
  /// No memory for the block table of a series.
  static constexpr std::int32_t kNoTableMemory = 0xFF04;

  explicit Error(std::int32_t errorCode) : code(errorCode) {}

  std::int32_t code;
};

}  // namespace sparlow
