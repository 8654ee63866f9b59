#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "sparlow/data/SampleBlock.h"
#include "sparlow/platform/base/CopyableAtomic.h"

namespace sparlow {

class BlockTable;
struct Appended;
struct SampleSpan;

/// The samples of one data set, in blocks that live as long as anybody holds the store. A series
/// that starts a new data set takes a new store and leaves the old one to its readers.
///
/// A waveform's store keeps a slope flag for each sample and has one block.
/// Threads: one adds, overwrites and sorts; any number reads below Size().
class SampleStore {
 public:
  /// Indices of samples are ints wherever cursors and scroll bars count in them.
  static constexpr unsigned kMaxSamples = 0x7FFFFFFF;

  /// With its first block. limit is the number of samples beyond which none are taken. Throws Error
  /// with code 0xFF04 when there is no memory for the block table, std::bad_alloc for the rest.
  explicit SampleStore(bool waveform, unsigned limit = kMaxSamples);
  ~SampleStore();
  SampleStore(const SampleStore&) = delete;
  SampleStore& operator=(const SampleStore&) = delete;

  /// @name Reading
  /// Of samples that Size() once counted; not checked.
  ///@{

  unsigned Size() const { return size_.load(); }
  /// The same for the thread that adds.
  unsigned OwnSize() const { return size_.relaxed(); }
  const BlockEntry* Entries() const { return entries_.load(); }
  const SampleBlock& Block(unsigned sample) const {
    return *Entries()[sample >> SampleBlock::kShift].block;
  }
  double x(unsigned sample) const { return Block(sample).xAt(sample & SampleBlock::kMask); }
  double y(unsigned sample) const { return Block(sample).yAt(sample & SampleBlock::kMask); }
  bool slope(unsigned sample) const { return Block(sample).slopeAt(sample & SampleBlock::kMask); }
  bool Waveform() const { return waveform_; }
  /// No sample's x is below that of the one before it. Once false it may stay so when samples are
  /// overwritten, though order has come back.
  bool Ascending() const { return ascending_.relaxed(); }
  /// How often samples that were there have been overwritten or sorted.
  unsigned Changes() const { return changes_; }
  /// Distinguishes this data set from any other of the process; never 0.
  std::uint64_t Serial() const { return serial_; }
  ///@}

  /// @name Capacity
  ///@{

  unsigned nCapacity() const { return (iLastBlock() + 1) << SampleBlock::kShift; }
  unsigned nBlocksMax() const;
  unsigned iLastBlock() const;
  /// Bytes that the store takes: samples, their ranges, tables. The feeding thread's to ask.
  std::size_t MemoryUse() const;
  /// The next sample needs Grow first, or is beyond the limit.
  bool Full() const { return FullAt(size_.relaxed()); }
  bool FullAt(unsigned size) const { return size >= appendEnd_; }
  /// No sample is taken any more.
  bool AtLimit() const { return size_.relaxed() >= limit_; }
  /// The next Grow moves the block table.
  bool TableFull() const { return iLastBlock() + 1 == nBlocksMax(); }
  ///@}

  /// @name Writing
  ///@{

  /// Makes room for one more block. Throws as the constructor does and leaves the store as it was.
  void Grow();
  /// Appends a finite sample behind the `size` that there are, unless Full().
  void Append(unsigned size, double x, double y, bool slope);
  /// Appends the finite samples of a span from its sample begin on, as far as the block in work has
  /// room. Not when Full().
  Appended Append(const SampleSpan& samples, std::size_t begin);
  /// Overwrites a sample below Size().
  void Set(unsigned sample, double x, double y, bool slope);
  /// Sorts the first block by x. Meant for a waveform, which has no other.
  void SortFirstBlock();
  ///@}

 private:
  void open(SampleBlock* block);
  void finishRun(unsigned end);
  void finishBlock(BlockEntry& entry);
  static void summarize(BlockEntry& entry);
  void takeRun(unsigned place, unsigned count, const YRange& range);
  void widenBlock(const YRange& range);
  bool ordered(unsigned sample) const;

  // Read by anyone.
  const std::uint64_t serial_;
  const bool waveform_;
  CopyableAtomic<bool> ascending_ = true;
  CopyableAtomic<unsigned> changes_ = 0u;
  CopyableAtomic<unsigned> size_ = 0u;
  CopyableAtomic<BlockEntry*> entries_ = nullptr;

  // The writer's own.
  const unsigned limit_;
  unsigned appendEnd_ = 0;  // size that the blocks, or the limit, allow
  SampleBlock* lastBlock_ = nullptr;
  YRange lastRange_;  // yMin and yMax of that block, in the writer's own memory
  double lastX_ = SampleBlock::kNoMax;
  const std::unique_ptr<BlockTable> blocks_;
};

inline void SampleStore::Append(unsigned size, double x, double y, bool slope) {
  lastBlock_->Write(size & SampleBlock::kMask, x, y, slope);
  if (lastRange_.Misses(y)) [[unlikely]]
    widenBlock({y, y});
  if (x < lastX_) [[unlikely]]
    ascending_.setRelaxed(false);
  lastX_ = x;
  // Before the size that lets readers take the run as a whole.
  if ((~size & (SampleBlock::kRunSamples - 1)) == 0) [[unlikely]]
    finishRun(size + 1);
  size_.store(size + 1);
}

}  // namespace sparlow
