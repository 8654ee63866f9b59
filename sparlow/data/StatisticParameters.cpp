#include "sparlow/data/StatisticParameters.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

#include "sparlow/axis/DoublePair.h"
#include "sparlow/data/SourceData.h"

namespace sparlow {

namespace {

// Both limits belong to it. Written so that a limit that is not a number keeps nothing out.
struct Window {
  double low, high;
  bool holds(double y) const { return !(y < low) && !(y > high); }
};

// Samples in a row, all in one block. Sample 0 is always alone.
struct Stretch {
  const SampleBlock& block;
  unsigned sample;  // index of the first one
  unsigned end;
  double before;  // y of the sample before the first one; of sample 0, its own
  // The window holds all of them: they are whole runs, by whose bounds that can be told. The series
  // may still add to a run that isn't whole.
  bool inside = false;
  YRange range{};  // of their y, if so, else of none

  // Adds the samples in the window, each with the y of the one before it, and then returns where they
  // began, how many they were, and their range. A function of its own: nothing in it makes the
  // compiler take the sum out of its register, which would cost three times as much.
  template <class Sums>
  [[gnu::noinline]] void addTo(Sums& sums, const Window& window) const {
    const unsigned first = sample & SampleBlock::kMask, stop = first + (end - sample);
    double previous = before;
    auto sum = sums.sum;
    unsigned count = 0;
    YRange seen = range;
    if (inside) {
      for (unsigned place = first; place < stop; ++place) {
        const double y = block.yAt(place);
        sum = sums.plus(sum, y, previous);
        previous = y;
      }
      count = stop - first;
    } else {
      for (unsigned place = first; place < stop; ++place) {
        const double y = block.yAt(place);
        if (window.holds(y)) {
          sum = sums.plus(sum, y, previous);
          seen.Include(y);
          ++count;
        }
        previous = y;
      }
    }
    sums.sum = sum;
    sums.counted(sample, count, seen);
  }
};

// A whole block that the window holds, or else a whole group, or the whole runs of a group, as many
// as come, or the rest of one run.
Stretch stretchAt(const SampleReader& samples, unsigned sample, const Window& window) {
  constexpr unsigned kRun = SampleBlock::kRunSamples, kGroup = SampleBlock::kGroupSamples;
  const SampleBlock& block = samples.block(sample >> SampleBlock::kShift);
  if (sample == 0)
    return {block, 0, 1, samples.y(0)};
  const unsigned place = sample & SampleBlock::kMask;
  const unsigned end = std::min(samples.size(), (sample | (kGroup - 1)) + 1);
  Stretch stretch{block, sample, sample, samples.y(sample - 1)};
  const auto take = [&](const YRange& range, unsigned count) {
    if (!window.holds(range.low) || !window.holds(range.high))
      return false;
    stretch.end += count;
    stretch.range.Include(range);
    stretch.inside = true;
    return true;
  };
  if (place == 0 && samples.size() - sample >= SampleBlock::kSamples &&
      take(samples.RangeOfY(sample, sample + SampleBlock::kSamples), SampleBlock::kSamples))
    return stretch;
  if (end - sample == kGroup && take(block.GroupRange(place >> SampleBlock::kGroupShift), kGroup))
    return stretch;
  while (stretch.end % kRun == 0 && end - stretch.end >= kRun &&
         take(block.RunRange((stretch.end & SampleBlock::kMask) >> SampleBlock::kRunShift), kRun)) {
  }
  if (!stretch.inside)
    stretch.end = std::min(end, (sample | (kRun - 1)) + 1);
  return stretch;
}

// The analysed range of a series, to be walked any number of times over one data set.
class AnalysedRange {
 public:
  explicit AnalysedRange(const SourceData* series)
      : series_(series), store_(series ? series->Store() : nullptr) {}

