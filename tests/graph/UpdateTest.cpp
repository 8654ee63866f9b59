// Which axes, columns and threads an update or a resize of a graph comes to.

#include "sparlow/graph/AxisFit.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

// Axes of 0 to 8.
TEST(AxisFitTest, AutomaticAxesFollowTheData) {
  const struct {
    bool live, hor, ver, yAutoZoom, whole;
    IntervalBounds data;
    bool changed;
    const char* range;
  } cases[] = {{false, true, true, true, false, {2, 4, -1, 1}, true, "2 4 -1 1"},
               {false, true, true, false, true, {2, 4, -1, 1}, true, "2 4 -1 1"},
               {false, true, true, false, false, {2, 4, -1, 1}, true, "2 4 0 8"},
               {false, false, true, false, false, {2, 4, -1, 1}, true, "0 8 -1 1"},
               {false, true, false, false, false, {2, 4, -1, 1}, true, "2 4 0 8"},
               // While samples come, only where the data leave the axis.
               {true, true, true, true, true, {0, 8, 1, 7}, false, "0 8 0 8"},
               {true, true, true, true, true, {1, 8, 1, 7}, false, "0 8 0 8"},
               {true, true, true, true, true, {2, 9, 1, 7}, true, "2 16 0 8"},
               {true, true, true, true, true, {0, 8, 2, 9}, true, "0 8 2 9"},
               {true, true, true, true, true, {0, 8, -1, 8}, true, "0 8 -1 8"},
               {true, false, true, true, true, {0, 8, 1, 7}, false, "0 8 0 8"},
               {true, false, false, true, true, {0, 8, 1, 7}, true, "0 8 0 8"}};
  for (const auto& c : cases) {
    GraphAxis axis;
    axis.SetRange(0, 8, 0, 8);
    axis.hor.autoRange = c.hor;
    axis.ver.autoRange = c.ver;
    axis.yAutoZoom = c.yAutoZoom;
    if (!c.live)
      FitAxes(axis, c.data, c.whole);
    EXPECT_EQ(!c.live || FitLiveAxes(axis, c.data), c.changed) << &c - cases;
    EXPECT_EQ(FormatText("%g %g %g %g", axis.hor.min, axis.hor.max, axis.ver.min, axis.ver.max),
              c.range)
        << &c - cases;
  }
}

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
