// What must hold between a graph and its workers; of threads that meet in no particular order the
// sanitizers say what they find.

#include "tests/graph/GraphTest.h"
#include "tests/support/Doubled.h"

namespace sparlow {
namespace {

using test::Doubled;

/// A thread that the system is slow to start.
struct HeldThread {
  static inline std::atomic<bool> released{true};
  static inline std::atomic<int> started{0};
  static bool Start(AFX_THREADPROC proc, void* parameter) {
    ++started;
    std::thread([proc, parameter] {
      Spin([] { return released.load(); });
      proc(parameter);
    }).detach();
    return true;
  }
};

class PipelineTest : public GraphTest {
 protected:
  PipelineTest() {
    HeldThread::started = 0;
    SetThreadStarter(HeldThread::Start);
  }
  /// A view of an analysis of the series, which a worker has begun and whose end is up to the test.
  void StartAnalysis(Doubled::End end) {
    Fill(series, 100);
    OpenView(analysis);
    analysis.end = end;
    const int before = analysis.runs;
    TheGraph().AnalyzeAll();
    Spin([=, this] { return analysis.runs > before; });
  }
  /// Does something from another thread, after a while.
  template <class Action>
  static std::jthread Later(Action action) {
    return std::jthread([action] {
      std::this_thread::sleep_for(std::chrono::milliseconds(30));
      action();
    });
  }
  void ExpectFreeAndIdle() {
    EXPECT_TRUE(TheGraph().Settled());
    // Not if somebody has kept a turn.
    std::thread([this] { TheGraph().SetViewData(TheGraph().GetActiveViewData()); }).join();
  }

