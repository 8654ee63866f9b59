#include "sparlow/data/BlockMemory.h"

#include <new>
#include <utility>

#include "sparlow/data/SampleBlock.h"
#include "sparlow/platform/LargePages.h"

namespace sparlow {

namespace {

// A piece of many blocks ends where a large page ends, but for what the allocator keeps with it: such
// pieces then follow one another without gaps.
constexpr std::size_t kAllocatorBytes = 64;

constexpr std::size_t pieceBytes(unsigned pages) {
  return pages != 0 ? pages * kLargePageBytes - kAllocatorBytes : sizeof(SampleBlock);
}

// The largest piece, in large pages. Its blocks leave less than a hundredth of it unused.
constexpr unsigned kMostPages = 8;
static_assert(pieceBytes(kMostPages) % sizeof(SampleBlock) < pieceBytes(kMostPages) / 100);

}  // namespace

void* BlockMemory::Take() {
  if (left_ == 0) {
    unsigned pages = kMostPages;
    while (pages != 0 && pieceBytes(pages) > bytes_)
      pages /= 2;
    try {
      addPiece(pages);
    } catch (const std::bad_alloc&) {
      if (pages == 0)
        throw;
      addPiece(0);  // there may be room for a single block yet
    }
  }
  --left_;
  return std::exchange(next_, next_ + sizeof(SampleBlock));
}

void BlockMemory::addPiece(unsigned pages) {
  const std::size_t bytes = pieceBytes(pages);
  const bool large = pages != 0;
  void* const memory =
      large ? ::operator new (bytes, std::align_val_t{kLargePageBytes}) : ::operator new(bytes);
  Piece piece(static_cast<std::byte*>(memory), Release{large});
  if (large)
    AdviseLargePages(memory, bytes);
  pieces_.push_back(std::move(piece));
  next_ = pieces_.back().get();
  left_ = static_cast<unsigned>(bytes / sizeof(SampleBlock));
  bytes_ += bytes;
}

void BlockMemory::Release::operator()(std::byte* piece) const {
  if (large)
    ::operator delete (piece, std::align_val_t{kLargePageBytes});
  else
    ::operator delete(piece);
}

}  // namespace sparlow
