// What must hold between a graph and its workers.

#include <thread>

#include "sparlow/platform/Threads.h"
#include "tests/graph/GraphTest.h"
#include "tests/support/Doubled.h"

namespace sparlow {
namespace {

/// A thread that the system is slow to start.
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

class PipelineTest : public GraphTest {
 protected:
  /// An update whose worker doesn't come to run before HeldThread is released.
  void StartHeldRender() {
    HeldThread::released = false;
    SetThreadStarter(HeldThread::Start);
    Show(20000);
    SetThreadStarter(nullptr);
    ASSERT_EQ(Workers(), 1);
  }
  /// Does something from another thread, after a while.
  template <class Action>
  static std::thread Later(Action action) {
    return std::thread([action] {
      std::this_thread::sleep_for(std::chrono::milliseconds(30));
      action();
    });
  }
  void ExpectFreeAndIdle() {
    EXPECT_EQ(Workers(), 0);
    EXPECT_FALSE(RenderDue());
    EXPECT_TRUE(PipelineIsFree());
  }
};

TEST_F(PipelineTest, DestroyWaitsForAWorkerThatHasntRunYetAndNothingStartsAfterIt) {
  StartHeldRender();
  std::thread late = Later([] { HeldThread::released = true; });
  TheGraph().Destroy();
  EXPECT_TRUE(HeldThread::released);
  late.join();
  const int before = series.begun;
  view->UpdateGraph();
  TheGraph().AnalyzeAll();
  TheGraph().ResizeGraph();
  ExpectFreeAndIdle();
  EXPECT_EQ(series.begun, before);
}

TEST_F(PipelineTest, TheCallerRendersWhenNoThreadStarts) {
  SetThreadStarter([](AFX_THREADPROC, void*) { return false; });
  Show(20000);
  ExpectFreeAndIdle();
  Pump();
  EXPECT_TRUE(Shows("Delay"));
  ExpectTrueColumns();
}

TEST_F(PipelineTest, OfManyResizesTheNewestIsRenderedAndNoPaintWaits) {
  StartGatedRender();
  for (int width = 400; width < 420; ++width)
    Window().Resize({width, 300});
  Pump();
  EXPECT_TRUE(Shows("Rendering graph"));
  EXPECT_FALSE(Shows("Delay"));
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());
  EXPECT_EQ(series.completed, 1);
  EXPECT_EQ(Plot(), (CSize{419 - 58 - 20, 300 - 42}));
  EXPECT_FALSE(series.renderStop);
  ExpectTrueColumns();
  Pump();
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

TEST_F(PipelineTest, DestroyEndsAlsoTheAnalysisOfAReplacedSeries) {
  test::Doubled analysis;
  analysis.Init("Doubled", &series);
  Fill(series, 100);
  OpenView({640, 480}, analysis);
  analysis.end = test::Doubled::waits;
  TheGraph().AnalyzeAll();
  while (analysis.runs == 0)
    std::this_thread::yield();
  TheGraph().SetViewData(&series);
  CloseView();
  EXPECT_EQ(analysis.end, test::Doubled::fails);
  analysis.Term();
}

TEST_F(PipelineTest, SeriesMayEndAsSoonAsTheWindowIsDestroyed) {
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

TEST_F(PipelineTest, TheLastToGiveUpBringsTheGraph) {
  // The older render's thread comes to run when the newer one has long been done.
  StartHeldRender();
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

TEST_F(PipelineTest, ChangesOfSeriesAndAxesWaitForTheRenderToEnd) {
  ViewData other;
  other.Init("Other", nullptr);
  for (const bool changeAxes : {true, false}) {
    StartGatedRender();
    std::thread opener = Later([this] { series.OpenGate(); });
    if (changeAxes) {
      view->ChangeAxes([this](GraphAxis& axes) {
        EXPECT_EQ(series.begun, series.completed + series.stopped);
        axes.yMarginPercent = 3;
      });
    } else {
      TheGraph().SetViewData(&other);
      EXPECT_EQ(series.begun, series.completed + series.stopped);
    }
    opener.join();
    ASSERT_TRUE(AwaitIdle());
  }
  CloseView();
  other.Term();
}

TEST_F(PipelineTest, ARenderThatItsHostStopsIsDoneWhenTheHostLetsIt) {
  SetEvent(series.terminator);
  Show(20000);
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
  throwing.Init("Throwing", nullptr);
  Fill(throwing, 20000);
  OpenView({640, 480}, throwing);
  TheGraph().AnalyzeAll();
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  ExpectFreeAndIdle();
  SetThreadStarter([](AFX_THREADPROC, void*) -> bool { throw 1; });
  EXPECT_THROW(TheGraph().AnalyzeAll(), Error);
  EXPECT_THROW(view->UpdateGraph(), Error);
  ExpectFreeAndIdle();
  CloseView();
  throwing.Term();
}

}  // namespace
}  // namespace sparlow
