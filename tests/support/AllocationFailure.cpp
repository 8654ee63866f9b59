#include "tests/support/AllocationFailure.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> failFrom{1}, failTo{0};

void* allocate(std::size_t size) {
  if (size >= failFrom && size <= failTo)
    throw std::bad_alloc();
  if (void* memory = std::malloc(size != 0 ? size : 1))
    return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
  return allocate(size);
}
void* operator new[](std::size_t size) {
  return allocate(size);
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

namespace sparlow::test {

AllocationFailure::AllocationFailure(std::size_t smallest, std::size_t largest) {
  failFrom = smallest;
  failTo = largest;
}

AllocationFailure::~AllocationFailure() {
  failFrom = 1;
  failTo = 0;
}

}  // namespace sparlow::test
