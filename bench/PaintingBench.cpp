// The painting of a curve of 1000 columns, by a thin and by a wide pen.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "bench/Report.h"
#include "bench/Screen.h"
#include "bench/Topics.h"
#include "sparlow/platform/qt/ImageDevice.h"
#include "tests/support/RecordingDevice.h"

namespace sparlow::bench {

namespace {

/// Curves of 1000 columns: short strokes, tall ones, and one sample a column.
struct Curve {
  const char* name;
  unsigned samples;
  double (*y)(unsigned i);
};

double noiseAt(unsigned i) {
  return static_cast<double>(i * 2654435761u >> 8) * 0x1p-24;
}

constexpr unsigned kColumns = 1000;
const Curve kCurves[] = {
    {"wave", 1000000, [](unsigned i) { return std::sin(i * 2e-5) + 0.05 * noiseAt(i); }},
    {"noise", 1000000, [](unsigned i) { return noiseAt(i); }},
    {"thin wave", kColumns, [](unsigned i) { return std::sin(i * 0.02); }},
    {"jagged", kColumns, [](unsigned i) { return noiseAt(i); }},
};

class Painted : public ViewData {
 public:
  explicit Painted(const Curve& curve) {
    Init(curve.name);
    Reset();
    for (unsigned i = 0; i < curve.samples; ++i)
      Add(i, curve.y(i));
    AdjustSizeTo();
    GraphAxis axis;
    axis.SetRange(yGlobalMin, yGlobalMax, 0, curve.samples);
    axis.hor.SetScale(kColumns);
    axis.ver.SetScale(520);
    SetColor(0x0000FF);
    Render(&axis, true);
  }
  ~Painted() override { Term(); }
  Painted(const Painted&) = delete;
  Painted& operator=(const Painted&) = delete;
};

void paint(benchmark::State& state, const Curve& curve, bool wide) {
  TheApplication();
  const Painted series(curve);
  qt::ImageDevice device(kWindow, 1.0, 0xFFFFFF);
  DeviceContext context{&device};
  CDC dc(&context);
  CRgn plot;
  plot.CreateRectRgn(1, 1, kColumns, 520);
  dc.SelectClipRgn(&plot);
  for (auto _ : state)
    series.Draw(&dc, 520, wide);
}

std::size_t linesOf(const Curve& curve) {
  const Painted series(curve);
  test::RecordingDevice device(kWindow);
  DeviceContext context{&device};
  CDC dc(&context);
  series.Draw(&dc, 520, true);
  const std::size_t lines = device.calls().size();
  if (series.nColumns < kColumns - 1 || lines == 0)
    throw std::runtime_error("the curve has no columns");
  return lines;
}

}  // namespace

void RegisterPainting() {
  std::vector<std::pair<std::string, std::string>> pairs;
  for (const Curve& curve : kCurves) {
    for (const bool wide : {false, true})
      benchmark::RegisterBenchmark(
          (std::string("paint ") + curve.name + (wide ? ", pen 2" : ", pen 1")).c_str(), paint,
          curve, wide);
    pairs.push_back({std::string("paint ") + curve.name + ", pen 2",
                     std::string("paint ") + curve.name + ", pen 1"});
  }
  WorstAtMost("Painting 1000 columns by a pen of 2 pixels, to 1 pixel", pairs, 3.0);
  Told([] {
    std::size_t most = 0;
    for (const Curve& curve : kCurves)
      most = std::max(most, linesOf(curve));
    char text[60];
    std::snprintf(text, sizeof text, "%.2f", static_cast<double>(most) / kColumns);
    return std::vector<Line>{{"Primitives a column, the most of these curves", "at most 2", text,
                              most <= 2 * kColumns + 2}};
  });
}

}  // namespace sparlow::bench
