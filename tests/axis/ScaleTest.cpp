#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "sparlow/axis/AxisData.h"

namespace sparlow {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kEpsilon = 2.220446049250313e-16;
constexpr bool kLinear = false;
constexpr bool kLog = true;

AxisData Finished(double min, double max, const char* unit, bool log) {
  AxisData axis;
  axis.log = log;
  axis.SetFuncName(unit);
  axis.SetMin(min);
  axis.SetMax(max);
  axis.SetParams();
  return axis;
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
      {0.0, 5e6, "Hz", kLinear, 0.0, 5e6, 1e6, 0.0, -6, "MHz"},
      {0.0, 2.0, "V", kLinear, 0.0, 2.0, 0.25, 0.0, 0, "V"},
      {10.0, 1.0, "", kLinear, 1.0, 10.0, 1.0, 1.0, 0, ""},
      {5.0, 5.0, "V", kLinear, 4.95, 5.05, 0.01, 4.95, 0, "V"},
      {0.0, 0.0, "V", kLinear, 0.0, kEpsilon, 2.5e-17, 0.0, 18, "e-18V"},
      {1e-15, 1e-14, "s", kLinear, 1e-15, 1e-14, 1e-15, 1e-15, 15, "e-15s"},
      {0.001, 1000.0, "", kLog, 0.001, 1000.0, 0.001, 0.001, 0, ""},
      {0.0, 100.0, "", kLog, 1e-8, 100.0, 1e-8, 1e-8, 0, ""},
      {100.0, 100.0, "", kLog, 90.0, 110.0, 10.0, 90.0, 0, ""},
      // The magnitude decides on the power, and steps are an eighth, a quarter, a half or a whole.
      {100.0, 100.001, "V", kLinear, 100.0, 100.001, 0.000125, 100.0, 0, "V"},
      {-5000.0, -4999.0, "V", kLinear, -5000.0, -4999.0, 0.1, -5000.0, -3, "kV"},
      {0.0, 10.5, "V", kLinear, 0.0, 10.5, 1.25, 0.0, 0, "V"},
      {0.0, 10.0, "V", kLinear, 0.0, 10.0, 1.0, 0.0, 0, "V"},
      {0.0, 50.0, "V", kLinear, 0.0, 50.0, 10.0, 0.0, 0, "V"},
      {0.0, 49.9, "V", kLinear, 0.0, 49.9, 5.0, 0.0, 0, "V"},
      // Below the smallest span; reversed, without max, and with one on a logarithmic axis.
      {1e-20, 3e-20, "V", kLinear, 0.0, kEpsilon, 2.5e-17, 0.0, 18, "e-18V"},
      {100.0, 1.0, "", kLog, 1e-10, 1.0, 1e-10, 1e-10, 0, ""},
      {0.5, -3.0, "", kLog, 0.5, 1.0, 0.1, 0.5, 0, ""},
      {-2.0, -3.0, "", kLog, 1e-10, 1.0, 1e-10, 1e-10, 0, ""},
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

TEST(Scale, HoldsTheSpanInUnitsOrDecades) {
  EXPECT_DOUBLE_EQ(Finished(-3.0, 4.0, "", kLinear).range, 7.0);
  EXPECT_DOUBLE_EQ(Finished(0.01, 1000.0, "", kLog).range, 5.0);
  // The ratio of these ends is beyond a double.
  EXPECT_NEAR(Finished(1e-200, 1e200, "", kLog).range, 400.0, 1e-9);
}

TEST(Scale, AnotherUnitChangesPowerAndLabelsOnly) {
  AxisData axis = Finished(0.0, 5000.0, "s", kLinear);
  axis.SetScale(100);
  EXPECT_STREQ(axis.GetStr(1), "1000");
  axis.SetAuxParams("Hz");
  EXPECT_EQ(axis.power, -3);
  EXPECT_STREQ(axis.GetStr(1), "1");
  EXPECT_STREQ(axis.GetName(), "kHz");
  EXPECT_EQ(axis.max, 5000.0);
  EXPECT_EQ(axis.step, 1000.0);
  EXPECT_EQ(axis.GetScale(), 50.0);

  axis.step = 7.0;
  axis.SetParamsFixed();
  EXPECT_EQ(axis.step, 7.0) << "an automatic axis has no fixed range to load";

  axis.Reset();
  EXPECT_STREQ(axis.GetName(), "");
  EXPECT_EQ(axis.power, 0);
  EXPECT_EQ(axis.GetScale(), 0.0);
  EXPECT_EQ(axis.maxLabelLength, 10u);
  EXPECT_STREQ(axis.GetStr(1), "1") << "labels stay";
}

// Whatever a host or its data give as a range, there is an axis to paint and a paint of it ends.
TEST(Scale, AnyEndsAtAllGiveAUsableAxis) {
  const double ends[] = {kNan,
                         kInf,
                         -kInf,
                         1.7e308,
                         -1.7e308,
                         4e307,
                         -4e307,
                         1e300,
                         1e300 * (1 + 2 * kEpsilon),
                         5e-324,
                         0.0,
                         -0.0,
                         1e-310,
                         -1e-290,
                         2e-295,
                         1.0,
                         1e-16,
                         -1e-15,
                         1 + 2 * kEpsilon,
                         1e15,
                         -1.0};
  for (const double min : ends) {
    for (const double max : ends) {
      for (const bool log : {kLinear, kLog}) {
        SCOPED_TRACE(::testing::Message() << min << " to " << max << " log " << log);
        AxisData axis = Finished(min, max, "V", log);
        axis.CorrectMinMax(5);
        axis.SetParams();
        axis.SetScale(400);
        ASSERT_TRUE(std::isfinite(axis.min) && std::isfinite(axis.max));
        ASSERT_LT(axis.min, axis.max);
        ASSERT_TRUE(!log || axis.min > 0.0);
        ASSERT_TRUE(std::isfinite(axis.range) && axis.range > 0.0);
        ASSERT_TRUE(std::isfinite(axis.step) && axis.step > 0.0 && axis.step < axis.max - axis.min);
        ASSERT_TRUE(std::isfinite(axis.firstStep));
        ASSERT_NEAR(axis.GetPos(axis.max), 400, 1);
        ASSERT_STRNE(axis.GetStr(0), "");
        ASSERT_EQ(std::string(axis.GetStr(0)).find_first_of("in"), std::string::npos)
            << axis.GetStr(0);

        int steps = 0;
        for (axis.iter.Init(&axis); axis.iter.pos < 400; axis.iter.Next(false))
          ASSERT_LT(++steps, 10000);
        EXPECT_GE(steps, 1);
      }
    }
  }
}

TEST(Scale, HugeMarginsAreRepairedToo) {
  AxisData axis = Finished(-1e307, 1e307, "", kLinear);
  axis.CorrectMinMax(std::numeric_limits<int>::max());
  axis.SetParams();
  EXPECT_TRUE(std::isfinite(axis.range));
  // A span beyond a double leaves no margin to compute, but the range it was asked for.
  axis.min = -1.7e308;
  axis.max = 1.7e308;
  axis.CorrectMinMax(0);
  axis.SetParams();
  EXPECT_GT(axis.max, 1e307);
  EXPECT_LT(axis.min, -1e307);
}

TEST(Prefix, BringsTheMagnitudeIntoOneToAThousandAsFarAsTheUnitAllows) {
  const double values[] = {0.001, 0.0, 1.0, 999.9, 1000.0, -2e6, 1e16, 1e-15, kInf, -kInf, kNan};
  const std::vector<int> all = {3, 0, 0, 0, -3, -6, -15, 15, 0, 0, 0};
  const std::vector<int> small = {3, 0, 0, 0, 0, 0, 0, 15, 0, 0, 0};
  const std::vector<int> none(all.size(), 0);
  const struct {
    const char* unit;
    std::vector<int> powers;
  } cases[] = {{"V", all},         {"S", all},     {"\xC2\xB5V", all}, {"s", small},
               {"samples", small}, {"%FS", none},  {"\xB0K", none},    {"\xC2\xB0K", none},
               {"", none},         {nullptr, none}};
  for (const auto& c : cases) {
    std::vector<int> powers;
    for (const double value : values)
      powers.push_back(FindUnitPower(value, c.unit));
    EXPECT_EQ(powers, c.powers) << (c.unit ? c.unit : "null");
  }
}

TEST(Prefix, StandsBeforeTheWholeUnit) {
  const struct {
    int power;
    const char* unit;
    const char* text;
  } cases[] = {{-12, "Hz", "THz"},
               {-9, "Hz", "GHz"},
               {-6, "Hz", "MHz"},
               {-3, "1/V", "k1/V"},
               {0, "Hz", "Hz"},
               {3, "s", "ms"},
               {6, "s", "us"},
               {9, "s", "ns"},
               {12, "s", "ps"},
               {15, "s", "e-15s"},
               {-15, "V", "e15V"},
               {-3, nullptr, "k"},
               {std::numeric_limits<int>::min(), "V", "e2147483648V"},
               {0, "123456789012345", "123456789012345"},
               {-3, "123456789012345", "k12345678901234"},
               {0, "12345678901234\xC2\xB5", "12345678901234"},
               {0, "1234567890123\xC2\xB5X", "1234567890123\xC2\xB5"},
               {0, "12345678901234\xF0\x9F\x98\x80", "12345678901234"},
               // Latin-1 is cut anywhere.
               {0, "1234567890123\xB0\xB0\xB0", "1234567890123\xB0\xB0"}};
  for (const auto& c : cases) {
    EXPECT_EQ(PrefixedUnit(c.power, c.unit), c.text);
    if (c.power == 0) {
      AxisData axis;
      axis.SetFuncName(c.unit);
      EXPECT_STREQ(axis.GetFuncName(), c.text);
    }
  }
}

TEST(Prefix, FormatsAValueInPlace) {
  const struct {
    double value;
    const char* unit;
    double shown;
    const char* text;
  } cases[] = {{0.0000125, "s", 12.5, "us"},
               {2500.0, "Hz", 2.5, "kHz"},
               {2500.0, "s", 2500.0, "s"},
               {0.0, "Hz", 0.0, "Hz"},
               {3.5, "%", 3.5, "%"},
               {-1e-3, "V", -1.0, "mV"},
               {7e4, nullptr, 7e4, ""},
               {kInf, "V", kInf, "V"},
               // The factor alone would be infinite.
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

}  // namespace
}  // namespace sparlow