  Doubled& analysis = Make<Doubled>("Doubled", &series);
};

TEST_F(PipelineTest, DestroyWaitsForAWorkerThatHasntRunYetAndNothingStartsAfterIt) {
  HeldThread::released = false;
  Show(20000);
  EXPECT_EQ(HeldThread::started, 1);
  const auto late = Later([] { HeldThread::released = true; });
  TheGraph().Destroy();
  EXPECT_TRUE(HeldThread::released);
  const int before = series.begun;
  view->UpdateGraph();
  TheGraph().AnalyzeAll();
  TheGraph().ResizeGraph();
  ExpectFreeAndIdle();
  EXPECT_EQ(series.begun, before);
  EXPECT_EQ(HeldThread::started, 1);
}

TEST_F(PipelineTest, TheCallerRendersWhenNoThreadStarts) {
  SetThreadStarter([](AFX_THREADPROC, void*) { return false; });
  Show(20000);
  ExpectFreeAndIdle();
  Pump();
  EXPECT_TRUE(Shows("Delay"));
  ExpectTrueColumns();
}

TEST_F(PipelineTest, OfAThousandResizesOneWorkerRendersTheNewestAndNoPaintWaits) {
  StartGatedRender();
  for (int width = 400; width < 1400; ++width)
    Window().Resize({width, 300});
  Pump();
  EXPECT_TRUE(Shows("Rendering graph"));
  EXPECT_FALSE(Shows("Delay"));
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());
  EXPECT_EQ(HeldThread::started, 1);
  EXPECT_EQ(series.completed, 1);
  EXPECT_EQ(Plot(), (CSize{1399 - 58 - 20, 300 - 42}));
  EXPECT_FALSE(series.renderStop);
  ExpectTrueColumns();
  Pump();
  EXPECT_TRUE(Shows("Delay"));
}

TEST_F(PipelineTest, AnalysesThatAreAskedForDuringARunAreOneRunAfterIt) {
  StartAnalysis(Doubled::waits);
  for (int i = 0; i < 100; ++i)
    PostMessage(view->GetSafeHwnd(), WM_RECALC_ANALYSIS, 0, 0);
  Pump();
  EXPECT_EQ(HeldThread::started, 1);
  analysis.end = Doubled::succeeds;
  ASSERT_TRUE(AwaitIdle());
  EXPECT_EQ(analysis.runs, 2);
}

TEST_F(PipelineTest, DestroyEndsARenderAndTheOneThatIsDueAfterIt) {
  StartGatedRender();
  Window().Resize({500, 400});
  StopAtGate(series, [this] { CloseView(); });
  EXPECT_EQ(series.completed, 0);
  EXPECT_EQ(series.begun, series.stopped);
  EXPECT_FALSE(series.IsAborted());
}

TEST_F(PipelineTest, DestroyAnswersBoxesOfItsWorkersAndKeepsAHostsOwnSignal) {
  struct Asking : Analysis {
    bool Calculate() override {
      begun = true;
      Spin([this] { return IsAborted(); });
      AfxMessageBox("Nobody sees this");
      return false;
    }
    std::atomic<bool> begun{false};
  };
  auto& asking = Make<Asking>("Asking", &series);
  Fill(series, 100);
  OpenView(asking);
  TheGraph().AnalyzeAll();
  Spin([&] { return asking.begun.load(); });
  CloseView();
  EXPECT_TRUE(system.boxes.empty());
  EXPECT_FALSE(asking.IsAborted());
  OpenView();
  SetEvent(series.terminator);
  Show(20000);  // a worker waits for the host
  CloseView();
  EXPECT_TRUE(series.terminator->IsSet());
  ResetEvent(series.terminator);
}

TEST_F(PipelineTest, AnalysesThatThrowEndTheRunAndNothingElse) {
  StartAnalysis(Doubled::throws);
  ASSERT_TRUE(AwaitIdle());
  EXPECT_EQ(analysis.runs, 1);
  SetThreadStarter([](AFX_THREADPROC, void*) { return false; });
  EXPECT_THROW(TheGraph().AnalyzeAll(), std::runtime_error) << "the caller may know what to do";
  analysis.end = Doubled::succeeds;
  TheGraph().AnalyzeAll();
  EXPECT_EQ(analysis.GetSize(), 100u);
}

TEST_F(PipelineTest, DestroyEndsAlsoTheAnalysisOfAReplacedSeries) {
  StartAnalysis(Doubled::waits);
  TheGraph().SetViewData(&series);
  CloseView();
  EXPECT_EQ(analysis.end, Doubled::fails);
}

TEST_F(PipelineTest, SeriesMayEndAsSoonAsTheWindowIsDestroyed) {
  auto own = std::make_unique<ViewData>();
  own->Init("Own", nullptr);
  OpenView(*own);
  view->afterMessage = [&](UINT message) {
    if (message != WM_DESTROY)
      return;
    own->Term();
    own.reset();
  };
  CloseView();
  EXPECT_EQ(own, nullptr);
}

TEST_F(PipelineTest, ChangesStopARenderAndAnUpdateAwaitsIt) {
  const std::function<void()> changes[] = {
      [&] { view->ChangeAxes([](GraphAxis&) {}); },
      [&] { TheGraph().ZoomInBySample(); },
      [&] { TheGraph().Scroll(-100); },
      [&] { TheGraph().SetViewData(&analysis); },
  };
  for (const auto& change : changes) {
    TheGraph().SetViewData(&series);
    StartGatedRender();
    const int stopped = series.stopped;
    StopAtGate(series, change);
    EXPECT_EQ(series.stopped, stopped + 1) << &change - changes;
    ASSERT_TRUE(AwaitIdle());
  }
  TheGraph().SetViewData(&series);
  StartGatedRender();
  const int completed = series.completed;
  const auto opener = Later([this] { series.OpenGate(); });
  view->UpdateGraph();
  EXPECT_GT(series.completed, completed) << "a feed would starve it";
  ASSERT_TRUE(AwaitIdle());
}

TEST_F(PipelineTest, ClearStopsARenderAndAnAnalysis) {
  StartGatedRender();
  StopAtGate(series, [this] { view->Clear(); });
  EXPECT_FALSE(series.Valid());
  Fill(analysis, 100);
  StartAnalysis(Doubled::waits);
  view->Clear();
  EXPECT_EQ(analysis.end, Doubled::fails);
  EXPECT_FALSE(analysis.Valid());
  EXPECT_FALSE(analysis.IsAborted());
}

TEST_F(PipelineTest, ARenderThatItsHostStopsIsDoneWhenTheHostLetsIt) {
  SetEvent(series.terminator);
  Show(20000);
  view->ChangeAxes([](GraphAxis&) {});  // not kept by the one that waits
  EXPECT_TRUE(RenderDue());
  EXPECT_EQ(series.begun, 0) << "nobody tries in vain";
  series.CloseGate();
  ResetEvent(series.terminator);
  series.AwaitWorker();
  SetEvent(series.terminator);
  series.OpenGate();
  ASSERT_TRUE(PumpUntil([this] { return series.stopped > 0; }));
  EXPECT_TRUE(RenderDue());
  ResetEvent(series.terminator);
  ASSERT_TRUE(AwaitIdle());
  Pump();
  EXPECT_TRUE(Shows("Delay"));
}

TEST_F(PipelineTest, WhatARenderThrowsIsTriedOnceMoreAndToldInOneBox) {
  struct Throwing : GatedSeries {
    int yPosGet(unsigned sample, const GraphAxis* shown) const override {
      if (throws)
        throw std::runtime_error("no reason");
      return GatedSeries::yPosGet(sample, shown);
    }
    bool throws = true;
  };
  auto& throwing = Make<Throwing>("Throwing");
  Fill(throwing, 20000);
  OpenView(throwing);
  for (int i = 0; i < 2; ++i) {
    view->UpdateGraph();
    ASSERT_TRUE(AwaitIdle());
    EXPECT_EQ(throwing.begun, 2 * (i + 1));
  }
  ExpectFreeAndIdle();
  EXPECT_EQ(system.boxes, std::vector<std::string>{"Cannot render the graph.\nno reason"});
  throwing.throws = false;
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  Pump();
  EXPECT_TRUE(Shows("Throwing"));
}

class StressTest : public GraphTest {
 protected:
  /// Feeds data sets of some blocks, one after the other, until it is told to stop.
  void Feed(unsigned blockSize, int blocks) {
    feeder_ = std::jthread([=, this](const std::stop_token& stop) {
      while (!stop.stop_requested()) {
        Begin(series);
        for (int i = 0; i < blocks && !stop.stop_requested(); ++i) {
          AddBlock(series, blockSize);
          PostMessage(window_, WM_UPDATE_GRAPH, 0, 0);
        }
        series.TermDataTransfer();
        PostMessage(window_, WM_UPDATE_GRAPH, 0, 0);
        ++dataSets_;
      }
    });
  }
  void StopFeed() { feeder_ = {}; }

