// What must hold between a graph and its workers, each case one that a step-by-step pipeline
// without requests, counts and a closing state would fail.

#include <thread>

#include "sparlow/platform/Threads.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

// A thread that the system is slow to start.
struct HeldThread {
  static inline std::atomic<bool> released{false};
  static bool Start(AFX_THREADPROC proc, void* parameter) {
    std::thread([proc, parameter] {
      while (!released)
        std::this_thread::yield();
      proc(parameter);
    }).detach();
    return true;
  }
};

/// A series whose analysis goes on until it is told to stop, or that it is done.
struct AnalyzedSeries : GatedSeries {
  bool Analyze() override {
    started = true;
    while (!finish && !(mayPoll && IsAborted()))
      std::this_thread::yield();
    return finish;
  }
  void AwaitAnalysis() const {
    while (!started)
      std::this_thread::yield();
  }
  std::atomic<bool> started{false};
  std::atomic<bool> mayPoll{true};
  std::atomic<bool> finish{false};
};

class PipelineTest : public GraphTest {
 protected:
  PipelineTest() { analyzed.Init("Analyzed", nullptr); }
  ~PipelineTest() override {
    CloseView();
    analyzed.Term();
  }
  /// A view of the series with an analysis, which runs.
  void StartAnalysis(unsigned samples) {
    CloseView();
    if (samples > 0)
      Fill(analyzed, samples);
    OpenView({640, 480}, analyzed);
    SendMessage(view->GetSafeHwnd(), WM_RECALC_ANALYSIS, 0, 0);
    analyzed.AwaitAnalysis();
  }

  AnalyzedSeries analyzed;
};

TEST_F(PipelineTest, DestroyWaitsForAWorkerThatHasntRunYet) {
  HeldThread::released = false;
  SetThreadStarter(HeldThread::Start);
  Fill(series, 20000);
  view->UpdateGraph();
  ASSERT_EQ(Workers(), 1);
  std::thread late([] {
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    HeldThread::released = true;
  });
  TheGraph().Destroy();
  EXPECT_TRUE(HeldThread::released);
  EXPECT_EQ(Workers(), 0);
  late.join();
}

TEST_F(PipelineTest, TheCallerRendersWhenNoThreadStarts) {
  SetThreadStarter([](AFX_THREADPROC, void*) { return false; });
  Fill(series, 20000);
  view->UpdateGraph();
  EXPECT_EQ(Workers(), 0);
  EXPECT_FALSE(RenderDue());
  Pump();
  EXPECT_TRUE(Shows("Delay"));
  ExpectTrueColumns();
}

TEST_F(PipelineTest, NothingStartsAfterDestroy) {
  Fill(series, 20000);
  TheGraph().Destroy();
  view->UpdateGraph();
  TheGraph().AnalyzeAll();
  TheGraph().ResizeGraph();
  EXPECT_EQ(Workers(), 0);
  EXPECT_FALSE(RenderDue());
  EXPECT_EQ(series.begun, 0);
}

TEST_F(PipelineTest, OfManyResizesTheNewestIsRendered) {
  StartGatedRender();
  for (int width = 400; width < 420; ++width)
    Window().Resize({width, 300});
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());
  EXPECT_EQ(series.completed, 1);
  EXPECT_EQ(Plot(), (CSize{419 - 58 - 20, 300 - 42}));
  EXPECT_FALSE(series.renderStop);
  ExpectTrueColumns();
  Pump();
  EXPECT_TRUE(Shows("Delay"));
}

TEST_F(PipelineTest, APaintDuringARenderNeverWaitsAndTheLastOneShowsTheGraph) {
  StartGatedRender();
  Window().Resize({500, 400});
  Pump();
  EXPECT_TRUE(Shows("Rendering graph"));
  EXPECT_FALSE(Shows("Delay"));
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());
  Pump();
  EXPECT_FALSE(Shows("Rendering graph"));
  EXPECT_TRUE(Shows("Delay"));
}

TEST_F(PipelineTest, AStoppedRenderLeavesItsReadoutToTheOneThatCompletes) {
  GraphWorkers workers;
  const std::uint64_t update = workers.AskForRender(true);
  const std::uint64_t resize = workers.AskForRender(false);
  EXPECT_FALSE(GraphWorkers::RunningRender(workers, update, {}));
  EXPECT_TRUE(GraphWorkers::RunningRender(workers, resize, {}));
  EXPECT_TRUE(workers.TakeReadout());
  EXPECT_FALSE(workers.TakeReadout());
}

