// What must hold between a graph and its workers; of threads that meet in no particular order the
// sanitizers say what they find.

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
    std::thread([this] {
      CMutex& lock = AllWorkers()->pipelineLock;
      EXPECT_TRUE(lock.TryLock()) << "somebody has left it locked";
      lock.Unlock();
    }).join();
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

TEST_F(PipelineTest, DestroyEndsARenderAndTheOneThatTakesOver) {
  StartGatedRender();
  Window().Resize({500, 400});
  Window().Resize({600, 400});
  ASSERT_EQ(Workers(), 3);
  std::thread opener([this, workers = AllWorkers()] {
    while (!workers->Closed())
      std::this_thread::yield();
    series.OpenGate();
  });
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

TEST_F(PipelineTest, ChangesOfSeriesAxesAndIntervalWaitForTheRenderToEnd) {
  ViewData other;
  other.Init("Other", nullptr);
  const auto ended = [this] { return series.begun == series.completed + series.stopped; };
  const std::function<bool()> changes[] = {
      [&] {
        bool inTime = false;
        view->ChangeAxes([&](GraphAxis&) { inTime = ended(); });
        return inTime;
      },
      [&] { return TheGraph().ZoomInBySample(), true; },  // not while the gate is closed
      [&] { return TheGraph().SetViewData(&other), ended(); },
  };
  for (const auto& change : changes) {
    StartGatedRender();
    std::thread opener = Later([this] {
      EXPECT_EQ(series.GetIntervalSize(), 20000u);
      series.OpenGate();
    });
    EXPECT_TRUE(change()) << &change - changes;
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
    int yPosGet(unsigned, const GraphAxis*) const override { throw Error{0xFF03}; }
  } throwing;
  throwing.Init("Throwing", nullptr);
  Fill(throwing, 20000);
  OpenView({640, 480}, throwing);
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  ExpectFreeAndIdle();
  CloseView();
  throwing.Term();
}

class StressTest : public GraphTest {
 protected:
  /// Feeds data sets of some blocks, one after the other, until it is told to stop.
  void Feed(unsigned blockSize, int blocks) {
    feeder_ = std::thread([=, this] {
      while (!stop_) {
        Begin(series);
        for (int i = 0; i < blocks && !stop_; ++i) {
          AddBlock(series, blockSize);
          PostMessage(window_, WM_UPDATE_GRAPH, 0, 0);
        }
        series.TermDataTransfer();
        PostMessage(window_, WM_UPDATE_GRAPH, 0, 0);
        ++dataSets_;
      }
    });
  }
  void StopFeed() {
    stop_ = true;
    feeder_.join();
    stop_ = false;
  }

  std::atomic<HWND> window_{view->GetSafeHwnd()};
  std::atomic<int> dataSets_{0};

 private:
  std::atomic<bool> stop_{false};
  std::thread feeder_;
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
    OpenView({640, 480});
    window_ = view->GetSafeHwnd();
  }
  StopFeed();
  CloseView();
  EXPECT_FALSE(series.IsAborted());
  EXPECT_FALSE(series.renderStop);
}

}  // namespace
}  // namespace sparlow
