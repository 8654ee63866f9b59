#pragma once

#include <atomic>
#include <cstddef>
#include <new>

namespace sparlow::test {

/// While it lives, allocations of smallest to largest bytes fail with std::bad_alloc, on every
/// thread. Needs AllocationFailure.cpp in the test program, and its linker options.
struct AllocationFailure {
  AllocationFailure(std::size_t smallest, std::size_t largest) {
    from = smallest;
    to = largest;
  }
  ~AllocationFailure() { to = 0; }
  AllocationFailure(const AllocationFailure&) = delete;
  AllocationFailure& operator=(const AllocationFailure&) = delete;

  static void Consider(std::size_t size) {
    if (size >= from && size <= to)
      throw std::bad_alloc();
  }

  static inline std::atomic<std::size_t> from{1}, to{0};
};

}  // namespace sparlow::test
