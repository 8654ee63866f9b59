#pragma once

#include <cstddef>

namespace sparlow {

/// Asks the system to back memory by large pages when it is touched: one fault instead of five
/// hundred. Pieces that lie side by side can share them. The system may do otherwise; it forgets
/// the advice when the allocator gives the memory back.
void AdviseLargePages(void* memory, std::size_t bytes) noexcept;

}  // namespace sparlow
