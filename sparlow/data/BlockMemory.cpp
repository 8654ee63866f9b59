#include "sparlow/data/BlockMemory.h"

#include <new>
#include <utility>

#include "sparlow/data/LargePages.h"
#include "sparlow/data/SampleBlock.h"

namespace sparlow {

namespace {

// A piece of many blocks and what an allocator keeps beside it are whole large pages, which
// fit a mapping that a system aligns to them.
constexpr std::size_t kPageBytes = std::size_t{2} << 20;
constexpr std::size_t kAllocatorBytes = 64;

constexpr std::size_t pieceBytes(unsigned pages) {
  return pages != 0 ? pages * kPageBytes - kAllocatorBytes : sizeof(SampleBlock);
}

// The largest piece, in large pages. Its blocks leave less than a hundredth of it unused.
constexpr unsigned kMostPages = 8;
static_assert(pieceBytes(kMostPages) % sizeof(SampleBlock) < pieceBytes(kMostPages) / 100);
static_assert(alignof(SampleBlock) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);

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

// Not allocated with an alignment: allocators find such a piece hard to use again, and would grow
// with each data set.
void BlockMemory::addPiece(unsigned pages) {
  const std::size_t bytes = pieceBytes(pages);
  auto piece = std::make_unique_for_overwrite<std::byte[]>(bytes);
  if (pages != 0)
    AdviseLargePages(piece.get(), bytes);
  pieces_.push_back(std::move(piece));
  next_ = pieces_.back().get();
  left_ = static_cast<unsigned>(bytes / sizeof(SampleBlock));
  bytes_ += bytes;
}

std::size_t BlockMemory::Bytes() const {
  return bytes_ + pieces_.capacity() * sizeof(pieces_[0]);
}

}  // namespace sparlow
