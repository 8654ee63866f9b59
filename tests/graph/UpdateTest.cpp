// Which axes, columns and threads an update or a resize of a graph comes to.

#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

using UpdateTest = GraphTest;

TEST_F(UpdateTest, WithoutSamplesThereIsAMessageAndAResetAxis) {
  axis.SetRange(0, 1, 0, 1);
  view->UpdateGraph();
  EXPECT_EQ(axis.hor.max, 0.0);
  axis.Preset(-1, 1, 0, 10);
  view->UpdateGraph();
  EXPECT_EQ(axis.hor.max, 10.0);
  Pump();
  EXPECT_TRUE(Shows("No Data Available"));
  EXPECT_EQ(Frame().size(), 3u) << "background, message and the copy to the window";
}

TEST_F(UpdateTest, LimitsOfTheCallersThread) {
  const auto isLeftToAWorker = [this](const auto& change) {
    series.CloseGate();
    change();
    const bool left = !TheGraph().Settled();
    series.OpenGate();
    EXPECT_TRUE(AwaitIdle());
    return left;
  };
  for (const unsigned samples : {9999u, 10000u, 10001u}) {
    EXPECT_EQ(isLeftToAWorker([&] { Show(samples); }), samples > 10000);
    EXPECT_EQ(isLeftToAWorker([&] {
                Window().Resize({static_cast<int>(samples % 100) + 500, 300});
              }),
              samples >= 10000);
  }
}

TEST_F(UpdateTest, AGrowingMeasurementIsRenderedAnewOnlyWhenItsSpanDoubles) {
  Begin(series);
  ShowMore(1);
  ShowMore(999);
  EXPECT_DOUBLE_EQ(axis.hor.max, 2 * 0.999);
  const double scale = axis.hor.scale;
  ShowMore(900);
  EXPECT_EQ(axis.hor.scale, scale);
  ExpectTrueColumns();
  ShowMore(200);
  EXPECT_DOUBLE_EQ(axis.hor.max, 2 * 2.099);
  ExpectTrueColumns();
  series.TermDataTransfer();
  view->UpdateGraph();
  EXPECT_DOUBLE_EQ(axis.hor.max, 2.099) << "at its end the axis fits the data";
}

TEST_F(UpdateTest, APeakInAMarginMovesTheAxis) {
  axis.yMarginPercent = 10;
  Begin(series);
  AddPoints(series, {{0, 0}, {1, 1}});
  view->UpdateGraph();
  EXPECT_DOUBLE_EQ(axis.ver.max, 1.1);
  AddPoints(series, {{1.5, 1.15}});
  view->UpdateGraph();
  EXPECT_GT(axis.ver.max, 1.15);
  ExpectTrueColumns();
}

TEST_F(UpdateTest, OnlyNewSamplesAreRenderedHoweverManyThereAre) {
  for (const int margin : {0, 10}) {
    SCOPED_TRACE(margin);
    axis.yMarginPercent = margin;
    series.Reset();
    Begin(series);
    AddPoints(series, {{0, -2}, {0, 2}});
    ShowMore(12000);
    ASSERT_TRUE(AwaitIdle());
    const int before = series.begun;
    ShowMore(11000);
    EXPECT_TRUE(TheGraph().Settled());
    EXPECT_EQ(series.begun, before + 1);
    EXPECT_FALSE(series.lastWasFull);
    ExpectTrueColumns();
    series.TermDataTransfer();
  }
}

TEST_F(UpdateTest, LastSamplesSlideAlongTheAxis) {
  SourceData::nLastSamplesToDraw = 100;
  Begin(series);
  ShowMore(400);
  ShowMore(50);
  EXPECT_DOUBLE_EQ(axis.hor.min, 0.350);
  EXPECT_DOUBLE_EQ(axis.hor.max, 0.449);
  ExpectTrueColumns();
}

TEST_F(UpdateTest, LayoutLeavesRoomForLabelsAndNeverLessThanAPixel) {
  Show(100);
  const CSize plot{640 - 58 - 20, 480 - 21 - 21};
  EXPECT_EQ(Plot(), plot);
  Graph::LockResizing();
  Window().Resize({300, 200});
  Graph::UnlockResizing();
  Pump();
  EXPECT_EQ(Plot(), plot) << "what came while it was locked is forgotten";
  TheGraph().ResizeGraph();
  EXPECT_EQ(Plot(), (CSize{300 - 78, 200 - 42}));
  for (const CSize tiny : {CSize{100, 30}, CSize{0, 0}}) {
    Window().Resize(tiny);
    EXPECT_EQ(Plot(), (CSize{122, 8}));
  }
}

// The window's thread clears a series while the one that feeds it waits for a worker, which waits for
// the window's thread to answer its box.
TEST_F(UpdateTest, ClearAnswersTheBoxThatTheFeedWaitsFor) {
  std::atomic<bool> locked{false}, feeding{false};
  std::thread worker([&] {
    const CSingleLock lock(series.dataMutex);
    locked = true;
    Spin([&] { return feeding.load(); });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    AfxMessageBox("in the way");
  });
  Spin([&] { return locked.load(); });
  std::thread feeder([&] {
    series.InitDataTransfer(false);
    feeding = true;
    series.InitBlockTransfer();
    series.Add(1, 1);
  });
  Spin([&] { return feeding.load(); });
  EXPECT_FALSE(series.TryReset());
  worker.join();
  feeder.join();
  EXPECT_EQ(series.GetSize(), 1u);
  EXPECT_EQ(system.boxes.size(), 1u);
}

TEST_F(UpdateTest, ClearEmptiesASeriesUnlessAnotherThreadFeedsIt) {
  Show(100);
  Begin(series);
  AddBlock(series, 10);
  std::thread([this] { TheGraph().Clear(); }).join();
  EXPECT_EQ(series.GetSize(), 10u);
  view->Clear();
  EXPECT_EQ(series.GetSize(), 0u);
  AddBlock(series, 5);
  EXPECT_TRUE(series.TermDataTransfer()) << "the feed goes on";
  EXPECT_EQ(series.GetSize(), 5u);
}

}  // namespace
}  // namespace sparlow
