#pragma once

#include <atomic>
#include <cstdint>

namespace sparlow::test {

/// While it lives, allocations of so many bytes fail with std::bad_alloc, on every thread. Needs
/// AllocationFailure.cpp in the test program, and its linker options.
struct AllocationFailure {
  explicit AllocationFailure(std::size_t bytes) { failing = bytes; }
  ~AllocationFailure() { failing = SIZE_MAX; }
  AllocationFailure(const AllocationFailure&) = delete;
  AllocationFailure& operator=(const AllocationFailure&) = delete;

  static inline std::atomic<std::size_t> failing{SIZE_MAX};
};

}  // namespace sparlow::test
