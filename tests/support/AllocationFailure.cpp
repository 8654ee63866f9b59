#include "tests/support/AllocationFailure.h"

#include <new>

// The linker brings what the program's own objects ask of operator new here (--wrap). Replacements of
// the operators themselves won't do: a sanitizer may have its own, which no program replaces.
extern "C" {
void* __real__Znwm(std::size_t size);
void* __real__Znam(std::size_t size);

void* __wrap__Znwm(std::size_t size) {
  return size == sparlow::test::AllocationFailure::failing ? throw std::bad_alloc()
                                                           : __real__Znwm(size);
}
void* __wrap__Znam(std::size_t size) {
  return size == sparlow::test::AllocationFailure::failing ? throw std::bad_alloc()
                                                           : __real__Znam(size);
}
}
