#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>

#include "sparlow/platform/base/CopyableAtomic.h"

namespace sparlow {

/// The lowest and the highest of some values of y; without any, low is above high.
struct YRange {
  double low = std::numeric_limits<double>::max();
  double high = std::numeric_limits<double>::lowest();

  void Include(double y) {
    low = std::min(low, y);
    high = std::max(high, y);
  }
  bool Misses(double y) const { return y < low || y > high; }
  void Include(const YRange& other) {
    low = std::min(low, other.low);
    high = std::max(high, other.high);
  }
};

/// Lowers or raises a bound that one thread writes, on a strict comparison.
inline void Widen(CopyableAtomic<double>& low, CopyableAtomic<double>& high, double value) {
  if (value < low.relaxed())
    low.setRelaxed(value);
  if (value > high.relaxed())
    high.setRelaxed(value);
}

/// One block of a series: 8192 samples that never move, the y range of what was added, and the
/// exact y ranges of each run of 64 samples and of each group of 16 runs.
///
/// Samples are read and overwritten by the operations below, each of which is whole; a reader stays
/// below the published size of the store. yMin and yMax keep what Add saw, and an overwritten
/// sample leaves them alone; the ranges of the runs follow every change.
/// Threads: one writes, any number reads what was published.
struct SampleBlock {
  static constexpr unsigned kShift = 13;
  static constexpr unsigned kSamples = 1u << kShift;
  static constexpr unsigned kMask = kSamples - 1;
  static constexpr unsigned kRunShift = 6;
  static constexpr unsigned kRunSamples = 1u << kRunShift;
  static constexpr unsigned kRuns = kSamples / kRunSamples;
  static constexpr unsigned kGroupShift = 10;  ///< of 16 runs
  static constexpr unsigned kGroupSamples = 1u << kGroupShift;
  static constexpr unsigned kGroups = kSamples / kGroupSamples;
  /// Where a smallest and a largest value start before there is any.
  static constexpr double kNoMin = std::numeric_limits<double>::max();
  static constexpr double kNoMax = std::numeric_limits<double>::lowest();

  explicit SampleBlock(bool withSlopes);

  double xAt(unsigned place) const { return whole(x[place]).load(std::memory_order_relaxed); }
  double yAt(unsigned place) const { return whole(y[place]).load(std::memory_order_relaxed); }
  /// Returns false in a block without slopes.
  bool slopeAt(unsigned place) const {
    return slope && whole(slope[place]).load(std::memory_order_relaxed) != 0;
  }

  /// The exact y range of a finished run, of a finished group.
  YRange RunRange(unsigned run) const { return {runMin[run].relaxed(), runMax[run].relaxed()}; }
  YRange GroupRange(unsigned group) const {
    return {groupMin[group].relaxed(), groupMax[group].relaxed()};
  }
  /// The exact y range of a full block.
  YRange RangeOfGroups() const;
  /// Writes a sample that nobody reads yet.
  void Write(unsigned place, double newX, double newY, bool newSlope) {
    x[place] = newX;
    y[place] = newY;
    if (slope) [[unlikely]]
      slope[place] = newSlope ? 1 : 0;
  }
  /// Works out the ranges that end before a place, a multiple of kRunSamples: all samples before it
  /// are written. A reader uses them only when it knows of those samples.
  void FinishRun(unsigned end);
  /// The same when the range of the run is known.
  void FinishRun(unsigned end, const YRange& range);
  /// Overwrites one of `count` samples.
  void Set(unsigned place, double newX, double newY, bool newSlope, unsigned count);
  /// Selection sort of the first `count` samples; slopes go with their samples.
  void SortByX(unsigned count);

  double x[kSamples];
  double y[kSamples];
  std::unique_ptr<std::uint8_t[]> slope;
  CopyableAtomic<double> yMin = kNoMin;
  CopyableAtomic<double> yMax = kNoMax;
  /// Of finished runs, and of finished groups; what stands for others means nothing.
  CopyableAtomic<double> runMin[kRuns];
  CopyableAtomic<double> runMax[kRuns];
  CopyableAtomic<double> groupMin[kGroups];
  CopyableAtomic<double> groupMax[kGroups];

 private:
  template <class T>
  static std::atomic_ref<T> whole(const T& value) {
    static_assert(std::atomic_ref<T>::is_always_lock_free);
    return std::atomic_ref<T>(const_cast<T&>(value));
  }
  void put(unsigned place, double newX, double newY, bool newSlope) {
    whole(x[place]).store(newX, std::memory_order_relaxed);
    whole(y[place]).store(newY, std::memory_order_relaxed);
    if (slope)
      whole(slope[place]).store(newSlope ? 1 : 0, std::memory_order_relaxed);
  }
  void summarizeRun(unsigned run);
  void summarizeGroup(unsigned group);
};

/// A block in the table of its store, with the exact y range of all its samples once it is full:
/// the ranges of many blocks lie side by side, while each block lies far from the next.
/// Threads: as SampleBlock.
struct BlockEntry {
  SampleBlock* block = nullptr;
  CopyableAtomic<double> low = SampleBlock::kNoMin;
  CopyableAtomic<double> high = SampleBlock::kNoMax;
  /// yMin and yMax of the block once it is full.
  CopyableAtomic<double> addedLow = SampleBlock::kNoMin;
  CopyableAtomic<double> addedHigh = SampleBlock::kNoMax;
};

}  // namespace sparlow
