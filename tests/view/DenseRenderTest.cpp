#include <gtest/gtest.h>

#include <string>

#include "tests/support/Asked.h"
#include "tests/support/RenderShapes.h"
#include "tests/view/View.h"

namespace sparlow::test {
namespace {

TEST(DenseRender, GivesTheColumnsOfThePlainFoldOverManyShapes) {
  Live<ViewData> view;
  for (unsigned seed = 1; seed <= Asked("SPARLOW_SHAPES", 4000); ++seed) {
    // One in forty reaches over several blocks.
    const std::string difference =
        DifferenceOfRender(view, RenderShapes(seed)(seed % 40 == 0 ? 60000 : 1500));
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

}  // namespace
}  // namespace sparlow::test
