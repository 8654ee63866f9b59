#include "sparlow/data/StatisticParameters.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

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
  YRange range{};  // of their y, if so

  // Calls use(y, y of the sample before) for the samples in the window and tells how many.
  template <class Use>
  unsigned forEachIn(const Window& window, const Use& use) const {
    const unsigned first = sample & SampleBlock::kMask, stop = first + (end - sample);
    double previous = before;
    if (inside) {
      for (unsigned place = first; place < stop; ++place) {
        const double y = block.yAt(place);
        use(y, previous);
        previous = y;
      }
      return stop - first;
    }
    unsigned counted = 0;
    for (unsigned place = first; place < stop; ++place) {
      const double y = block.yAt(place);
      if (window.holds(y)) {
        use(y, previous);
        ++counted;
      }
      previous = y;
    }
    return counted;
  }
};

// A whole group that the window holds, else the whole runs of a group that it holds, as many as
// come, else the rest of one run. Not more at once: bounds are then read while the samples before
// are still being added.
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

  // Calls pass.take(samples, from) for the part of the range in each block. The end of the range is
  // asked for again after each, so that a walk follows a series that grows.
  template <class Pass>
  void walk(Pass& pass) const {
    if (!store_)
      return;
    unsigned next = series_->GetAnalyzeFrom();
    for (;;) {
      const unsigned end = series_->GetAnalyzeTo();
      const SampleReader samples(store_, std::min(end, blockEnd(next)));
      if (next >= samples.size())
        return;
      pass.take(samples, next);
      next = samples.size();
    }
  }

 private:
  static unsigned blockEnd(unsigned sample) { return (sample | SampleBlock::kMask) + 1; }

  const SourceData* series_;
  std::shared_ptr<const SampleStore> store_;
};

// The samples in a window are just those from the lowest to the highest of them, so that bounds and
// mean come out of one walk.
struct Totals {
  const Window window;
  double low = SampleBlock::kNoMin, high = SampleBlock::kNoMax;
  double sum = 0.0;
  std::uint64_t count = 0;

  Totals(const AnalysedRange& range, const Window& counting) : window(counting) {
    range.walk(*this);
  }
  bool empty() const { return count == 0; }
  double mean() const { return empty() ? 0.0 : sum / static_cast<double>(count); }

  void take(const SampleReader& samples, unsigned next) {
    double total = sum;
    while (next < samples.size()) {
      const Stretch stretch = stretchAt(samples, next, window);
      if (stretch.inside) {
        widen(stretch.range.low, stretch.range.high);
        count += stretch.forEachIn(window, [&](double y, double) { total += y; });
      } else {
        count += stretch.forEachIn(window, [&](double y, double) {
          widen(y, y);
          total += y;
        });
      }
      next = stretch.end;
    }
    sum = total;
  }

 private:
  void widen(double from, double to) {
    low = std::min(low, from);
    high = std::max(high, to);
  }
};

// In one walk as well: two sums that don't wait for each other.
struct Deviations {
  const Window window;
  const double mean;
  double squares = 0.0, steps = 0.0;
  std::uint64_t count = 0, pairs = 0;

  Deviations(const AnalysedRange& range, const StatisticParameters& values)
      : window{values.min, values.max}, mean(values.mean) {
    range.walk(*this);
  }
  double standard() const {
    return count != 0 ? std::sqrt(squares / static_cast<double>(count)) : 0.0;
  }
  double allan() const {
    return pairs != 0 ? std::sqrt(steps / static_cast<double>(pairs) * 0.5) : 0.0;
  }

  void take(const SampleReader& samples, unsigned next) {
    const double middle = mean;
    double sum = squares, stepSum = steps;
    while (next < samples.size()) {
      const Stretch stretch = stretchAt(samples, next, window);
      const unsigned counted = stretch.forEachIn(window, [&](double y, double previous) {
        const double d = y - middle, step = y - previous;
        sum += d * d;
        stepSum += step * step;
      });
      count += counted;
      pairs += next == 0 ? 0 : counted;
      next = stretch.end;
    }
    squares = sum;
    steps = stepSum;
  }
};

void setBounds(StatisticParameters& values, const Totals& totals) {
  values.min = totals.empty() ? 1.0 : totals.low;
  values.max = totals.empty() ? 1.0 : totals.high;
  values.span = values.max - values.min;
}

}  // namespace

void StatisticParameters::Calculate(const SourceData* series, double yLow, double yHigh) {
  Reset();
  const AnalysedRange range(series);
  const Totals totals(range, {yLow, yHigh});
  setBounds(*this, totals);
  // Samples of 1, kept out by the window, would lie in the one that is left without any.
  if (totals.empty())
    return;
  mean = totals.mean();
  const Deviations deviations(range, *this);
  stdDev = deviations.standard();
  allanDev = deviations.allan();
}

void StatisticParameters::CalculateMinMax(const SourceData* series, double yLow, double yHigh) {
  setBounds(*this, Totals(AnalysedRange(series), {yLow, yHigh}));
}

void StatisticParameters::CalculateMean(const SourceData* series, double, double) {
  mean = Totals(AnalysedRange(series), {min, max}).mean();
}

void StatisticParameters::CalculateStdDev(const SourceData* series, double, double) {
  stdDev = Deviations(AnalysedRange(series), *this).standard();
}

void StatisticParameters::CalculateAllanDev(const SourceData* series, double, double) {
  allanDev = Deviations(AnalysedRange(series), *this).allan();
}

}  // namespace sparlow
