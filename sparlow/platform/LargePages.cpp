#include "sparlow/platform/LargePages.h"

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace sparlow {

void AdviseLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) noexcept {
#if defined(__linux__)
  constexpr std::size_t kSmallPageBytes = 4096;
  const std::size_t pages = (bytes + kSmallPageBytes - 1) / kLargePageBytes;
  madvise(memory, pages * kLargePageBytes, MADV_HUGEPAGE);
#endif
}

}  // namespace sparlow