  // Calls take(samples, from) for the part of the range in each block. The end of the range is asked
  // for again after each, so that a walk follows a series that grows.
  template <class Take>
  void walk(const Take& take) const {
    if (!store_)
      return;
    unsigned next = series_->GetAnalyzeFrom();
    for (;;) {
      const unsigned end = series_->GetAnalyzeTo();
      const SampleReader samples(store_, std::min(end, blockEnd(next)));
      if (next >= samples.size())
        return;
      take(samples, next);
      next = samples.size();
    }
  }

 private:
  static unsigned blockEnd(unsigned sample) { return (sample | SampleBlock::kMask) + 1; }

  const SourceData* series_;
  std::shared_ptr<const SampleStore> store_;
};

// One walk through the range that adds to sums.
template <class Sums>
Sums addUp(const AnalysedRange& range, const Window& window, Sums sums) {
  range.walk([&](const SampleReader& samples, unsigned next) {
    while (next < samples.size()) {
      const Stretch stretch = stretchAt(samples, next, window);
      stretch.addTo(sums, window);
      next = stretch.end;
    }
  });
  return sums;
}

// The samples in a window are just those from the lowest to the highest of them, so that bounds and
// mean come out of one walk.
struct Totals {
  double sum = 0.0;
  YRange range{};
  std::uint64_t count = 0;

  static Totals Of(const AnalysedRange& range, const Window& window) {
    return addUp(range, window, Totals{});
  }
  bool empty() const { return count == 0; }
  double mean() const { return empty() ? 0.0 : sum / static_cast<double>(count); }

  static double plus(double before, double y, double) { return before + y; }
  void counted(unsigned, unsigned more, const YRange& of) {
    count += more;
    range.Include(of);
  }
};

// In one walk as well: two sums that don't wait for each other.
struct Deviations {
  double mean;
  DoublePair sum{0.0};  // of the squares of deviations, and of those of steps
  std::uint64_t count = 0, pairs = 0;

  static Deviations Of(const AnalysedRange& range, const StatisticParameters& values) {
    return addUp(range, {values.min, values.max}, Deviations{values.mean});
  }
  double standard() const {
    return count != 0 ? std::sqrt(sum.First() / static_cast<double>(count)) : 0.0;
  }
  double allan() const {
    return pairs != 0 ? std::sqrt(sum.Second() / static_cast<double>(pairs) * 0.5) : 0.0;
  }

  DoublePair plus(DoublePair before, double y, double previous) const {
    const DoublePair d = DoublePair(y) - DoublePair(mean, previous);
    return before + d * d;
  }
  // Sample 0 has none before it.
  void counted(unsigned from, unsigned more, const YRange&) {
    count += more;
    pairs += from == 0 ? 0 : more;
  }
};

void setBounds(StatisticParameters& values, const Totals& totals) {
  values.min = totals.empty() ? 1.0 : totals.range.low;
  values.max = totals.empty() ? 1.0 : totals.range.high;
  values.span = values.max - values.min;
}

}  // namespace

void StatisticParameters::Calculate(const SourceData* series, double yLow, double yHigh) {
  Reset();
  const AnalysedRange range(series);
  const Totals totals = Totals::Of(range, {yLow, yHigh});
  setBounds(*this, totals);
  // Samples of 1, kept out by the window, would lie in the one that is left without any.
  if (totals.empty())
    return;
  mean = totals.mean();
  const Deviations deviations = Deviations::Of(range, *this);
  stdDev = deviations.standard();
  allanDev = deviations.allan();
}

void StatisticParameters::CalculateMinMax(const SourceData* series, double yLow, double yHigh) {
  setBounds(*this, Totals::Of(AnalysedRange(series), {yLow, yHigh}));
}

void StatisticParameters::CalculateMean(const SourceData* series, double, double) {
  mean = Totals::Of(AnalysedRange(series), {min, max}).mean();
}

void StatisticParameters::CalculateStdDev(const SourceData* series, double, double) {
  stdDev = Deviations::Of(AnalysedRange(series), *this).standard();
}

void StatisticParameters::CalculateAllanDev(const SourceData* series, double, double) {
  allanDev = Deviations::Of(AnalysedRange(series), *this).allan();
}

}  // namespace sparlow
