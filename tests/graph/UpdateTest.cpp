// Which axes, columns and threads an update or a resize of a graph comes to.

#include <thread>

#include "sparlow/platform/CMenu.h"
#include "sparlow/platform/Resources.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

class UpdateTest : public GraphTest {};

TEST_F(UpdateTest, WithoutSamplesThereIsAMessageAndAResetAxis) {
  TheGraph().DrawAll();
  EXPECT_TRUE(Shows("No Data Available"));
  axis.SetRange(0, 1, 0, 1);
  view->UpdateGraph();
  EXPECT_EQ(axis.hor.max, 0.0);
  EXPECT_FALSE(Window().barShown[SB_HORZ]);
  axis.Preset(-1, 1, 0, 10);
  view->UpdateGraph();
  EXPECT_EQ(axis.hor.max, 10.0);
  Pump();
  EXPECT_TRUE(Shows("No Data Available"));
}

TEST_F(UpdateTest, LimitsOfTheCallersThread) {
  series.CloseGate();
  Fill(series, 10000);
  view->UpdateGraph();
  EXPECT_EQ(series.completed, 1);
  EXPECT_EQ(Workers(), 0);
  Window().Resize({500, 300});
  EXPECT_EQ(Workers(), 1) << "a resize of 10000 samples";
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());

  series.CloseGate();
  Fill(series, 10001);
  view->UpdateGraph();
  EXPECT_EQ(Workers(), 1) << "an update of 10001 samples";
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());

  Fill(series, 9999);
  view->UpdateGraph();
  const int before = series.completed;
  Window().Resize({510, 300});
  EXPECT_EQ(series.completed, before + 1);
  EXPECT_EQ(Workers(), 0);
}

TEST_F(UpdateTest, AGrowingMeasurementIsRenderedAnewOnlyWhenItsSpanDoubles) {
  Begin(series);
  AddBlock(series, 1);
  view->UpdateGraph();
  AddBlock(series, 999);
  view->UpdateGraph();
  EXPECT_DOUBLE_EQ(axis.hor.max, 2 * 0.999);
  const double scale = axis.hor.scale;
  AddBlock(series, 900);
  view->UpdateGraph();
  EXPECT_EQ(axis.hor.scale, scale);
  ExpectTrueColumns();
  AddBlock(series, 200);
  view->UpdateGraph();
  EXPECT_DOUBLE_EQ(axis.hor.max, 2 * 2.099);
  ExpectTrueColumns();
  series.TermDataTransfer();
  view->UpdateGraph();
  EXPECT_DOUBLE_EQ(axis.hor.max, 2.099) << "at its end the axis fits the data";
}

TEST_F(UpdateTest, APeakInAMarginMovesTheAxis) {
  axis.yMarginPercent = 10;
  Begin(series);
  series.InitBlockTransfer();
  series.Add(0.0, 0.0, false);
  series.Add(1.0, 1.0, false);
  series.TermBlockTransfer();
  view->UpdateGraph();
  EXPECT_DOUBLE_EQ(axis.ver.max, 1.1);
  series.InitBlockTransfer();
  series.Add(1.5, 1.15, false);
  series.TermBlockTransfer();
  view->UpdateGraph();
  EXPECT_GT(axis.ver.max, 1.15);
  ExpectTrueColumns();
}

TEST_F(UpdateTest, OnlyNewSamplesAreRenderedHoweverManyThereAre) {
  axis.yMarginPercent = 10;
  Begin(series);
  AddBlock(series, 12000);
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  const int before = series.begun;
  AddBlock(series, 11000);
  view->UpdateGraph();
  EXPECT_EQ(Workers(), 0);
  EXPECT_EQ(series.begun, before + 1);
  EXPECT_FALSE(series.lastWasFull);
  ExpectTrueColumns();
  // On two fixed axes every update is a full one.
  view->ChangeAxes([](GraphAxis& axes) { axes.hor.autoRange = axes.ver.autoRange = false; });
  ASSERT_TRUE(AwaitIdle());
  EXPECT_TRUE(series.lastWasFull);
  ExpectTrueColumns();
}

TEST_F(UpdateTest, LastSamplesSlideAlongTheAxis) {
  SourceData::nLastSamplesToDraw = 100;
  Begin(series);
  AddBlock(series, 400);
  view->UpdateGraph();
  EXPECT_DOUBLE_EQ(axis.hor.min, 0.300);
  AddBlock(series, 50);
  view->UpdateGraph();
  EXPECT_DOUBLE_EQ(axis.hor.min, 0.350);
  EXPECT_DOUBLE_EQ(axis.hor.max, 0.449);
  ExpectTrueColumns();
}

