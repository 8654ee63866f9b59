#pragma once

#include <cstddef>

namespace sparlow::test {

/// While it lives, allocations of smallest to largest bytes fail with std::bad_alloc, on every
/// thread. Needs AllocationFailure.cpp in the test program.
class AllocationFailure {
 public:
  AllocationFailure(std::size_t smallest, std::size_t largest);
  ~AllocationFailure();
  AllocationFailure(const AllocationFailure&) = delete;
  AllocationFailure& operator=(const AllocationFailure&) = delete;
};

}  // namespace sparlow::test
