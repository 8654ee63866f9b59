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

  const HWND window_ = view->GetSafeHwnd();
  std::atomic<int> dataSets_{0};

 private:
  std::atomic<bool> stop_{false};
  std::thread feeder_;
};

TEST_F(StressTest, NewDataSetsUnderUpdatesResizesAndPaints) {
  Feed(4000, 8);
  for (int round = 0; dataSets_ < 40; ++round) {
    if (round % 3 == 0)
      Window().Resize({400 + round % 200, 300});
    MessageQueue::Serve();
    TheGraph().DrawAll();
    CPoint point{round, round};
    TheGraph().Clip(point);
    if (TheGraph().DataAndAxisValid())
      axis.xPointValue(point.x);
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
    CloseView();
    OpenView({640, 480});
  }
  StopFeed();
  CloseView();
  EXPECT_FALSE(series.IsAborted());
  EXPECT_FALSE(series.renderStop);
}

TEST_F(StressTest, AStormOfResizesEndsInTheLastSize) {
  Fill(series, 60000);
  view->UpdateGraph();
  for (int round = 0; round < 200; ++round)
    Window().Resize({300 + round, 300});
  ASSERT_TRUE(AwaitIdle());
  EXPECT_EQ(Plot().cx, 499 - 78);
  ExpectTrueColumns();
}

}  // namespace
}  // namespace sparlow
