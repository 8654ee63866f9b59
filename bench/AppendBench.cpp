// Appending, beside a vector of pairs that takes the same samples. Memory was touched before, in
// both, that of the series in large pages where the system gives them; what fresh memory costs is
// measured apart.

#include <benchmark/benchmark.h>
#include <sys/mman.h>

#include <span>
#include <vector>

#include "bench/Report.h"
#include "bench/Series.h"
#include "bench/Topics.h"

namespace sparlow::bench {

namespace {

constexpr unsigned kFull = 8'000'000;
constexpr unsigned kAtOnce = 1u << 16;  ///< samples of one bulk call

struct Input {
  std::vector<double> xs, ys;
  Input() : xs(Samples(kFull)), ys(xs.size()) { Wave(Steps::even).Fill(xs, ys); }
  static const Input& Get() {
    static const Input input;
    return input;
  }
};

void intoVector(benchmark::State& state) {
  const Input& in = Input::Get();
  static std::vector<std::pair<double, double>> pairs = [&] {
    // Written once, so that its memory is there.
    std::vector<std::pair<double, double>> touched(in.xs.size());
    touched.clear();
    return touched;
  }();
  for (auto _ : state) {
    pairs.clear();
    for (std::size_t i = 0; i < in.xs.size(); ++i)
      pairs.push_back({in.xs[i], in.ys[i]});
    benchmark::ClobberMemory();
  }
}

/// Runs `append(series)` into the memory that a first run of it has touched.
template <class Append>
void intoSeries(benchmark::State& state, const Append& append) {
  ViewData series;
  series.Init("appended");
  const auto begin = [&] {
    series.InitDataTransfer(false);
    series.InitBlockTransfer();
  };
  begin();
  append(series);
  for (auto _ : state) {
    state.PauseTiming();
    begin();
    state.ResumeTiming();
    append(series);
  }
  if (series.GetSize() != Input::Get().xs.size())
    state.SkipWithError("samples are missing");
  series.Term();
}

void add(ViewData& series) {
  const Input& in = Input::Get();
  for (std::size_t i = 0; i < in.xs.size(); ++i)
    series.Add(in.xs[i], in.ys[i]);
}

template <class Part>
void inParts(const Part& part) {
  const std::size_t all = Input::Get().xs.size();
  for (std::size_t i = 0; i < all; i += kAtOnce)
    part(i, std::min<std::size_t>(kAtOnce, all - i));
}

void addInBulk(ViewData& series) {
  const Input& in = Input::Get();
  inParts([&](std::size_t i, std::size_t n) {
    series.Add(std::span(in.xs).subspan(i, n), std::span(in.ys).subspan(i, n));
  });
}

void addUniform(ViewData& series) {
  const Input& in = Input::Get();
  inParts([&](std::size_t i, std::size_t n) {
    series.AddUniform(static_cast<double>(i) * 1e-6, 1e-6, std::span(in.ys).subspan(i, n));
  });
}

/// As many bytes as the vector's, page by page.
void firstTouch(benchmark::State& state) {
  const std::size_t bytes = Input::Get().xs.size() * 16;
  for (auto _ : state) {
    void* const fresh =
        mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (fresh == MAP_FAILED) {
      state.SkipWithError("no memory");
      break;
    }
    for (std::size_t i = 0; i < bytes; i += 4096)
      static_cast<volatile char*>(fresh)[i] = 1;
    state.PauseTiming();
    munmap(fresh, bytes);
    state.ResumeTiming();
  }
}

}  // namespace

void RegisterAppend() {
  benchmark::RegisterBenchmark("append to a vector of pairs", intoVector);
  benchmark::RegisterBenchmark("Add", [](benchmark::State& s) { intoSeries(s, add); });
  benchmark::RegisterBenchmark("Add in bulk",
                               [](benchmark::State& s) { intoSeries(s, addInBulk); });
  benchmark::RegisterBenchmark("AddUniform",
                               [](benchmark::State& s) { intoSeries(s, addUniform); });
  benchmark::RegisterBenchmark("first touch of as much memory", firstTouch);
  AtMost("Append one by one, to a vector", "Add", "append to a vector of pairs", 3);
  AtMost("Append in bulk, to a vector", "Add in bulk", "append to a vector of pairs", 1.2);
  AtMost("Append in bulk, x uniform, to a vector", "AddUniform", "append to a vector of pairs",
         1.2);
  Compare("(First touch of so much memory, to the vector)", "first touch of as much memory",
          "append to a vector of pairs");
}

}  // namespace sparlow::bench
