#include <functional>

#include "tests/support/RenderShapes.h"
#include "tests/view/View.h"

namespace sparlow::test {
namespace {

using Columns = std::vector<FoldModel::Column>;

struct Render : testing::Test {
  bool render(bool full) { return view.Render(&axis, full); }

  Live<ViewData> view;
  GraphAxis axis = unitAxis();
};

TEST_F(Render, BeginsAnewWhenItsColumnsWereForSomethingElse) {
  const std::pair<const char*, std::function<void()>> changes[] = {
      {"data set",
       [&] {
         view.fill({{8, 8}});
       }},
      {"interval start", [&] { view.SetFrom(1); }},
      {"interval end", [&] { view.SetTo(2); }},
      {"scale", [&] { axis.hor.scale = 0.5; }},
      {"range", [&] { axis.ver.max = 3; }},
      {"logarithm", [&] { axis.ver.log = true; }},
      {"cleared", [&] { view.ResetViewData(); }},
      {"sample", [&] { view.Set(1, 2, -7); }},
      {"mapping", [&] { view.MappingChanged(); }},
      {"waveform", [&] { view.waveform = true, render(true), view.waveform = false; }},
  };
  for (const auto& [what, change] : changes) {
    SCOPED_TRACE(what);
    axis = unitAxis();
    view.fill({{1, 1}, {2, 2}, {2, 3}, {4, 4}});
    render(true);
    ASSERT_TRUE(view.CanContinueRender(axis));
    change();
    EXPECT_FALSE(view.CanContinueRender(axis));
    render(false);
    const auto anew = std::make_unique<ViewData>(view);
    anew->ResetViewData();
    anew->Render(&axis, true);
    EXPECT_EQ(columnsOf(view), columnsOf(*anew));
    EXPECT_EQ(view.nextSample, anew->nextSample);
  }
}

TEST_F(Render, OfAnEmptyIntervalShowsTheSampleAtItsStart) {
  view.fill({{1, 1}, {2, 2}, {3, 3}});
  view.SetFrom(1);
  view.SetTo(1);
  EXPECT_TRUE(render(true));
  EXPECT_EQ(columnsOf(view), (Columns{{2, 2, 2, 2, 2}}));
  view.SetFrom(3);
  EXPECT_TRUE(render(false));
  EXPECT_EQ(view.nColumns, 0u);
  view.Reset();
  EXPECT_TRUE(render(true));
  EXPECT_EQ(view.nColumns, 0u);
}

TEST_F(Render, AWaveformHasAColumnForEachEdge) {
  view.InitDataTransfer(true);
  view.InitBlockTransfer();
  view.add({{7, 0}, {7, 1}, {7, 2}, {7, 3}});
  view.TermBlockTransfer();
  SetEvent(view.terminator);
  EXPECT_TRUE(render(true)) << "it is too short to be stopped";
  ResetEvent(view.terminator);
  EXPECT_EQ(view.nColumns, 4u);
  view.SetFrom(1);
  view.SetTo(3);
  render(false);
  EXPECT_EQ(columnsOf(view), (Columns{{7, 1, 1, 1, 1}, {7, 2, 2, 2, 2}}));
}

TEST_F(Render, GivesTheColumnsOfThePlainFoldOverManyShapes) {
  const char* const asked = std::getenv("SPARLOW_SHAPES");  // for a thorough run
  for (unsigned long seed = 1; seed <= (asked ? std::strtoul(asked, nullptr, 10) : 4000); ++seed) {
    // One in forty reaches over several blocks.
    const std::string difference = DifferenceOfRender(
        view, RenderShapes(static_cast<unsigned>(seed))(seed % 40 == 0 ? 60000 : 1500));
    ASSERT_EQ(difference, "") << "seed " << seed;
  }
}

TEST_F(Render, EndsAtTheLastColumn) {
  for (int i = 0; i < 20000; ++i)
    view.Add(i, 0);
  view.AdjustSizeTo();
  for (const bool waveform : {false, true}) {  // one of old samples has no flags
    view.InitDataTransfer(waveform);
    EXPECT_TRUE(render(true));
    EXPECT_EQ(view.nColumns, ViewColumns::kMaxColumns);
  }
  axis.hor.scale = 1000;
  view.InitDataTransfer(false);
  SetEvent(view.terminator);
  EXPECT_FALSE(render(true)) << "many samples of few columns are stopped too";
  ResetEvent(view.terminator);
}

}  // namespace
}  // namespace sparlow::test
