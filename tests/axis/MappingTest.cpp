#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "sparlow/axis/GraphAxis.h"
#include "tests/axis/Axis.h"

namespace sparlow::test {
namespace {

AxisData Axis(bool log, double min, double max, double scale) {
  AxisData axis;
  axis.log = log;
  axis.min = min;
  axis.max = max;
  axis.scale = scale;
  return axis;
}

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
               {kLinear, -4, 10, 0.5, {{12, 32, -4}}},
               {kLinear, 0, 1, 1e-300, {{1e300, far, -far}}},
               {kLinear, 0, 1, 0.1, {{-kInf, -far, far}, {kNan, 0, 0}}},
               {kLinear, 0, 1, 0, {{0.5, far, far}}},
               {kLinear, 0, 0, 0, {{0, 0, 0}}},
               {kLog, 1, 1000, 0.01, {{100, 200, 100}, {0.1, -100, 400}}},
               {kLog, 0.001, 1000, 0.5, {{0, 6, 6}}},
               {kLog, 10, 1000, 0.5, {{0, 2, 2}}},
               {kLog, 0.01, 1000, 0.5, {{0, 4, 4}, {-0.0, 4, 4}, {-3, -far, far}, {kNan, 0, 0}}},
               {kLog, 0.01, 1000, 0.5, {{kInf, far, -far}, {-kInf, -far, far}}}};
  for (const auto& c : cases) {
    const AxisData axis = Axis(c.log, c.min, c.max, c.scale);
    for (const auto& [value, pos, posInv] : c.pixels) {
      EXPECT_EQ(axis.GetPos(value), pos) << value << " from " << c.min;
      EXPECT_EQ(axis.GetPosInv(value), posInv) << value << " from " << c.min;
    }
  }
}

TEST(Mapping, TheDownwardDirectionAgreesWithItsFormulaToTheLastBit) {
  const AxisData axis = Axis(false, -0.3, 0.7, 1.0 / 997);
  const AxisData log = Axis(true, 0.003, 7.0, std::log10(7.0 / 0.003) / 997);
  for (int i = 1; i < 5000; ++i) {
    const double value = i * 0.00137;
    ASSERT_EQ(axis.GetPosInv(value), static_cast<int>((axis.max - value) / axis.scale)) << value;
    ASSERT_EQ(log.GetPosInv(value),
              static_cast<int>((std::log10(log.max) - std::log10(value)) / log.scale))
        << value;
  }
}

TEST(Mapping, TheCountOfPixelsIsThePositionOfTheFarEnd) {
  for (const bool log : {false, true}) {
    AxisData axis = Finished(1.0, 16.0, "", log, 512);
    EXPECT_EQ(axis.GetPos(16.0), 512);
    EXPECT_DOUBLE_EQ(axis.GetValueByPos(512), 16.0);
    EXPECT_DOUBLE_EQ(axis.GetValueByPos(256), log ? 4.0 : 8.5);
    axis.CalculateScale(0);
    EXPECT_EQ(axis.GetScale(), axis.GetRange());
  }
}

TEST(GraphAxisTest, BecomesValidWithBothScales) {
  GraphAxis axis(10, false, 3, true);
  axis.SetRange(1.0, 1000.0, -5.0, 5.0);
  axis.ver.CalculateScale(300);
  EXPECT_FALSE(axis.Valid());
  axis.hor.CalculateScale(100);
  EXPECT_TRUE(axis.Valid());
  EXPECT_EQ(axis.ver.labelStep, 3);
  EXPECT_DOUBLE_EQ(axis.xPointValue(25), -2.5);
  // Linear in the pixels on a logarithmic axis too.
  EXPECT_DOUBLE_EQ(axis.yPointValue(100), 999.0);
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
  }
}

TEST(GraphAxisTest, KeepsAFixedRangeUntilItIsFreedAndAPresetUntilTheNextRange) {
  GraphAxis axis(10, true, 1, false);
  axis.ver.autoRange = false;
  axis.ver.fixedMin = 20.0;
  for (const double max : {30.0, kNan}) {  // a range that isn't finite is not loaded
    axis.ver.fixedMax = max;
    axis.SetVerFixed();
    axis.ver.step = 0.0;
    axis.SetVer(-7.0, 70.0);
    axis.Reset();
    EXPECT_EQ(axis.ver.min, 20.0);
    EXPECT_EQ(axis.ver.max, 30.0);
    EXPECT_EQ(axis.ver.step, 1.0) << "it is finished anew all the same";
  }
  axis.ver.ResetFixed();
  axis.Preset(0.0, 1.0, 0.0, 1.0);
  EXPECT_TRUE(axis.preset);
  axis.SetVer(0.0, 100.0);
  EXPECT_FALSE(axis.preset);
  EXPECT_DOUBLE_EQ(axis.ver.max, 110.0);
  EXPECT_DOUBLE_EQ(axis.ver.fixedMax, 110.0);
  axis.ver.step = 7.0;
  axis.SetVerFixed();
  EXPECT_EQ(axis.ver.step, 7.0) << "an automatic axis has no fixed range to load";
}

}  // namespace
}  // namespace sparlow::test
