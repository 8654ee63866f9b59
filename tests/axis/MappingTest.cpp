#include <gtest/gtest.h>

#include <vector>

#include "sparlow/axis/GraphAxis.h"
#include "tests/axis/Axis.h"

namespace sparlow::test {
namespace {

// Truncated, not rounded, and not clipped to the axis. On a logarithmic one 0 is counted by min in
// both directions. An axis of scale 0 has no pixels yet.
TEST(Mapping, GivesThePixelOfAValueOnEitherAxis) {
  constexpr int far = kFarPixel;
  struct Pixel {
    double value;
    int pos, posInv;
  };
  const struct {
    bool log;
    double min, max, scale;
    std::vector<Pixel> pixels;
  } cases[] = {{kLinear, 0, 10, 1, {{3.99, 3, 6}, {-0.5, 0, 10}, {10.5, 10, 0}}},
               {kLinear, 0, 1, 1e-300, {{1e300, far, -far}}},
               {kLinear, 0, 1, 0.1, {{-kInf, -far, far}, {kNan, 0, 0}}},
               {kLinear, 0, 1, 0, {{0.5, far, far}}},
               {kLog, 1, 1000, 0.01, {{100, 200, 100}, {0.1, -100, 400}}},
               {kLog, 0.01, 1000, 0.5, {{0, 4, 4}, {-0.0, 4, 4}, {-3, -far, far}, {kNan, 0, 0}}}};
  for (const auto& c : cases) {
    AxisData axis;
    axis.log = c.log;
    axis.min = c.min;
    axis.max = c.max;
    axis.scale = c.scale;
    for (const auto& [value, pos, posInv] : c.pixels) {
      EXPECT_EQ(axis.GetPos(value), pos) << value << " from " << c.min;
      EXPECT_EQ(axis.GetPosInv(value), posInv) << value << " from " << c.min;
    }
  }
}

TEST(Mapping, TheCountOfPixelsIsThePositionOfTheFarEnd) {
  for (const bool log : {false, true}) {
    const AxisData axis = Finished(1.0, 16.0, "", log, 512);
    EXPECT_EQ(axis.GetPos(16.0), 512);
    EXPECT_DOUBLE_EQ(axis.GetValueByPos(512), 16.0);
    EXPECT_DOUBLE_EQ(axis.GetValueByPos(256), log ? 4.0 : 8.5);
    EXPECT_DOUBLE_EQ(axis.GetValueByPosInv(128), log ? 8.0 : 12.25);
  }
}

TEST(GraphAxisTest, AMarginGoesToAnAutomaticVerticalAxisOnly) {
  constexpr double kFarthest = std::numeric_limits<double>::max() / 4;
  const struct {
    int percent;
    bool autoZoom, log;
    double min, max, withMarginMin, withMarginMax;
  } cases[] = {{10, true, false, 0.0, 10.0, -1.0, 11.0},
               {10, false, false, 0.0, 10.0, 0.0, 10.0},
               {0, true, false, -1.7e308, 1.7e308, -kFarthest, kFarthest},  // span beyond a double
               {10, true, true, 1.0, 100.0, 0.9, 110.0}};
  for (const auto& c : cases) {
    GraphAxis axis(c.percent, c.autoZoom, 1, c.log);
    axis.SetRange(c.min, c.max, 0.0, 10.0);
    EXPECT_DOUBLE_EQ(axis.ver.min, c.withMarginMin);
    EXPECT_DOUBLE_EQ(axis.ver.max, c.withMarginMax);
    EXPECT_DOUBLE_EQ(axis.hor.max, 10.0);
    axis.Reset();
    EXPECT_EQ(axis.ver.max, AxisData().max);
  }
}

}  // namespace
}  // namespace sparlow::test