TEST_F(UpdateTest, FixedAndPresetAxesKeepTheirRange) {
  Fill(series, 1000);
  axis.hor.autoRange = false;
  axis.hor.fixedMin = 0.2;
  axis.hor.fixedMax = 0.4;
  axis.SetHorFixed();
  view->UpdateGraph();
  EXPECT_EQ(axis.hor.min, 0.2);
  EXPECT_LT(axis.ver.min, 0.0);
  // A fixed horizontal axis selects the samples, with one more at each side.
  EXPECT_GE(series.GetFrom(), 199u);
  EXPECT_LE(series.GetTo(), 402u);
  ExpectTrueColumns();

  axis.hor.ResetFixed();
  series.ResetInterval(nullptr);
  axis.Preset(-5, 5, -1, 3);
  view->UpdateGraph();
  EXPECT_EQ(axis.ver.max, 5.0);
  EXPECT_EQ(axis.hor.min, -1.0);
  ExpectTrueColumns();
}

TEST_F(UpdateTest, AZoomedGraphWithoutYAutoZoomKeepsItsVerticalRange) {
  Fill(series, 1000);
  view->UpdateGraph();
  const double top = axis.ver.max;
  axis.yAutoZoom = false;
  series.SetIntervalBySample(true, &axis.hor, 2);
  series.SetIntervalBySample(true, &axis.hor, 2);
  series.SetIntervalBySample(true, &axis.hor, 2);
  view->UpdateGraph();
  EXPECT_EQ(axis.ver.max, top);
  EXPECT_GT(axis.hor.min, 0.3);
  axis.yAutoZoom = true;
  view->UpdateGraph();
  EXPECT_NE(axis.ver.max, top);
}

TEST_F(UpdateTest, LockedResizingForgetsTheSize) {
  Fill(series, 100);
  view->UpdateGraph();
  const CSize plot = Plot();
  Graph::LockResizing();
  Window().Resize({300, 200});
  Graph::UnlockResizing();
  Pump();
  EXPECT_EQ(Plot(), plot);
  TheGraph().ResizeGraph();
  EXPECT_EQ(Plot(), (CSize{300 - 78, 200 - 42}));
}

TEST_F(UpdateTest, LayoutLeavesRoomForLabelsAndNeverLessThanAPixel) {
  Fill(series, 100);
  view->UpdateGraph();
  EXPECT_EQ(Plot(), (CSize{640 - 58 - 20, 480 - 21 - 21}));
  Window().Resize({100, 30});
  EXPECT_EQ(Plot(), (CSize{122, 8}));
  Window().Resize({0, 0});
  EXPECT_EQ(Plot(), (CSize{122, 8}));
  EXPECT_EQ(Offset::Left(4), 58);
  EXPECT_EQ(Offset::Left(10), 78);

  CPoint point{58 + 5, 21 + 3};
  TheGraph().Clip(point);
  EXPECT_EQ(point, (CPoint{5, 3}));
  point = {1 << 30, -(1 << 30)};
  TheGraph().Clip(point);
  EXPECT_EQ(point, (CPoint{122, 0}));
}

TEST_F(UpdateTest, OneSeriesAndNoMore) {
  ViewData other;
  EXPECT_FALSE(view->AddViewData(&other));
  EXPECT_FALSE(view->AddViewData(nullptr));
  EXPECT_EQ(TheGraph().GetActiveViewData(), &series);
  EXPECT_STREQ(TheGraph().GetName(), "Delay");
}

TEST_F(UpdateTest, ClearEmptiesASeriesUnlessAnotherThreadFeedsIt) {
  Fill(series, 100);
  view->UpdateGraph();
  Begin(series);
  AddBlock(series, 10);
  std::thread([this] { TheGraph().Clear(); }).join();
  EXPECT_EQ(series.GetSize(), 10u);
  view->Clear();
  EXPECT_EQ(series.GetSize(), 0u);
  EXPECT_STREQ(series.GetyUnit(), "");
  AddBlock(series, 5);
  EXPECT_TRUE(series.TermDataTransfer()) << "the feed goes on";
  EXPECT_EQ(series.GetSize(), 5u);
}

TEST_F(UpdateTest, ThePopupMenuOfASeriesIsFoundByItsNumber) {
  CMenu menu;
  Resources::AddMenu(kSeriesMenuId, {{0, "Popup", {{32830, "&First", {}}, {0, "", {}}}}});
  CMenu* const popup = TheGraph().CreateCustomPopupMenu(menu);
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(popup->GetMenuItemID(0), 32830);
  EXPECT_EQ(popup->GetMenuItemID(2), -1);
}

}  // namespace
}  // namespace sparlow
