#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "sparlow/axis/GraphAxis.h"

namespace sparlow {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

AxisData Axis(bool log, double min, double max, double scale) {
  AxisData axis;
  axis.log = log;
  axis.min = min;
  axis.max = max;
  axis.scale = scale;
  return axis;
}

TEST(Mapping, GivesThePixelOfAValueOnEitherAxis) {
  const struct {
    bool log;
    double min, max, scale, value;
    int pos, posInv;
  } cases[] = {{false, 0.0, 10.0, 1.0, 3.99, 3, 6},  // truncated, not rounded
               {false, 0.0, 10.0, 1.0, -0.5, 0, 10},
               {false, 0.0, 10.0, 1.0, 10.5, 10, 0},
               {false, -4.0, 10.0, 0.5, 12.0, 32, -4},  // not clipped
               {true, 1.0, 1000.0, 0.01, 100.0, 200, 100},
               {true, 1.0, 1000.0, 0.01, 0.1, -100, 400},
               {true, 0.001, 1000.0, 0.5, 0.0, 6, 6},
               {true, 10.0, 1000.0, 0.5, 0.0, 2, 2},
               {true, 0.01, 1000.0, 0.5, 0.0, 4, 4},  // counted by min in both directions
               {true, 0.01, 1000.0, 0.5, -0.0, 4, 4},
               {true, 0.01, 1000.0, 0.5, -3.0, -kFarPixel, kFarPixel},
               {true, 0.01, 1000.0, 0.5, kInf, kFarPixel, -kFarPixel},
               {true, 0.01, 1000.0, 0.5, -kInf, -kFarPixel, kFarPixel},
               {true, 0.01, 1000.0, 0.5, kNan, 0, 0},
               {false, 0.0, 1.0, 1e-300, 1e300, kFarPixel, -kFarPixel},
               {false, 0.0, 1.0, 0.1, -kInf, -kFarPixel, kFarPixel},
               {false, 0.0, 1.0, 0.1, kNan, 0, 0},
               {false, 0.0, 1.0, 0.0, 0.5, kFarPixel, kFarPixel},  // no scale yet
               {false, 0.0, 0.0, 0.0, 0.0, 0, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.log << ' ' << c.min << ' ' << c.max << ' ' << c.value);
    const AxisData axis = Axis(c.log, c.min, c.max, c.scale);
    EXPECT_EQ(axis.GetPos(c.value), c.pos);
    EXPECT_EQ(axis.GetPosInv(c.value), c.posInv);
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
    AxisData axis = Axis(log, 1.0, 16.0, 0.0);
    axis.SetParams();
    axis.SetScale(512);
    EXPECT_EQ(axis.GetPos(16.0), 512);
    EXPECT_EQ(axis.GetPosInv(1.0), 512);
    EXPECT_DOUBLE_EQ(axis.GetValueByPos(0), 1.0);
    EXPECT_DOUBLE_EQ(axis.GetValueByPos(512), 16.0);
    EXPECT_DOUBLE_EQ(axis.GetValueByPos(256), log ? 4.0 : 8.5);

    axis.CalculateScale(0);
    EXPECT_EQ(axis.GetScale(), axis.GetRange());
  }
}

TEST(GraphAxisTest, TakesItsSettingsAndBecomesValidWithBothScales) {
  GraphAxis axis(10, false, 3, true);
  EXPECT_EQ(axis.yMarginPercent, 10);
  EXPECT_FALSE(axis.yAutoZoom);
  EXPECT_EQ(axis.ver.labelStep, 3);
  EXPECT_TRUE(axis.ver.log);
  EXPECT_FALSE(axis.hor.log);
  EXPECT_FALSE(axis.Valid());

  axis.SetRange(1.0, 1000.0, -5.0, 5.0);
  EXPECT_EQ(axis.ver.min, 1.0);
  EXPECT_EQ(axis.hor.min, -5.0);
  EXPECT_FALSE(axis.Valid());
  axis.ver.CalculateScale(300);
  EXPECT_FALSE(axis.Valid());
  axis.hor.CalculateScale(100);
  EXPECT_TRUE(axis.Valid());
  EXPECT_DOUBLE_EQ(axis.xPointValue(25), -2.5);
  // Linear in the pixels on a logarithmic axis too.
  EXPECT_DOUBLE_EQ(axis.yPointValue(100), 999.0);
}

TEST(GraphAxisTest, AMarginGoesToAnAutomaticVerticalAxisOnly) {
  GraphAxis axis(10, true, 1, false);
  axis.SetRange(0.0, 10.0, 0.0, 10.0);
  EXPECT_DOUBLE_EQ(axis.ver.min, -1.0);
  EXPECT_DOUBLE_EQ(axis.ver.max, 11.0);
  EXPECT_DOUBLE_EQ(axis.hor.max, 10.0);

  axis.yAutoZoom = false;
  axis.SetVer(0.0, 10.0);
  EXPECT_DOUBLE_EQ(axis.ver.max, 10.0);

  GraphAxis logarithmic(10, true, 1, true);
  logarithmic.SetVer(1.0, 100.0);
  EXPECT_DOUBLE_EQ(logarithmic.ver.min, 0.9);
  EXPECT_DOUBLE_EQ(logarithmic.ver.max, 110.0);
}

TEST(GraphAxisTest, AFixedAxisKeepsItsRangeUntilItIsFreed) {
  GraphAxis axis(10, true, 1, false);
  axis.SetRange(0.0, 1.0, 0.0, 1.0);
  EXPECT_EQ(axis.hor.fixedMax, 1.0);
  axis.ver.autoRange = false;
  axis.ver.fixedMin = 20.0;
  axis.ver.fixedMax = 30.0;
  axis.SetHorFixed();
  axis.SetVerFixed();
  EXPECT_EQ(axis.ver.min, 20.0);
  EXPECT_EQ(axis.ver.step, 1.0);

  axis.ver.step = 0.0;
  axis.SetVer(-7.0, 7.0);
  EXPECT_EQ(axis.ver.min, 20.0);
  EXPECT_EQ(axis.ver.max, 30.0);
  EXPECT_EQ(axis.ver.step, 1.0) << "a fixed axis is finished anew all the same";
  axis.ver.SetMin(-7.0);
  axis.ver.SetMax(70.0);
  EXPECT_EQ(axis.ver.min, 20.0);
  EXPECT_EQ(axis.ver.max, 30.0);

  axis.Preset(-1.0, 1.0, 3.0, 4.0);
  EXPECT_EQ(axis.hor.min, 3.0);
  axis.Reset();
  EXPECT_EQ(axis.ver.max, 30.0);
  EXPECT_EQ(axis.hor.max, 0.0);

  axis.ver.fixedMax = kNan;
  axis.SetVerFixed();
  EXPECT_EQ(axis.ver.max, 30.0) << "a range that isn't finite is not loaded";

  axis.ver.ResetFixed();
  axis.SetVer(0.0, 100.0);
  EXPECT_DOUBLE_EQ(axis.ver.max, 110.0);
  EXPECT_DOUBLE_EQ(axis.ver.fixedMax, 110.0);
}

TEST(GraphAxisTest, EachRangeButAPresetClearsPreset) {
  void (*const ways[])(GraphAxis&) = {[](GraphAxis& axis) { axis.SetHor(0.0, 2.0); },
                                      [](GraphAxis& axis) { axis.SetVer(0.0, 2.0); },
                                      [](GraphAxis& axis) { axis.Reset(); }};
  for (auto* way : ways) {
    GraphAxis axis;
    axis.Preset(0.0, 1.0, 0.0, 1.0);
    EXPECT_TRUE(axis.preset);
    way(axis);
    EXPECT_FALSE(axis.preset);
  }
}

}  // namespace
}  // namespace sparlow
