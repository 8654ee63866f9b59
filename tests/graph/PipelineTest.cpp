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

class PipelineTest : public GraphTest {};

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

TEST_F(PipelineTest, DestroyEndsARenderAndTheOneThatTakesOver) {
  StartGatedRender();
  Window().Resize({500, 400});
  Window().Resize({600, 400});
  ASSERT_EQ(Workers(), 3);
  std::thread opener([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    series.OpenGate();
  });
  CloseView();
  opener.join();
  EXPECT_EQ(series.completed, 0);
  EXPECT_EQ(series.begun, series.stopped);
  EXPECT_FALSE(series.IsAborted());
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

TEST_F(PipelineTest, DestroySeesSeriesThatBecameEmpty) {
  // An analysis of an emptied series polls IsAborted until it is told to stop.
  struct Polling : GatedSeries {
    bool Analyze() override {
      started = true;
      while (!IsAborted())
        std::this_thread::yield();
      return true;
    }
    std::atomic<bool> started{false};
  } empty;
  CloseView();
  view = new TestView;
  ASSERT_TRUE(view->Create());
  view->CreateGraph(&axis);
  empty.Init("Emptied", nullptr);
  view->AddViewData(&empty);
  TheGraph().AnalyzeAll();
  while (!empty.started)
    std::this_thread::yield();
  CloseView();
  EXPECT_FALSE(empty.IsAborted());
  empty.Term();
}

TEST_F(PipelineTest, OfManyResizesTheNewestIsRendered) {
  StartGatedRender();
  for (int width = 400; width < 420; ++width)
    Window().Resize({width, 300});
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());
  // The first one was stopped; of the resizes a few may have begun before the newest was asked for.
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

TEST_F(PipelineTest, TheMessageStaysUntilTheLastRenderDueIsDone) {
  StartGatedRender();
  // The second worker is asked for, but its thread doesn't come to run before the first has ended.
  HeldThread::released = false;
  SetThreadStarter(HeldThread::Start);
  Window().Resize({500, 400});
  series.OpenGate();
  ASSERT_TRUE(PumpUntil([this] { return Workers() == 1; }));
  TheGraph().DrawAll();
  EXPECT_TRUE(Shows("Rendering graph"));
  HeldThread::released = true;
  ASSERT_TRUE(AwaitIdle());
  Pump();
  EXPECT_TRUE(Shows("Delay"));
  ExpectTrueColumns();
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

TEST_F(PipelineTest, ResizingLeavesAnAnalysisAlone) {
  struct Calculated : GatedSeries {
    bool Analyze() override {
      started = true;
      while (!finish && !IsAborted())
        std::this_thread::yield();
      return !IsAborted();
    }
    std::atomic<bool> started{false};
    std::atomic<bool> finish{false};
  } calculated;
  CloseView();
  calculated.Init("Calculated", nullptr);
  Fill(calculated, 20000);
  view = new TestView;
  ASSERT_TRUE(view->Create());
  Window().Resize({640, 480});
  view->CreateGraph(&axis);
  view->AddViewData(&calculated);
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  SendMessage(view->GetSafeHwnd(), WM_RECALC_ANALYSIS, 0, 0);
  while (!calculated.started)
    std::this_thread::yield();
  for (int width = 400; width < 410; ++width)
    Window().Resize({width, 300});
  ASSERT_TRUE(PumpUntil([this] { return !RenderDue(); }));
  const int rendersBefore = calculated.completed;
  calculated.finish = true;
  // The update that the analysis posts renders again.
  EXPECT_TRUE(PumpUntil([&] { return calculated.completed > rendersBefore && Workers() == 0; }));
  CloseView();
  calculated.Term();
}

TEST_F(PipelineTest, AnotherSeriesTakesOverOnlyWhenTheRenderHasEnded) {
  StartGatedRender();
  ViewData other;
  other.Init("Other", nullptr);
  Fill(other, 100);
  std::thread opener([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    series.OpenGate();
  });
  TheGraph().SetViewData(&other);
  EXPECT_EQ(series.begun, series.completed + series.stopped);
  opener.join();
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  EXPECT_TRUE(series.threadsMutex->TryLock());
  series.threadsMutex->Unlock();
  Pump();
  EXPECT_TRUE(Shows("Other"));
  CloseView();
  other.Term();
}

TEST_F(PipelineTest, ARenderThatItsHostStopsIsDoneWhenTheHostLetsIt) {
  Fill(series, 20000);
  SetEvent(series.terminator);
  view->UpdateGraph();
  ASSERT_TRUE(PumpUntil([this] { return series.stopped > 0; }));
  EXPECT_TRUE(RenderDue());
  EXPECT_TRUE(PipelineLock().TryLock()) << "the wait must not keep the window's thread";
  PipelineLock().Unlock();
  ResetEvent(series.terminator);
  ASSERT_TRUE(AwaitIdle());
  Pump();
  EXPECT_TRUE(Shows("Delay"));
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
  EXPECT_LT(axis.hor.max, 1.0) << "the axis is that of the data set before";
}

TEST_F(PipelineTest, ACalculationThatThrowsFailsOnAWorkerAndPassesThroughOnTheCaller) {
  struct Throwing : GatedSeries {
    bool Analyze() override { throw Error{0xFF03}; }
  } throwing;
  CloseView();
  throwing.Init("Throwing", nullptr);
  Fill(throwing, 100);
  view = new TestView;
  ASSERT_TRUE(view->Create());
  view->CreateGraph(&axis);
  view->AddViewData(&throwing);
  TheGraph().AnalyzeAll();
  ASSERT_TRUE(AwaitIdle());
  Pump();
  EXPECT_EQ(throwing.begun, 0) << "a failed analysis brings no update";
  SetThreadStarter([](AFX_THREADPROC, void*) { return false; });
  EXPECT_THROW(TheGraph().AnalyzeAll(), Error);
  EXPECT_EQ(Workers(), 0);
  EXPECT_TRUE(PipelineLock().TryLock());
  PipelineLock().Unlock();
  CloseView();
  throwing.Term();
}

TEST_F(PipelineTest, ATooLargeWindowIsToldOfAndNothingHangs) {
  Fill(series, 20000);
  Window().Resize({16384, 300});
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  ASSERT_FALSE(system.boxes.empty());
  EXPECT_EQ(system.boxes[0],
            "Screen or printer resolution is too high.\nThe graph will be truncated.");
  system.boxes.clear();
  // A worker that wants its box while the window closes gets an answer.
  series.CloseGate();
  Window().Resize({16385, 300});
  series.AwaitWorker();
  std::thread opener([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    series.OpenGate();
  });
  CloseView();
  opener.join();
  EXPECT_TRUE(system.boxes.empty());
}

}  // namespace
}  // namespace sparlow
