#pragma once

#include <mutex>

#include "sparlow/data/OwnState.h"
#include "sparlow/platform/base/CopyableAtomic.h"

namespace sparlow {

/// Samples from `from` up to, and not including, `end`.
struct SampleInterval {
  unsigned from = 0;
  unsigned end = 0;
  unsigned Size() const { return end - from; }
  friend bool operator==(const SampleInterval&, const SampleInterval&) = default;
};

/// What the samples of an interval reach over.
struct IntervalBounds {
  double xMin = 0.0;
  double xMax = 0.0;
  double yMin = 0.0;
  double yMax = 0.0;
  friend bool operator==(const IntervalBounds&, const IntervalBounds&) = default;
};

/// The interval of a series that is on show, and what its samples reach over. Both are written as a
/// whole, under a lock of the interval's own.
/// Threads: writing, the window's and, in transfers, the feeding one; reading, any.
class ShownInterval {
 public:
  /// Store an end as it is. Readers cut it to the samples.
  void SetFrom(unsigned sample);
  void SetTo(unsigned sample);
  /// The bounds that were worked out last, one by one or as they belong together.
  double xIntervalMinGet() const { return xIntervalMin; }
  double xIntervalMaxGet() const { return xIntervalMax; }
  double yIntervalMinGet() const { return yIntervalMin; }
  double yIntervalMaxGet() const { return yIntervalMax; }
  IntervalBounds GetIntervalBounds() const;

  /// First sample and end of the interval, as set; what they mean depends on the samples.
  CopyableAtomic<unsigned> nFrom = 0xFFFFFFFFu;
  /// 0 during a transfer: the interval runs to the last sample.
  CopyableAtomic<unsigned> nTo = 0xFFFFFFFFu;
  CopyableAtomic<double> xIntervalMin = 0.0;
  CopyableAtomic<double> xIntervalMax = 0.0;
  CopyableAtomic<double> yIntervalMin = 0.0;
  CopyableAtomic<double> yIntervalMax = 0.0;

 protected:
  ShownInterval() = default;
  ShownInterval(const ShownInterval&) = default;
  ShownInterval& operator=(const ShownInterval&) = default;
  ~ShownInterval() = default;

  /// The interval in a series of that size. follows: an end of 0 is that of the samples.
  SampleInterval cutTo(unsigned size, bool follows) const;
  void setEnds(unsigned from, unsigned to);
  void publishBounds(const IntervalBounds& bounds);
  /// Held to write the ends, and what has to change together with them.
  using Lock = std::lock_guard<OwnMutex>;
  mutable OwnMutex intervalLock;
};

}  // namespace sparlow
