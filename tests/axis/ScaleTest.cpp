#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "sparlow/axis/GraphAxis.h"
#include "tests/axis/Axis.h"

namespace sparlow::test {
namespace {

constexpr double kEpsilon = 2.220446049250313e-16;
constexpr double kFarthest = std::numeric_limits<double>::max() / 4;

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

TEST(GraphAxisTest, IsValidWithARangeAndAScaleOfBothAxes) {
  GraphAxis axis;
  axis.SetRange(0, 1, 0, 1);
  axis.hor.SetScale(9);
  axis.ver.SetScale(9);
  EXPECT_TRUE(axis.Valid());
  for (AxisData* const one : {&axis.hor, &axis.ver}) {
    const AxisData kept = *one;
    one->max = one->min;
    EXPECT_FALSE(axis.Valid());
    *one = kept;
    one->scale = 0.0;
    EXPECT_FALSE(axis.Valid());
    *one = kept;
  }
}

TEST(Scale, MakesAFinishedAxisOfARange) {
  const struct {
    double min, max;
    const char* unit;
    bool log;
    double repairedMin, repairedMax, step, firstStep;
    int power;
    const char* name;
  } cases[] = {
      {0.0123, 0.0187, "s", kLinear, 0.0123, 0.0187, 0.001, 0.013, 3, "ms"},
      {0.0, 1000.0, "Hz", kLinear, 0.0, 1000.0, 100.0, 0.0, -3, "kHz"},
      {0.0, 5000.0, "s", kLinear, 0.0, 5000.0, 1000.0, 0.0, 0, "s"},
      {10.0, 1.0, "", kLinear, 1.0, 10.0, 1.0, 1.0, 0, ""},
      {5.0, 5.0, "V", kLinear, 4.95, 5.05, 0.01, 4.95, 0, "V"},
      {0.0, 0.0, "V", kLinear, 0.0, kEpsilon, 2.5e-17, 0.0, 18, "e-18V"},
      {0.001, 1000.0, "", kLog, 0.001, 1000.0, 0.001, 0.001, 0, ""},
      {0.0, 100.0, "", kLog, 1e-8, 100.0, 1e-8, 1e-8, 0, ""},
      {100.0, 100.0, "", kLog, 90.0, 110.0, 10.0, 90.0, 0, ""},
      {1.0, 1e3, "V", kLog, 1.0, 1e3, 1.0, 1.0, -3, "kV"},
      {1.0, 1e4, "V", kLog, 1.0, 1e4, 1.0, 1.0, 0, "V"},
      {1e-300, 2e-290, "", kLog, 1e-290, 1e-280, 1e-290, 1e-290, 0, ""},
      // Far out, and too far apart.
      {1e308, 1.5e308, "", kLinear, 1e308, 1.5e308, 1e307, 1e308, 0, ""},
      {-1e308, 1e308, "", kLinear, -kFarthest, kFarthest, 1e307, -4e307, 0, ""},
      // The magnitude decides on the power, and steps are an eighth, a quarter, a half or a whole.
      {100.0, 100.001, "V", kLinear, 100.0, 100.001, 0.0001, 100.0, 0, "V"},
      {-5000.0, -4999.0, "V", kLinear, -5000.0, -4999.0, 0.1, -5000.0, -3, "kV"},
      {0.0, 10.5, "V", kLinear, 0.0, 10.5, 1.25, 0.0, 0, "V"},
      {0.0, 50.0, "V", kLinear, 0.0, 50.0, 10.0, 0.0, 0, "V"},
      {0.0, 49.9, "V", kLinear, 0.0, 49.9, 5.0, 0.0, 0, "V"},
      // Below the smallest span; reversed, without max, and with one on a logarithmic axis.
      {1e-20, 3e-20, "V", kLinear, 0.0, kEpsilon, 2.5e-17, 0.0, 18, "e-18V"},
      {100.0, 1.0, "", kLog, 1e-10, 1.0, 1e-10, 1e-10, 0, ""},
      {1.0, 1.0 + 4e-15, "", kLog, 0.9, 1.1 + 4.4e-15, 0.1, 0.9, 0, ""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.min << " to " << c.max << ' ' << c.unit << ' ' << c.log);
    AxisData axis = Finished(c.min, c.max, c.unit, c.log);
    EXPECT_DOUBLE_EQ(axis.min, c.repairedMin);
    EXPECT_DOUBLE_EQ(axis.max, c.repairedMax);
    EXPECT_NEAR(axis.step, c.step, c.step * 1e-12);
    EXPECT_NEAR(axis.firstStep, c.firstStep, std::fabs(c.firstStep) * 1e-12);
    EXPECT_EQ(axis.power, c.power);
    EXPECT_STREQ(axis.GetName(), c.name);
  }
}

// Whatever a host or its data give as a range, there is an axis to paint and a paint of it ends.
TEST(Scale, AnyEndsAtAllGiveAUsableAxis) {
  constexpr double kNextTo1 = 1 + 2 * kEpsilon;
  const double ends[] = {kNan,  kInf, -kInf, 1.7e308,          -1.7e308, 4e307,  -4e307,
                         1e300, 0.0,  -0.0,  1e300 * kNextTo1, 5e-324,   1e-310, -1e-290,
                         1.0,   -1.0, 1e-16, kNextTo1,         1e15};
  for (const double min : ends) {
    for (const double max : ends) {
      for (const bool log : {kLinear, kLog}) {
        SCOPED_TRACE(::testing::Message() << min << " to " << max << " log " << log);
        AxisData axis = Finished(min, max, "V", log);
        axis.CorrectMinMax(5);
        axis.SetParams();
        axis.SetScale(400);
        for (const double finite : {axis.min, axis.max, axis.range, axis.firstStep})
          ASSERT_TRUE(std::isfinite(finite)) << finite;
        ASSERT_LT(axis.min, axis.max);
        ASSERT_GT(axis.min, log ? 0.0 : -kInf);
        ASSERT_GT(axis.range, 0.0);
        ASSERT_GT(axis.step, 0.0);
        ASSERT_LT(axis.step, axis.max - axis.min);
        ASSERT_NEAR(axis.GetPos(axis.max), 400, 1);
        for (const char* const label : axis.labels)
          ASSERT_EQ(std::string(label).find_first_of("in"), std::string::npos) << label;
        int steps = 0;
        for (axis.iter.Init(&axis); axis.iter.pos < 400; axis.iter.Next(false))
          ASSERT_LT(++steps, 10000);
        EXPECT_GE(steps, 1);
      }
    }
  }
}

// At most 15 bytes, and no part of a UTF-8 sequence; Latin-1 is cut anywhere.
TEST(Prefix, AndUnitAreCut) {
  const std::pair<const char*, const char*> cases[] = {
      {"k123456789012345", "k12345678901234"},
      {"12345678901234\xC2\xB5", "12345678901234"},
      {"1234567890123\xC2\xB5X", "1234567890123\xC2\xB5"},
      {"123456789012\xF0\x9F\x98\x80", "123456789012"},
      {"1234567890123\xB0\xB0\xB0", "1234567890123\xB0\xB0"}};
  for (const auto& [unit, kept] : cases)
    EXPECT_EQ(PrefixedUnit(0, unit), kept);
  EXPECT_EQ(PrefixedUnit(-3, "123456789012345"), "k12345678901234");
}

// The magnitude goes into one to a thousand as far as the unit allows, and the prefix stands before
// the whole unit. Also where the factor alone would be infinite.
TEST(Prefix, FormatsAValueInPlace) {
  const struct {
    double value;
    const char* unit;
    double shown;
    const char* text;
  } cases[] = {{2e13, "V", 20.0, "TV"},
               {2e9, "V", 2.0, "GV"},
               {-2e6, "1/V", -2.0, "M1/V"},
               {1000.0, "S", 1.0, "kS"},
               {999.9, "V", 999.9, "V"},
               {0.0, "V", 0.0, "V"},
               {-1e-3, "V", -1.0, "mV"},
               {0.0000125, "s", 12.5, "us"},
               {2e-9, "\xC2\xB5V", 2.0, "n\xC2\xB5V"},
               {2e-12, "V", 2.0, "pV"},
               {2500.0, "s", 2500.0, "s"},
               {2500.0, "samples", 2500.0, "samples"},
               {2500.0, "%FS", 2500.0, "%FS"},
               {2500.0, "\xB0K", 2500.0, "\xB0K"},
               {2500.0, "\xC2\xB0K", 2500.0, "\xC2\xB0K"},
               {7e4, nullptr, 7e4, ""},
               {kInf, "V", kInf, "V"},
               {5e-324, "V", 4.94065645841246544, "e-324V"},
               {1.5e308, "V", 150.0, "e306V"}};
  for (const auto& c : cases) {
    double value = c.value;
    char text[16];
    FormatUnitValue(value, text, c.unit);
    EXPECT_DOUBLE_EQ(value, c.shown) << c.value;
    EXPECT_STREQ(text, c.text) << c.value;
  }
}

// Ends of up to 6 digits, against whole numbers of which nothing is rounded: eightieths of the last
// digit.
TEST(Scale, StepsAreThoseOfExactArithmetic) {
  std::mt19937 random(1);
  const auto decimal = [](std::int64_t digits, int exponent) {
    return std::strtod((std::to_string(digits) + "e" + std::to_string(exponent)).c_str(), nullptr);
  };
  int different = 0;
  for (int i = 0; i < 100000; ++i) {
    const int exponent = static_cast<int>(random() % 31) - 15;
    const std::int64_t min = static_cast<int>(random() % 19999) - 9999;
    const std::int64_t span = 1 + static_cast<int>(random() % (i % 2 ? 100 : 300000));
    const double low = decimal(min, exponent), high = decimal(min + span, exponent);
    if (!(low + kEpsilon < high))
      continue;
    std::int64_t step = 8;
    while (step < span * 8)
      step *= 10;
    while (step * 5 > span * 80)
      step /= 2;
    const std::int64_t steps = min * 80 / step;
    const std::int64_t first = (steps + (steps * step < min * 80)) * step;
    const AxisData axis = Finished(low, high, "", kLinear);
    const auto near = [&](double value, std::int64_t exact) {
      const double wanted = static_cast<double>(exact) / 80 * decimal(1, exponent);
      return std::fabs(value - wanted) <= 1e-12 * axis.step;
    };
    different += !near(axis.step, step) || !near(axis.firstStep, first);
  }
  EXPECT_LE(different, 100);
}

}  // namespace
}  // namespace sparlow::test
