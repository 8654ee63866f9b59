#include <algorithm>

#include "sparlow/data/SourceData.h"

namespace sparlow {

namespace {

struct Range {
  double min = SampleBlock::kNoMin;
  double max = SampleBlock::kNoMax;
};

// y of the samples of one block that lie in the interval.
Range scan(const SampleReader& samples, unsigned b, SampleInterval interval) {
  const unsigned first = b << SampleBlock::kShift;
  const unsigned from = std::max(interval.from, first) - first;
  const unsigned end = std::min(SampleBlock::kSamples, interval.end - first);
  Range range;
  for (unsigned place = from; place < end; ++place) {
    const double y = samples.block(b).yAt(place);
    range.min = std::min(range.min, y);
    range.max = std::max(range.max, y);
  }
  return range;
}

// The blocks whose records promise the lowest and the highest y are read, and no others.
Range rangeOf(const SampleReader& samples, SampleInterval interval) {
  const unsigned first = interval.from >> SampleBlock::kShift;
  const unsigned last = (interval.end - 1) >> SampleBlock::kShift;
  Range extremes;
  unsigned lowest = first, highest = first;
  for (unsigned b = first; b <= last; ++b) {
    const YRange added = samples.AddedIn(b);
    if (added.low < extremes.min) {
      extremes.min = added.low;
      lowest = b;
    }
    if (added.high > extremes.max) {
      extremes.max = added.high;
      highest = b;
    }
  }
  Range range = scan(samples, lowest, interval);
  if (highest != lowest)
    range.max = scan(samples, highest, interval).max;
  return range;
}

}  // namespace

void SourceData::SetIntervalParams() {
  const SampleReader samples = Read();
  const SampleInterval interval = effectiveInterval(samples.size());
  if (interval.Size() == 0)
    return;
  const double xLow = xGlobalMin, xHigh = xGlobalMax, yLow = yGlobalMin, yHigh = yGlobalMax;
  // Bounds that start anew belong to a data set that replaces the one in hand.
  if (xLow > xHigh || yLow > yHigh)
    return;
  if (interval == SampleInterval{0, samples.size()})
    return publishBounds({xLow, xHigh, yLow, yHigh});
  const Range range = rangeOf(samples, interval);
  publishBounds({samples.x(interval.from), samples.x(interval.end - 1), std::max(range.min, yLow),
                 std::min(range.max, yHigh)});
}

}  // namespace sparlow
