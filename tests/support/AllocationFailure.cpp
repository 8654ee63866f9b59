#include "tests/support/AllocationFailure.h"

#include <cstdlib>
#include <new>

using sparlow::test::AllocationFailure;

namespace {

void* allocate(std::size_t size, std::size_t alignment) {
  const bool fails = size >= AllocationFailure::from && size <= AllocationFailure::to;
  const std::size_t whole = (size / alignment + 1) * alignment;
  if (void* memory = fails ? nullptr : std::aligned_alloc(alignment, whole))
    return memory;
  throw std::bad_alloc();
}

}  // namespace

// All forms: a sanitizer has its own for those that are left out.
void* operator new(std::size_t size) {
  return allocate(size, alignof(std::max_align_t));
}
void* operator new[](std::size_t size) {
  return allocate(size, alignof(std::max_align_t));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return allocate(size, static_cast<std::size_t>(alignment));
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
void operator delete(void* memory, std::align_val_t) noexcept {
  std::free(memory);
}
