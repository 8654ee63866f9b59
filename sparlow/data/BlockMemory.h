#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace sparlow {

/// Room for the blocks of a store, taken from the system for many at a time: touching memory for
/// the first time costs more than filling it, and large pieces can have large pages.
///
/// A series of few blocks has them one by one; then each piece may double the room, up to 16 MiB.
/// Threads: one takes; given back as a whole.
class BlockMemory {
 public:
  /// Uninitialised memory for a SampleBlock, good until the end of this. Throws std::bad_alloc and
  /// then has changed nothing.
  void* Take();
  /// Bytes taken from the system.
  std::size_t Bytes() const;

 private:
  void addPiece(unsigned pages);

  std::vector<std::unique_ptr<std::byte[]>> pieces_;
  std::byte* next_ = nullptr;
  unsigned left_ = 0;  // blocks behind next_
  std::size_t bytes_ = 0;
};

}  // namespace sparlow
