// Whole frames, beside those of a peer where it is installed.

#include <benchmark/benchmark.h>

#include <QAbstractScrollArea>
#include <map>

#include "bench/Report.h"
#include "bench/Screen.h"
#include "bench/Topics.h"
#ifdef SPARLOW_BENCH_QCUSTOMPLOT
#include <qcustomplot.h>
#endif

namespace sparlow::bench {

namespace {

struct Size {
  const char* name;
  unsigned samples;
  double goal;  ///< to the peer
};
constexpr Size kSizes[] = {{"10 million", 10'000'000, 1.0 / 3},
                           {"100 million", 100'000'000, 1.0 / 15}};

void frame(benchmark::State& state, unsigned samples) {
  WaveSeries& series = SharedSeries(Steps::even, samples);
  Screen screen(series);
  for (auto _ : state)
    screen.Frame([&] { screen.View().UpdateGraph(); });
}

/// An expose without change.
void expose(benchmark::State& state) {
  WaveSeries& series = SharedSeries(Steps::even, Samples(10'000'000));
  Screen screen(series);
  auto* const area = qobject_cast<QAbstractScrollArea*>(qt::WidgetOf(screen.View()));
  for (auto _ : state)
    area->viewport()->repaint();
}

#ifdef SPARLOW_BENCH_QCUSTOMPLOT

QCustomPlot& peer(unsigned samples) {
  static auto& all = *new std::map<unsigned, std::unique_ptr<QCustomPlot>>;  // for ever, as Qt
  auto& plot = all[samples];
  if (plot)
    return *plot;
  TheApplication();
  plot = std::make_unique<QCustomPlot>();
  plot->resize(kWindow.cx, kWindow.cy);
  plot->setNotAntialiasedElements(QCP::aeAll);
  QCPGraph* const graph = plot->addGraph();
  graph->setAdaptiveSampling(true);
  {
    QVector<QCPGraphData> data(static_cast<qsizetype>(samples));
    Wave wave(Steps::even);
    for (QCPGraphData& each : data)
      wave.Next(each.key, each.value);
    graph->data()->set(data, true);
  }
  plot->rescaleAxes();
  plot->show();
  plot->replot(QCustomPlot::rpImmediateRefresh);
  return *plot;
}

void peerFrame(benchmark::State& state, unsigned samples) {
  QCustomPlot& plot = peer(samples);
  for (auto _ : state)
    plot.replot(QCustomPlot::rpImmediateRefresh);
}

// With what memory costs that is touched first, in both.
void peerAppend(benchmark::State& state) {
  TheApplication();
  const unsigned n = Samples(8'000'000);
  std::vector<double> xs(n), ys(n);
  Wave(Steps::even).Fill(xs, ys);
  QCustomPlot plot;
  for (auto _ : state) {
    state.PauseTiming();
    plot.clearGraphs();
    QCPGraph* const graph = plot.addGraph();
    state.ResumeTiming();
    for (unsigned i = 0; i < n; ++i)
      graph->addData(xs[i], ys[i]);
  }
}

void ownAppend(benchmark::State& state) {
  const unsigned n = Samples(8'000'000);
  std::vector<double> xs(n), ys(n);
  Wave(Steps::even).Fill(xs, ys);
  ViewData series;
  series.Init("appended");
  for (auto _ : state) {
    state.PauseTiming();
    series.Reset();
    state.ResumeTiming();
    for (unsigned i = 0; i < n; ++i)
      series.Add(xs[i], ys[i]);
  }
  series.Term();
}

#endif

}  // namespace

void RegisterFrame() {
  for (const Size& size : kSizes) {
    const unsigned n = Samples(size.samples);
    const std::string own = std::string("frame of ") + size.name;
    benchmark::RegisterBenchmark(own.c_str(), frame, n);
#ifdef SPARLOW_BENCH_QCUSTOMPLOT
    const std::string other = std::string("QCustomPlot, replot of ") + size.name;
    benchmark::RegisterBenchmark(other.c_str(), peerFrame, n);
    AtMost("Whole frame, " + std::string(size.name) + " samples, to QCustomPlot", own, other,
           size.goal);
#endif
  }
  benchmark::RegisterBenchmark("expose without change", expose);
  AtMost("An expose without change, to a frame", "expose without change", "frame of 10 million", 1);
#ifdef SPARLOW_BENCH_QCUSTOMPLOT
  benchmark::RegisterBenchmark("Add from nothing", ownAppend);
  benchmark::RegisterBenchmark("QCustomPlot, addData from nothing", peerAppend);
  AtMost("Append one by one with growth, to QCustomPlot", "Add from nothing",
         "QCustomPlot, addData from nothing", 0.5);
#else
  Told([] {
    return std::vector<Line>{{"Whole frame, to QCustomPlot", "1/3 and 1/15", "not installed here"}};
  });
#endif
}

}  // namespace sparlow::bench
