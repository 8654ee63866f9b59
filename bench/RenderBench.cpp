// Full renders, each beside the plain fold of the same interval.

#include <benchmark/benchmark.h>

#include "bench/PlainFold.h"
#include "bench/Report.h"
#include "bench/Series.h"
#include "bench/Topics.h"

namespace sparlow::bench {

namespace {

/// What is rendered.
struct Shot {
  Steps steps;
  unsigned samples;  ///< of the series
  unsigned from;
  unsigned end;
  bool logarithmic = false;
};

PlainFold& plainFold() {
  static PlainFold fold;
  return fold;
}

void render(benchmark::State& state, const Shot& shot) {
  WaveSeries& series = SharedSeries(shot.steps, shot.samples);
  GraphAxis axis = series.Show(shot.from, shot.end, 1000, shot.logarithmic);
  for (auto _ : state)
    series.Render(&axis, true);
  plainFold().Run(series.Read(), shot.from, shot.end, axis);
  if (!plainFold().Equals(series))
    state.SkipWithError("other columns than those of the plain fold");
}

/// The first render after other work: what it reads has left the caches.
void renderCold(benchmark::State& state, const Shot& shot) {
  WaveSeries& series = SharedSeries(shot.steps, shot.samples);
  GraphAxis axis = series.Show(shot.from, shot.end, 1000, shot.logarithmic);
  std::vector<char> other(std::size_t{128} << 20);
  for (auto _ : state) {
    state.PauseTiming();
    for (std::size_t i = 0; i < other.size(); i += 64)
      ++other[i];
    benchmark::ClobberMemory();
    state.ResumeTiming();
    series.Render(&axis, true);
  }
}

void fold(benchmark::State& state, const Shot& shot) {
  WaveSeries& series = SharedSeries(shot.steps, shot.samples);
  GraphAxis axis = series.Show(shot.from, shot.end, 1000, shot.logarithmic);
  for (auto _ : state) {
    plainFold().Run(series.Read(), shot.from, shot.end, axis);
    benchmark::DoNotOptimize(plainFold());
  }
}

/// Classes that map samples in a way of their own: one coordinate, both, and both for many samples in
/// one call.
struct OwnY : ViewData {
  int yPosGet(unsigned sample, const GraphAxis* axis) const override {
    return ViewData::yPosGet(sample, axis) + 3;
  }
};
struct OwnBoth : OwnY {
  int xPosGet(unsigned sample, const GraphAxis* axis) const override {
    return ViewData::xPosGet(sample, axis) + 3;
  }
};
struct OwnRows : OwnBoth {
  OwnRows() { UsePosGet(typeid(OwnRows)); }
  void PosGet(unsigned first, unsigned count, const GraphAxis* axis, int* xs,
              int* ys) const override {
    const SampleReader samples = Read();
    axis->hor.HorLinear().Map([&](unsigned i) { return samples.x(first + i); }, count, xs);
    axis->ver.VerLinear().Map([&](unsigned i) { return samples.y(first + i); }, count, ys);
    for (unsigned i = 0; i < count; ++i) {
      xs[i] += 3;
      ys[i] += 3;
    }
  }
};

template <class Series>
void renderOwn(benchmark::State& state, unsigned samples) {
  WaveSeries& shared = SharedSeries(Steps::even, samples);
  GraphAxis axis = shared.Show(0, samples, 1000);
  const auto series = std::make_unique<Series>();
  static_cast<ViewData&>(*series) = shared;
  for (auto _ : state)
    series->Render(&axis, true);
}

std::pair<std::string, std::string> addPair(const std::string& name, const Shot& shot) {
  benchmark::RegisterBenchmark(("render " + name).c_str(), render, shot);
  benchmark::RegisterBenchmark(("fold " + name).c_str(), fold, shot);
  return {"render " + name, "fold " + name};
}

/// What memory allows: the samples read once, with nothing done about them but a sum.
void readAll(benchmark::State& state, unsigned samples) {
  WaveSeries& series = SharedSeries(Steps::even, samples);
  const SampleReader reader = series.Read();
  for (auto _ : state) {
    double lanes[8] = {};
    for (unsigned b = 0; b < reader.blockCount(); ++b) {
      const SampleBlock& block = reader.block(b);
      for (unsigned i = 0; i + 8 <= reader.countIn(b); i += 8)
        for (unsigned lane = 0; lane < 8; ++lane)
          lanes[lane] += block.x[i + lane] + block.y[i + lane];
    }
    benchmark::DoNotOptimize(lanes);
  }
}

}  // namespace

void RegisterRender() {
  const unsigned many = Samples(100'000'000), some = Samples(1'000'000);
  const auto whole = [&](const char* name, Steps steps, unsigned n, bool log) {
    return addPair(name, {steps, n, 0, n, log});
  };
  const auto even = whole("even, 100 million", Steps::even, many, false);
  const auto fewer = whole("even, 1 million", Steps::even, some, false);
  const auto uneven = whole("irregular, 100 million", Steps::irregular, many, false);
  const auto evenLog = whole("even, logarithmic, 100 million", Steps::even, many, true);
  const auto unevenLog = whole("irregular, logarithmic, 100 million", Steps::irregular, many, true);
  AtMost("Full render, 1000 columns, 100 million samples, to the fold", even.first, even.second,
         1.0 / 100);
  AtMost("The same, to the render of 1 million", even.first, fewer.first, 4);
  benchmark::RegisterBenchmark("render even, 100 million, cold", renderCold,
                               Shot{Steps::even, many, 0, many});
  AtMost("The same out of cold caches, to the fold", "render even, 100 million, cold", even.second,
         1.0 / 100);
  AtMost("Irregular x, to the fold", uneven.first, uneven.second, 1.0 / 40);
  AtMost("Logarithmic vertical axis, to the fold", evenLog.first, evenLog.second, 1.0 / 40);
  AtMost("Both, to the fold", unevenLog.first, unevenLog.second, 1.0 / 40);

  benchmark::RegisterBenchmark("read 100 million samples once", readAll, many);
  AtMost("Full render, to reading all samples once", even.first, "read 100 million samples once",
         1.0 / 10);

  benchmark::RegisterBenchmark("render own y, 1 million", renderOwn<OwnY>, some);
  benchmark::RegisterBenchmark("render own x and y, 1 million", renderOwn<OwnBoth>, some);
  benchmark::RegisterBenchmark("render own rows, 1 million", renderOwn<OwnRows>, some);
  AtMost("A class that overrides yPosGet, to the fold", "render own y, 1 million", fewer.second, 5);
  AtMost("The same, and xPosGet", "render own x and y, 1 million", fewer.second, 6);
  AtMost("The same, and PosGet", "render own rows, 1 million", fewer.second, 3);

  std::vector<std::pair<std::string, std::string>> zooms, tiny;
  for (unsigned size = 2; size <= many; size = size == 2 ? 10 : 10 * size) {
    for (const double place : {0.0, 0.37, 1.0}) {
      const auto from = static_cast<unsigned>(place * (many - size));
      const std::string name =
          std::to_string(size) + " samples at " + std::to_string(place).substr(0, 4);
      (size <= 100 ? tiny : zooms).push_back(addPair(name, {Steps::even, many, from, from + size}));
      if (size == many)
        break;
    }
  }
  WorstAtMost("Zoomed intervals of 1000 samples and more, the worst to the fold", zooms, 1.2);
  WorstAtMost("Zoomed intervals of 2 to 100 samples, the worst to the fold", tiny, 1.2);
}

}  // namespace sparlow::bench
