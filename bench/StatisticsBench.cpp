// The statistics of a series, and what its samples take in memory.

#include <benchmark/benchmark.h>

#include <cstdio>

#include "bench/Report.h"
#include "bench/Series.h"
#include "bench/Topics.h"

namespace sparlow::bench {

namespace {

void statistics(benchmark::State& state) {
  WaveSeries& series = SharedSeries(Steps::even, Samples(10'000'000));
  for (auto _ : state)
    series.CalculateStatParams(SampleBlock::kNoMax, SampleBlock::kNoMin);
}

void summation(benchmark::State& state) {
  const SampleReader samples = SharedSeries(Steps::even, Samples(10'000'000)).Read();
  for (auto _ : state) {
    double sum = 0.0;
    for (unsigned b = 0; b < samples.blockCount(); ++b) {
      const SampleBlock& block = samples.block(b);
      for (unsigned i = 0, n = samples.countIn(b); i < n; ++i)
        sum += block.y[i];
    }
    benchmark::DoNotOptimize(sum);
  }
}

}  // namespace

void RegisterStatistics() {
  benchmark::RegisterBenchmark("statistics of 10 million", statistics);
  benchmark::RegisterBenchmark("summation of 10 million", summation);
  AtMost("CalculateStatParams, 10 million samples, to one summation", "statistics of 10 million",
         "summation of 10 million", 2.2);
}

void RegisterMemory() {
  // Before anything else, while the process has touched nothing.
  const unsigned n = Samples(100'000'000);
  const double before = ResidentBytes();
  const double start = NowMs();
  const WaveSeries& series = SharedSeries(Steps::even, n);
  const double filled = NowMs() - start;
  const double grown = ResidentBytes() - before;
  const double own = static_cast<double>(series.Store()->MemoryUse());
  Told([=] {
    char text[120];
    std::snprintf(text, sizeof text, "%.3f, the process has grown by %.3f", own / n, grown / n);
    char once[80];
    std::snprintf(once, sizeof once, "%.1f ns a sample", filled * 1e6 / n);
    // A short shot has blocks that are hardly filled.
    return std::vector<Line>{
        {"Bytes per sample of the store, 100 million", "at most 16.6", text,
         own / n <= 16.6 || Asked().once},
        {"(Making them, adding them in bulk to fresh memory, statistics)", "told", once}};
  });
}

}  // namespace sparlow::bench
