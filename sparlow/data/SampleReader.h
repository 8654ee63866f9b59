#pragma once

#include <algorithm>
#include <memory>
#include <utility>

#include "sparlow/data/SampleStore.h"

namespace sparlow {

/// The samples of a series as they stood at one moment: it keeps them alive and in place, also when
/// the series starts a new data set meanwhile. An operation takes one and works on that alone.
/// Threads: the one that took it. Samples below size() change only through Set and Sort.
class SampleReader {
 public:
  SampleReader() = default;
  /// The first samples of a store, limit at most. A null store has none.
  SampleReader(std::shared_ptr<const SampleStore> store, unsigned limit)
      : store_(std::move(store)), size_(store_ ? std::min(limit, store_->Size()) : 0) {
    // After the size: the table then holds every block that the size counts.
    blocks_ = store_ ? store_->Blocks() : nullptr;
  }

  unsigned size() const { return size_; }
  bool empty() const { return size_ == 0; }
  /// Not checked: sample is below size().
  double x(unsigned sample) const { return of(sample).xAt(sample & SampleBlock::kMask); }
  double y(unsigned sample) const { return of(sample).yAt(sample & SampleBlock::kMask); }
  bool slope(unsigned sample) const { return of(sample).slopeAt(sample & SampleBlock::kMask); }

  /// Not checked: b is below blockCount().
  const SampleBlock& block(unsigned b) const { return *blocks_[b]; }
  unsigned blockCount() const { return (size_ + SampleBlock::kMask) >> SampleBlock::kShift; }
  /// Samples of block b that size() counts.
  unsigned countIn(unsigned b) const {
    return std::min(SampleBlock::kSamples, size_ - (b << SampleBlock::kShift));
  }

  bool ascending() const { return !store_ || store_->Ascending(); }
  /// SampleStore::Serial; 0 without a store.
  std::uint64_t serial() const { return store_ ? store_->Serial() : 0; }

 private:
  const SampleBlock& of(unsigned sample) const { return *blocks_[sample >> SampleBlock::kShift]; }

  std::shared_ptr<const SampleStore> store_;
  unsigned size_ = 0;
  const SampleBlock* const* blocks_ = nullptr;
};

}  // namespace sparlow
