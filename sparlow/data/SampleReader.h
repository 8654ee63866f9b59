#pragma once

#include <algorithm>
#include <memory>
#include <utility>

#include "sparlow/data/SampleStore.h"

namespace sparlow {

/// The samples of a series as they stood at one moment: it keeps them alive and in place, also when
/// the series starts a new data set meanwhile. Those below size() change only
/// through Set and Sort. An operation takes one and works on that alone.
class SampleReader {
 public:
  SampleReader() = default;
  /// The first samples of a store, limit at most. A null store has none.
  SampleReader(std::shared_ptr<const SampleStore> store, unsigned limit)
      : store_(std::move(store)), size_(store_ ? std::min(limit, store_->Size()) : 0) {
    // After the size: the table then holds every block that the size counts.
    entries_ = store_ ? store_->Entries() : nullptr;
  }

  unsigned size() const { return size_; }
  bool empty() const { return size_ == 0; }
  /// Not checked: sample is below size().
  double x(unsigned sample) const { return of(sample).xAt(sample & SampleBlock::kMask); }
  double y(unsigned sample) const { return of(sample).yAt(sample & SampleBlock::kMask); }
  bool slope(unsigned sample) const { return of(sample).slopeAt(sample & SampleBlock::kMask); }

  /// Not checked: b is below blockCount().
  const SampleBlock& block(unsigned b) const { return *entries_[b].block; }
  unsigned blockCount() const { return (size_ + SampleBlock::kMask) >> SampleBlock::kShift; }
  /// Samples of block b that size() counts.
  unsigned countIn(unsigned b) const {
    return std::min(SampleBlock::kSamples, size_ - (b << SampleBlock::kShift));
  }

  /// yMin and yMax of block b; those of full blocks lie side by side.
  YRange AddedIn(unsigned b) const {
    const BlockEntry& entry = entries_[b];
    if (countIn(b) == SampleBlock::kSamples)
      return {entry.addedLow.relaxed(), entry.addedHigh.relaxed()};
    return {entry.block->yMin.relaxed(), entry.block->yMax.relaxed()};
  }
  /// The exact range of y over the samples from a first one up to, and not including, an end: at
  /// the cost of some hundred samples, however many they are. Not checked: end is at most size().
  YRange RangeOfY(unsigned from, unsigned end) const;

  bool ascending() const { return !store_ || store_->Ascending(); }
  /// SampleStore::Serial and Changes; 0 without a store.
  std::uint64_t serial() const { return store_ ? store_->Serial() : 0; }
  unsigned changes() const { return store_ ? store_->Changes() : 0; }

 private:
  const SampleBlock& of(unsigned sample) const {
    return *entries_[sample >> SampleBlock::kShift].block;
  }

  std::shared_ptr<const SampleStore> store_;
  unsigned size_ = 0;
  const BlockEntry* entries_ = nullptr;
};

}  // namespace sparlow
