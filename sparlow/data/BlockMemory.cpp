#include "sparlow/data/BlockMemory.h"

#include <algorithm>
#include <new>
#include <utility>

#include "sparlow/data/SampleBlock.h"
#include "sparlow/platform/LargePages.h"

namespace sparlow {

namespace {

// Fills whole large pages but for some kilobytes.
constexpr unsigned kMostBlocks = 63;
static_assert(kMostBlocks * sizeof(SampleBlock) % kLargePageBytes < sizeof(SampleBlock));

}  // namespace

void* BlockMemory::Take() {
  if (left_ == 0) {
    unsigned blocks = std::clamp(total_, 1u, kMostBlocks);
    try {
      pieces_.push_back(makePiece(blocks));
    } catch (const std::bad_alloc&) {
      // There may still be room for a single one.
      if (blocks == 1)
        throw;
      blocks = 1;
      pieces_.push_back(makePiece(blocks));
    }
    next_ = pieces_.back().get();
    left_ = blocks;
    total_ += blocks;
    bytes_ += blocks * sizeof(SampleBlock);
  }
  --left_;
  return std::exchange(next_, next_ + sizeof(SampleBlock));
}

BlockMemory::Piece BlockMemory::makePiece(unsigned blocks) {
  const std::size_t bytes = blocks * sizeof(SampleBlock);
  const bool large = bytes >= kLargePageBytes;
  void* const memory =
      large ? ::operator new (bytes, std::align_val_t{kLargePageBytes}) : ::operator new(bytes);
  if (large)
    AdviseLargePages(memory, bytes);
  return Piece(static_cast<std::byte*>(memory), Release{large});
}

void BlockMemory::Release::operator()(std::byte* piece) const {
  if (large)
    ::operator delete (piece, std::align_val_t{kLargePageBytes});
  else
    ::operator delete(piece);
}

}  // namespace sparlow
