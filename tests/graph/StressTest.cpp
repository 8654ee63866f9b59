// Threads that meet at a graph in no particular order; the sanitizers say what they find.

#include <thread>

#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

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
