#include "tests/support/AllocationFailure.h"

#include <cstdlib>
#include <new>

using sparlow::test::AllocationFailure;

// All forms that the library uses: a sanitizer has its own for those that are left out.
void* operator new(std::size_t size) {
  const bool fails = size >= AllocationFailure::from && size <= AllocationFailure::to;
  if (void* memory = fails ? nullptr : std::malloc(size != 0 ? size : 1))
    return memory;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}
