#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/support/Asked.h"
#include "tests/support/RenderShapes.h"
#include "tests/view/View.h"

namespace sparlow::test {
namespace {

struct Random {
  explicit Random(unsigned seed) : engine(seed) {}
  std::uint32_t operator()() { return static_cast<std::uint32_t>(engine()); }
  std::mt19937 engine;
};

TEST(DenseRender, GivesTheColumnsOfThePlainFoldOverManyShapes) {
  Live<ViewData> view;
  for (unsigned seed = 1; seed <= Asked("SPARLOW_SHAPES", 4000); ++seed) {
    Random random(seed);
    // One in forty reaches over several blocks.
    const std::string difference =
        DifferenceOfRender(view, RenderShapes<Random>(random)(seed % 40 == 0 ? 60000 : 1500));
    ASSERT_EQ(difference, "") << "seed " << seed;
  }
}

TEST(DenseRender, EndsAtTheLastColumn) {
  Live<ViewData> view;
  for (const unsigned samplesOfAColumn : {1u, 150u}) {
    RenderShape shape;
    shape.end = 20000 * samplesOfAColumn;
    for (unsigned i = 0; i < shape.end; ++i)
      shape.samples.push_back({static_cast<double>(i), static_cast<double>(i * 7919 % 1009)});
    shape.axis.SetRange(0, 1009, 0, shape.end);
    shape.axis.hor.SetScale(20000);
    EXPECT_EQ(DifferenceOfRender(view, shape), "");
    EXPECT_EQ(view.nColumns, ViewColumns::kMaxColumns);
  }
  view.InitDataTransfer(true);  // a waveform of old samples, which have no flags
  GraphAxis axis = unitAxis();
  EXPECT_TRUE(view.Render(&axis, true));
  EXPECT_EQ(view.nColumns, ViewColumns::kMaxColumns);
}

TEST(DenseRender, StopsWithinAColumnOfWhichNoRangeIsCertain) {
  Live<ViewData> view;
  constexpr unsigned n = 100000;
  for (unsigned i = 0; i < n; ++i)
    view.Add(i, i % 2 ? 0.0 : 5.0);
  view.Set(n - 1, n - 1, 1000.0);
  view.ResetInterval(nullptr);
  GraphAxis axis;
  axis.ver.log = true;
  axis.SetRange(10, 1000, 0, 10 * n);
  axis.hor.SetScale(10);
  axis.ver.SetScale(100);
  EXPECT_TRUE(view.Render(&axis, true));
  EXPECT_EQ(view.yMinPos[0], 0);
  view.renderStop = true;
  EXPECT_FALSE(view.Render(&axis, true));
  EXPECT_GT(view.yMinPos[0], 0) << "it went on to the end of the column";
}

}  // namespace
}  // namespace sparlow::test
