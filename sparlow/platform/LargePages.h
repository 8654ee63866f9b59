#pragma once

#include <cstddef>

namespace sparlow {

/// What large pages of memory are aligned to, in bytes.
inline constexpr std::size_t kLargePageBytes = std::size_t{2} << 20;

/// Asks the system to back memory by large pages when it is touched: one fault instead of five
/// hundred. memory is aligned to them; a last one that it fills but for less than a small page counts
/// as filled. The system may do otherwise, and nothing else changes.
/// Threads: any.
void AdviseLargePages(void* memory, std::size_t bytes) noexcept;

}  // namespace sparlow
