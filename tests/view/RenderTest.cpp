#include <gtest/gtest.h>

#include <vector>

#include "tests/support/FoldModel.h"
#include "tests/view/View.h"

namespace sparlow::test {
namespace {

struct Render : testing::Test {
  // Pixels, not values.
  void fill(const std::vector<CPoint>& pixels) {
    view.Reset();
    add(pixels);
    view.AdjustSizeTo();
  }
  void add(const std::vector<CPoint>& pixels) {
    for (const CPoint& p : pixels)
      view.Add(p.x, -p.y);
  }
  FoldModel::Column column(unsigned i) const {
    return {view.xPos[i], view.yPos[i], view.yLastPos[i], view.yMinPos[i], view.yMaxPos[i]};
  }
  using Column = FoldModel::Column;

  Live<ViewData> view;
  GraphAxis axis = unitAxis();
};

TEST_F(Render, FoldsTheSamplesOfAPixelIntoOneColumn) {
  fill({{3, 10}, {3, 30}, {3, 5}, {3, 20}, {4, 7}});
  EXPECT_TRUE(view.Render(&axis, true));
  ASSERT_EQ(view.nColumns, 2u);
  EXPECT_EQ(column(0), (Column{3, 10, 20, 5, 30}));
  EXPECT_EQ(column(1), (Column{4, 7, 7, 7, 7}));
  EXPECT_FALSE(view.sparse);
  EXPECT_EQ(view.nextSample, 5u);
}

TEST_F(Render, IsSparseWhenEachSampleHasItsPixel) {
  fill({{1, 1}, {2, 2}, {3, 3}});
  view.Render(&axis, true);
  EXPECT_TRUE(view.sparse);
  EXPECT_EQ(view.nColumns, 3u);
  fill({{9, 4}});
  view.Render(&axis, true);
  EXPECT_TRUE(view.sparse);
  EXPECT_EQ(view.nColumns, 1u);
}

TEST_F(Render, MergesDirectNeighboursOnly) {
  fill({{5, 1}, {6, 2}, {5, 3}});
  view.Render(&axis, true);
  ASSERT_EQ(view.nColumns, 3u);
  EXPECT_EQ(column(2), (Column{5, 3, 3, 3, 3}));
}

TEST_F(Render, GoesOnWhereTheLastOneStopped) {
  fill({{1, 1}, {1, 9}});
  view.Render(&axis, true);
  EXPECT_TRUE(view.CanContinueRender(axis));
  EXPECT_TRUE(view.Render(&axis, false));
  EXPECT_EQ(column(0), (Column{1, 1, 9, 1, 9}));
  view.SetTo(0);
  view.inTransfer = true;
  add({{1, 4}});
  view.Render(&axis, false);
  ASSERT_EQ(view.nColumns, 1u);
  EXPECT_EQ(column(0), (Column{1, 1, 4, 1, 9}));
  EXPECT_FALSE(view.sparse);
  add({{2, 2}, {3, 3}});
  view.Render(&axis, false);
  EXPECT_EQ(view.nColumns, 3u);
  EXPECT_FALSE(view.sparse);
}

TEST_F(Render, BeginsAnewWhenItsColumnsWereForSomethingElse) {
  const std::vector<CPoint> pixels{{1, 1}, {2, 2}, {2, 3}, {4, 4}};
  const std::pair<const char*, std::function<void()>> changes[] = {
      {"data set",
       [&] {
         fill({{8, 8}});
       }},
      {"interval start", [&] { view.SetFrom(1); }},
      {"interval end", [&] { view.SetTo(2); }},
      {"scale", [&] { axis.hor.scale = 0.5; }},
      {"range", [&] { axis.ver.max = 3; }},
      {"logarithm", [&] { axis.ver.log = true; }},
      {"cleared", [&] { view.ResetViewData(); }},
      {"waveform", [&] { view.waveform = true, view.Render(&axis, true), view.waveform = false; }},
  };
  for (const auto& [what, change] : changes) {
    axis = unitAxis();
    fill(pixels);
    view.Render(&axis, true);
    ASSERT_TRUE(view.CanContinueRender(axis));
    change();
    EXPECT_FALSE(view.CanContinueRender(axis)) << what;
    view.Render(&axis, false);
    EXPECT_TRUE(view.CanContinueRender(axis)) << what;
    const auto anew = std::make_unique<ViewData>(view);
    anew->ResetViewData();
    anew->Render(&axis, true);
    ASSERT_EQ(view.nColumns, anew->nColumns) << what;
    for (unsigned i = 0; i < view.nColumns; ++i)
      EXPECT_TRUE(view.xPos[i] == anew->xPos[i] && view.yMaxPos[i] == anew->yMaxPos[i]) << what;
    EXPECT_EQ(view.nextSample, anew->nextSample) << what;
  }
}

TEST_F(Render, StopsWhenItIsTold) {
  for (const bool byEvent : {true, false}) {
    fill({{1, 1}, {2, 2}, {3, 3}});
    view.Render(&axis, true);
    byEvent ? static_cast<void>(SetEvent(view.terminator)) : void(view.renderStop = true);
    EXPECT_FALSE(view.Render(&axis, true));
    EXPECT_EQ(view.nColumns, 3u);
    EXPECT_FALSE(view.CanContinueRender(axis));
    EXPECT_FALSE(view.Render(&axis, false)) << "half-written columns ask for a full render";
    EXPECT_EQ(view.IsAborted(), byEvent);
    EXPECT_EQ(view.renderStop, !byEvent) << "who asked takes it back";
    ResetEvent(view.terminator);
    view.renderStop = false;
    EXPECT_TRUE(view.Render(&axis, true));
    // Going on is short and isn't stopped.
    SetEvent(view.terminator);
    add({{4, 4}});
    view.SetTo(4);
    EXPECT_TRUE(view.Render(&axis, false));
    EXPECT_EQ(view.nColumns, 4u);
    ResetEvent(view.terminator);
  }
}

TEST_F(Render, EndsAtTheLastColumn) {
  view.Reset();
  for (int i = 0; i < 16400; ++i)
    view.Add(i, i);
  view.AdjustSizeTo();
  EXPECT_TRUE(view.Render(&axis, true));
  EXPECT_EQ(view.nColumns, 16384u);
  EXPECT_EQ(view.nextSample, 16384u);
  EXPECT_EQ(view.xPos[16383], 16383);
  EXPECT_TRUE(view.Render(&axis, false));
  EXPECT_EQ(view.nextSample, 16384u);
}

TEST_F(Render, OfAnEmptyIntervalShowsTheSampleAtItsStart) {
  fill({{1, 1}, {2, 2}, {3, 3}});
  view.SetFrom(1);
  view.SetTo(1);
  EXPECT_TRUE(view.Render(&axis, true));
  EXPECT_EQ(view.nColumns, 1u);
  EXPECT_EQ(view.xPos[0], 2);
  view.SetFrom(3);
  EXPECT_TRUE(view.Render(&axis, false));
  EXPECT_EQ(view.nColumns, 0u);
  view.Reset();
  EXPECT_TRUE(view.Render(&axis, true));
  EXPECT_EQ(view.nColumns, 0u);
  EXPECT_TRUE(view.Render(nullptr, true));
}

TEST_F(Render, AWaveformHasAColumnForEachEdge) {
  view.InitDataTransfer(true);
  view.InitBlockTransfer();
  for (int i = 0; i < 4; ++i)
    view.Add(7, -i);
  view.TermBlockTransfer();
  SetEvent(view.terminator);
  EXPECT_TRUE(view.Render(&axis, true));
  ResetEvent(view.terminator);
  ASSERT_EQ(view.nColumns, 4u);
  EXPECT_EQ(column(3), (Column{7, 3, 3, 3, 3}));
  EXPECT_EQ(view.nextColumn, 0u);
  view.SetFrom(1);
  view.SetTo(3);
  view.Render(&axis, false);
  EXPECT_EQ(view.nColumns, 2u);
  EXPECT_EQ(view.yPos[0], 1);
}

TEST_F(Render, ColumnsOfAFlaglessLongWaveformEndAtTheArrays) {
  view.Reset();
  for (int i = 0; i < 20000; ++i)
    view.Add(i, 0);
  view.AdjustSizeTo();
  view.InitDataTransfer(true);
  EXPECT_TRUE(view.Render(&axis, true));
  EXPECT_EQ(view.nColumns, 16384u);
}

TEST_F(Render, ColumnsGoWithTheSeries) {
  fill({{1, 1}});
  view.Render(&axis, true);
  view.color = 0x123456;
  view.renderStop = true;
  const auto copy = std::make_unique<ViewData>(view);
  EXPECT_EQ(copy->nColumns, 1u);
  EXPECT_EQ(copy->xPos[0], 1);
  EXPECT_EQ(copy->GetColor(), 0x123456u);
  EXPECT_FALSE(copy->renderStop);
  EXPECT_TRUE(copy->CanContinueRender(axis));
  view.Reset();
  EXPECT_EQ(view.nColumns, 0u);
  EXPECT_EQ(column(0), (Column{0, 0, 0, -1, -1}));
  EXPECT_EQ(copy->xPosGet(0, &axis), 1);
  EXPECT_EQ(view.xPosGet(0, &axis), 0);
}

}  // namespace
}  // namespace sparlow::test
