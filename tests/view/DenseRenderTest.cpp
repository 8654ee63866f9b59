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

TEST(DenseRender, SeesThePeakInEveryPlaceOfALongRecord) {
  Live<ViewData> view;
  view.Reset();
  constexpr unsigned n = 5 * SampleBlock::kSamples + 700;
  for (unsigned i = 0; i < n; ++i)
    view.Add(i, 0.5);
  GraphAxis axis;
  axis.SetRange(-10, 10, 0, n);
  axis.hor.SetScale(3);
  axis.ver.SetScale(200);
  view.AdjustSizeTo();
  Random random(7);
  const auto peakAt = [&](unsigned place) {
    view.Set(place, place, 9.85);
    view.Render(&axis, true);
    const int shown = std::min({view.yMinPos[0], view.yMinPos[1], view.yMinPos[2]});
    view.Set(place, place, 0.5);
    return shown;
  };
  for (unsigned place = 0; place < n; place += 1 + random() % 97)
    ASSERT_EQ(peakAt(place), 1) << place;
  EXPECT_EQ(peakAt(n - 1), 1);
  view.SetTo(n - 1);
  EXPECT_EQ(peakAt(n - 1), 95) << "it is not on show";
}

TEST(DenseRender, EndsAtTheLastColumn) {
  RenderShape shape;
  shape.end = 20000 * 150;
  for (unsigned i = 0; i < shape.end; ++i)
    shape.samples.push_back({static_cast<double>(i), static_cast<double>(i * 7919 % 1009)});
  shape.axis.SetRange(0, 1009, 0, shape.end);
  shape.axis.hor.SetScale(20000);
  Live<ViewData> view;
  EXPECT_EQ(DifferenceOfRender(view, shape), "");
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