TEST_F(PipelineTest, AStopMeetsOnlyTheRenderThatRuns) {
  GraphWorkers workers;
  const std::uint64_t first = workers.AskForRender(false);
  {
    const GraphWorkers::RunningRender running(workers, first, {&series});
    workers.AskForRender(false);
    EXPECT_TRUE(series.renderStop);
    EXPECT_FALSE(series.IsAborted()) << "an analysis would see it";
  }
  EXPECT_FALSE(series.renderStop);
  const std::uint64_t last = workers.AskForRender(false);
  EXPECT_FALSE(series.renderStop);
  EXPECT_TRUE(GraphWorkers::RunningRender(workers, last, {&series}));
}

TEST_F(PipelineTest, IncrementalRendersNeverGoOnOverForeignColumns) {
  Begin(series);
  AddBlock(series, 3000);
  view->UpdateGraph();
  AddBlock(series, 100);
  view->UpdateGraph();
  ExpectTrueColumns();
  // Another scale: no update comes with a resize that is locked.
  Graph::LockResizing();
  Window().Resize({900, 480});
  Graph::UnlockResizing();
  AddBlock(series, 10);
  view->UpdateGraph();
  ExpectTrueColumns();
  // A new data set that fits into the old axes, told only by an update.
  series.TermDataTransfer();
  Begin(series);
  AddBlock(series, 500);
  view->UpdateGraph();
  ExpectTrueColumns();
  // And one that doesn't.
  series.TermDataTransfer();
  Begin(series);
  series.InitBlockTransfer();
  series.Add(1e6, 0.0, false);
  series.Add(1e6 + 1, 0.1, false);
  series.TermBlockTransfer();
  view->UpdateGraph();
  EXPECT_EQ(axis.hor.min, 1e6);
  ExpectTrueColumns();
}

TEST_F(PipelineTest, DestroyEndsARenderAndTheOneThatTakesOver) {
  StartGatedRender();
  Window().Resize({500, 400});
  Window().Resize({600, 400});
  ASSERT_EQ(Workers(), 3);
  std::thread opener = OpenGateWhenClosed();
  CloseView();
  opener.join();
  EXPECT_EQ(series.completed, 0);
  EXPECT_EQ(series.begun, series.stopped);
  EXPECT_FALSE(series.IsAborted());
}

TEST_F(PipelineTest, DestroyReachesAnAnalysisWhateverBecomesOfTheTerminator) {
  // The series is empty, and the terminator is cleared behind the graph's back.
  analyzed.mayPoll = false;
  StartAnalysis(0);
  std::thread host([this] {
    while (!analyzed.terminator->IsSet())
      std::this_thread::yield();
    ResetEvent(analyzed.terminator);
    analyzed.mayPoll = true;
  });
  CloseView();
  host.join();
  EXPECT_FALSE(analyzed.IsAborted());
}

TEST_F(PipelineTest, DestroyReachesTheAnalysisOfASeriesThatWasReplaced) {
  StartAnalysis(100);
  TheGraph().SetViewData(&series);
  CloseView();
  EXPECT_FALSE(analyzed.finish);
}

TEST_F(PipelineTest, DestroyLeavesASignalOfTheHostsOwn) {
  SetEvent(series.terminator);
  CloseView();
  EXPECT_TRUE(series.IsAborted());
  ResetEvent(series.terminator);
}

TEST_F(PipelineTest, SeriesMayEndAsSoonAsTheWindowIsDestroyed) {
  CloseView();
  auto own = std::make_unique<ViewData>();
  own->Init("Own", nullptr);
  OpenView({640, 480}, *own);
  view->afterMessage = [&](UINT message) {
    if (message != WM_DESTROY)
      return;
    own->Term();
    own.reset();
  };
  CloseView();
  EXPECT_EQ(own, nullptr);
}

TEST_F(PipelineTest, TheViewMayEndInsideAnUpdate) {
  StartGatedRender();
  Window().onShowScrollBar = [this] { CloseView(); };
  std::thread opener = OpenGateWhenClosed();
  view->UpdateGraph();
  opener.join();
  EXPECT_EQ(view, nullptr);
}

