#include "sparlow/data/LargePages.h"

#include <cstdint>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace sparlow {

void AdviseLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) noexcept {
#if defined(__linux__)
  constexpr std::uintptr_t page = 4096;  // of the small ones, which advice is given in
  const auto begin = reinterpret_cast<std::uintptr_t>(memory);
  const std::uintptr_t from = begin & ~(page - 1), to = (begin + bytes + page - 1) & ~(page - 1);
  madvise(reinterpret_cast<void*>(from), to - from, MADV_HUGEPAGE);
#endif
}

}  // namespace sparlow
