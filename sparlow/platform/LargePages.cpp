#include "sparlow/platform/LargePages.h"

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace sparlow {

void AdviseLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) noexcept {
#if defined(__linux__)
  // Advice takes whole large pages; the small ones behind the last are left as they are.
  madvise(memory, bytes & ~(kLargePageBytes - 1), MADV_HUGEPAGE);
#endif
}

}  // namespace sparlow
