#include "sparlow/data/SampleBlock.h"

namespace sparlow {

// The samples stay as memory gives them: nobody reads what isn't counted.
SampleBlock::SampleBlock(bool withSlopes)
    : slope(withSlopes ? std::make_unique<std::uint8_t[]>(kSamples) : nullptr) {}

void SampleBlock::Set(unsigned place, double newX, double newY, bool newSlope, unsigned count) {
  put(place, newX, newY, newSlope);
  const unsigned run = place >> kRunShift, group = place >> kGroupShift;
  if ((run + 1) << kRunShift <= count)
    summarizeRun(run);
  if ((group + 1) << kGroupShift <= count)
    summarizeGroup(group);
}

void SampleBlock::SortByX(unsigned count) {
  for (unsigned i = 0; i < count; ++i) {
    // Read plainly, by the thread that writes: an atomic read in such a loop takes five times as long.
    unsigned smallest = i;
    for (unsigned k = i + 1; k < count; ++k)
      if (x[k] < x[smallest])
        smallest = k;
    if (smallest == i)
      continue;
    const double oldX = xAt(i), oldY = yAt(i);
    const bool oldSlope = slopeAt(i);
    put(i, xAt(smallest), yAt(smallest), slopeAt(smallest));
    put(smallest, oldX, oldY, oldSlope);
  }
  for (unsigned end = kRunSamples; end <= count; end += kRunSamples)
    FinishRun(end);
}

void SampleBlock::FinishRun(unsigned end) {
  summarizeRun((end - 1) >> kRunShift);
  if (end % kGroupSamples == 0)
    summarizeGroup((end - 1) >> kGroupShift);
}

void SampleBlock::FinishRun(unsigned end, const YRange& range) {
  const unsigned run = (end - 1) >> kRunShift;
  runMin[run].setRelaxed(range.low);
  runMax[run].setRelaxed(range.high);
  if (end % kGroupSamples == 0)
    summarizeGroup((end - 1) >> kGroupShift);
}

// By the thread that writes, so that its samples need no atomic reads. In lanes that don't wait for
// one another.
void SampleBlock::summarizeRun(unsigned run) {
  constexpr unsigned lanes = 4;
  const double* const ys = y + (run << kRunShift);
  YRange ranges[lanes];
  for (unsigned i = 0; i < kRunSamples; i += lanes)
    for (unsigned lane = 0; lane < lanes; ++lane)
      ranges[lane].Include(ys[i + lane]);
  for (unsigned lane = 1; lane < lanes; ++lane)
    ranges[0].Include(ranges[lane]);
  runMin[run].setRelaxed(ranges[0].low);
  runMax[run].setRelaxed(ranges[0].high);
}

void SampleBlock::summarizeGroup(unsigned group) {
  constexpr unsigned runs = kGroupSamples / kRunSamples;
  YRange range;
  for (unsigned run = group * runs; run < (group + 1) * runs; ++run)
    range.Include(RunRange(run));
  groupMin[group].setRelaxed(range.low);
  groupMax[group].setRelaxed(range.high);
}

YRange SampleBlock::RangeOfGroups() const {
  YRange range;
  for (unsigned group = 0; group < kGroups; ++group)
    range.Include(GroupRange(group));
  return range;
}

}  // namespace sparlow
