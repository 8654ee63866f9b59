#pragma once

#include <bitset>
#include <cstdint>

#include "sparlow/axis/GraphAxis.h"
#include "sparlow/data/OwnState.h"
#include "sparlow/platform/base/CopyableAtomic.h"

namespace sparlow {

/// What columns were made for: a render may go on over them only if all of it still holds.
struct RenderKey {
  struct Axis {
    double min = 0.0;
    double max = 0.0;
    double scale = 0.0;
    bool log = false;
    friend bool operator==(const Axis&, const Axis&) = default;
  };
  static Axis Of(const AxisData& axis) { return {axis.min, axis.max, axis.scale, axis.log}; }

  std::uint64_t dataSet = 0;  ///< SampleStore::Serial; 0 is no columns
  unsigned changes = 0;       ///< SampleStore::Changes
  unsigned mapping = 0;       ///< how often the series' own mapping had changed
  unsigned from = 0;          ///< first sample of the interval
  Axis hor;
  Axis ver;
  friend bool operator==(const RenderKey&, const RenderKey&) = default;
};

/// The samples of an interval, reduced to pixel columns: x, and the first, latest, topmost and
/// lowest pixel of each.
///
/// Entries below nColumns are for drawing; what lies beyond may hold anything. Pixels are counted
/// from the top left of the plot.
/// Threads: a render writes them and a paint reads them, which the graph keeps apart.
struct ViewColumns {
  static constexpr unsigned kMaxColumns = 16384;

  ViewColumns() { clear(); }

  int xPos[kMaxColumns];
  int yPos[kMaxColumns];      ///< first sample
  int yLastPos[kMaxColumns];  ///< latest sample
  int yMinPos[kMaxColumns];   ///< smallest pixel, the topmost point
  int yMaxPos[kMaxColumns];   ///< largest pixel, the lowest point
  CopyableAtomic<unsigned> nColumns = 0u;
  /// The latest full render gave each sample a column of its own.
  CopyableAtomic<bool> sparse = false;
  /// Column and sample at which an incremental render goes on.
  CopyableAtomic<unsigned> nextColumn = 0u;
  CopyableAtomic<unsigned> nextSample = 0u;

 protected:
  /// No columns, and none to go on from. nextColumn and nextSample stay.
  void clear();

  /// Slope flags of a waveform's columns, as they were when these were made.
  std::bitset<kMaxColumns> rising_;
  bool hasRising_ = false;  // since the flags were cleared last, which takes as long as 20 samples
  RenderKey madeFor_;
  /// Keeps a new data set, which clears the columns at any moment, from a paint. A leaf: nothing
  /// else is locked under it.
  mutable OwnMutex columnsLock_;
};

}  // namespace sparlow
