// A peer that is built for an older Qt, and so in a program of its own: its times stand beside those
// of bench_screen, but aren't of the same run.

#include <benchmark/benchmark.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>

#include <QApplication>
#include <cstdlib>
#include <map>
#include <memory>
#include <vector>

#include "bench/Report.h"
#include "bench/Wave.h"

namespace sparlow::bench {

namespace {

/// Reads the samples where they are, filters points, has antialiasing off, and paints at once when it
/// is asked to.
QwtPlot& plotOf(unsigned samples) {
  static auto& all = *new std::map<unsigned, std::unique_ptr<QwtPlot>>;
  auto& plot = all[samples];
  if (plot)
    return *plot;
  // For ever, as the plot.
  auto& xs = *new std::vector<double>(samples);
  auto& ys = *new std::vector<double>(samples);
  Wave(Steps::even).Fill(xs, ys);
  plot = std::make_unique<QwtPlot>();
  plot->resize(1100, 600);
  dynamic_cast<QwtPlotCanvas&>(*plot->canvas()).setPaintAttribute(QwtPlotCanvas::ImmediatePaint);
  auto* const curve = new QwtPlotCurve;
  curve->setPaintAttribute(QwtPlotCurve::FilterPoints);
  curve->setPaintAttribute(QwtPlotCurve::ClipPolygons);
  curve->setRawSamples(xs.data(), ys.data(), static_cast<int>(samples));
  curve->attach(plot.get());
  plot->show();
  QApplication::processEvents();  // exposed from now on
  return *plot;
}

void replot(benchmark::State& state, unsigned samples) {
  QwtPlot& plot = plotOf(samples);
  for (auto _ : state)
    plot.replot();
}

// Few repetitions, since each takes about a second.
void registerAll() {
  benchmark::RegisterBenchmark("Qwt, replot of 1 million", replot, Samples(1'000'000))
      ->Iterations(1)
      ->Repetitions(3);
  benchmark::RegisterBenchmark("Qwt, replot of 10 million", replot, Samples(10'000'000))
      ->Iterations(1)
      ->Repetitions(3);
}

}  // namespace

}  // namespace sparlow::bench

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  int count = 1;
  new QApplication(count, argv);
  return sparlow::bench::Main(argc, argv, sparlow::bench::registerAll);
}