  std::atomic<HWND> window_{view->GetSafeHwnd()};
  std::atomic<int> dataSets_{0};

 private:
  std::jthread feeder_;
};

TEST_F(StressTest, NewDataSetsUnderUpdatesResizesAndPaints) {
  // Labels of one length, so that the margins stay.
  axis.ver.fixedMin = -2;
  axis.ver.fixedMax = 2;
  axis.ver.autoRange = false;
  axis.SetVerFixed();
  Feed(4000, 8);
  for (int round = 0; dataSets_ < 40; ++round) {
    if (round % 3 == 0)
      Window().Resize({300 + 78 + round % 200, 300 + 42 + round % 200});
    MessageQueue::Serve();
    TheGraph().DrawAll();
    TheGraph().MoveLCursor(round % 2 ? 9 : -9);
    series.SetRCursor(1u << 30);
    ViewData(series).CalculateStatParams(-1, 30);
    // All of these plots are square; half a layout isn't.
    CPoint corner{1 << 20, 1 << 20};
    TheGraph().Clip(corner);
    EXPECT_EQ(corner.x, corner.y);
  }
  StopFeed();
  ASSERT_TRUE(AwaitIdle());
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  ExpectTrueColumns();
}

TEST_F(StressTest, AViewClosesWhileItsSeriesIsFed) {
  Feed(3000, 12);
  for (int round = 0; round < 8; ++round) {
    const int enough = dataSets_ + 2;
    for (int i = 0; dataSets_ < enough; ++i) {
      MessageQueue::Serve();
      if (i % 10 == 0)
        Window().Resize({500 + i % 100, 400});
      if (i % 7 == 0)
        TheGraph().AnalyzeAll();
    }
    OpenView();
    window_ = view->GetSafeHwnd();
  }
  StopFeed();
  CloseView();
  EXPECT_FALSE(series.IsAborted());
  EXPECT_FALSE(series.renderStop);
}

}  // namespace
}  // namespace sparlow