TEST_F(PipelineTest, TheLastToGiveUpBringsTheGraph) {
  // The older render's thread comes to run when the newer one has long been done.
  HeldThread::released = false;
  SetThreadStarter(HeldThread::Start);
  Fill(series, 20000);
  view->UpdateGraph();
  SetThreadStarter(nullptr);
  Window().Resize({500, 400});
  ASSERT_TRUE(PumpUntil([this] { return series.completed == 1 && Workers() == 1; }));
  Pump();
  EXPECT_TRUE(Shows("Rendering graph"));
  HeldThread::released = true;
  ASSERT_TRUE(AwaitIdle());
  Pump();
  EXPECT_TRUE(Shows("Delay"));
  ExpectTrueColumns();
}

TEST_F(PipelineTest, ResizingLeavesAnAnalysisAlone) {
  StartAnalysis(20000);
  analyzed.CloseGate();
  view->UpdateGraph();
  analyzed.AwaitWorker();
  for (int width = 400; width < 410; ++width)
    Window().Resize({width, 300});
  analyzed.OpenGate();
  ASSERT_TRUE(PumpUntil([this] { return !RenderDue(); }));
  const int rendersBefore = analyzed.completed;
  analyzed.finish = true;
  // The update that the analysis posts renders again.
  EXPECT_TRUE(PumpUntil([&] { return analyzed.completed > rendersBefore && Workers() == 0; }));
}

TEST_F(PipelineTest, ChangesOfSeriesAndAxesWaitForTheRenderToEnd) {
  for (const bool changeAxes : {true, false}) {
    StartGatedRender();
    std::thread opener([this] {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      series.OpenGate();
    });
    if (changeAxes) {
      view->ChangeAxes([this](GraphAxis& axes) {
        EXPECT_EQ(series.begun, series.completed + series.stopped);
        axes.yMarginPercent = 3;
      });
    } else {
      TheGraph().SetViewData(&analyzed);
      EXPECT_EQ(series.begun, series.completed + series.stopped);
    }
    opener.join();
    ASSERT_TRUE(AwaitIdle());
  }
  Fill(analyzed, 100);
  view->UpdateGraph();
  Pump();
  EXPECT_TRUE(Shows("Analyzed"));
}

TEST_F(PipelineTest, ARenderThatItsHostStopsIsDoneWhenTheHostLetsIt) {
  Fill(series, 20000);
  SetEvent(series.terminator);
  view->UpdateGraph();
  ASSERT_TRUE(PumpUntil([this] { return series.stopped > 0; }));
  EXPECT_TRUE(RenderDue());
  view->ChangeAxes([](GraphAxis&) {});  // not kept by the one that waits
  ResetEvent(series.terminator);
  ASSERT_TRUE(AwaitIdle());
  Pump();
  EXPECT_TRUE(Shows("Delay"));
}

TEST_F(PipelineTest, WhatAHostThrowsLeavesNothingLocked) {
  struct Throwing : GatedSeries {
    bool Analyze() override { throw Error{0xFF03}; }
    int yPosGet(unsigned, const GraphAxis*) const override { throw Error{0xFF03}; }
  } throwing;
  CloseView();
  throwing.Init("Throwing", nullptr);
  Fill(throwing, 20000);
  OpenView({640, 480}, throwing);
  TheGraph().AnalyzeAll();
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  EXPECT_TRUE(PipelineIsFree());
  SetThreadStarter([](AFX_THREADPROC, void*) -> bool { throw 1; });
  EXPECT_THROW(TheGraph().AnalyzeAll(), Error);
  EXPECT_THROW(view->UpdateGraph(), Error);
  EXPECT_EQ(Workers(), 0);
  EXPECT_FALSE(RenderDue());
  EXPECT_TRUE(PipelineIsFree());
  CloseView();
  throwing.Term();
}

TEST_F(PipelineTest, ATooLargeWindowIsToldOfOnceALayout) {
  Fill(series, 20000);
  Window().Resize({16384, 300});
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  ASSERT_EQ(system.boxes.size(), 1u);
  EXPECT_EQ(system.boxes[0],
            "Screen or printer resolution is too high.\nThe graph will be truncated.");
  Window().Resize({16385, 300});
  ASSERT_TRUE(AwaitIdle());
  EXPECT_EQ(system.boxes.size(), 2u);
  // Messages that are handled while the box is open open no other.
  int nested = 0;
  UiThread::SetBoxHandler([&](const BoxRequest&) {
    ++nested;
    view->UpdateGraph();
    return IDOK;
  });
  view->UpdateGraph();
  EXPECT_EQ(nested, 1);
  UiThread::SetBoxHandler(nullptr);
  Window().Resize({600, 300});
  ASSERT_TRUE(AwaitIdle());
}

}  // namespace
}  // namespace sparlow
