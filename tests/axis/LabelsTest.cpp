#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "sparlow/platform/base/Text.h"
#include "tests/axis/Axis.h"

namespace sparlow::test {
namespace {

// An empty slot before another label is a "_".
std::string Labels(const AxisData& axis) {
  std::string texts;
  std::string gap;
  for (int slot = 0; slot < 100; ++slot) {
    const std::string text = axis.GetStr(slot);
    if (text.empty()) {
      gap += " _";
    } else {
      texts += gap + (texts.empty() ? "" : " ") + text;
      gap.clear();
    }
  }
  return texts;
}

// A whole number one short of the longest label gets no decimals, an exponent without a point
// counts as one, and decimals go before an exponent. A first step that ceil makes -0 reads 0.
TEST(Labels, ReadInEngineeringUnits) {
  const struct {
    double min, max;
    const char* unit;
    bool log;
    unsigned length;
    const char* texts;
  } cases[] = {
      {0, 2, "V", false, 4, "0 0.25 0.50 0.75 1.00 1.25 1.50 1.75 2.00 2.25"},
      {-1, 1, "V", false, 5, "-1.00 -0.75 -0.50 -0.25 0 0.250 0.500 0.750 1.000 1.250"},
      {0.0123, 0.0187, "s", false, 2, "13 14 15 16 17 18 19"},
      {0, 1000, "Hz", false, 3, "0 0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9 1.0 1.1"},
      {235, 245, "", true, 3, "235 236 237 238 239 240 250"},
      {0.001, 1000, "", true, 4, "0.01 0.10 1.00 10.0 100 1000"},
      {1, 50, "", true, 2, "1 2 3 4 5 6 7 8 9 10 20 30 40 50"},
      {-0.05, 0.95, "", false, 3, "0 0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9 1.0"},
      {1e-6, 9e-5, "", true, 5,
       "1e-06 2e-06 3e-06 4e-06 5e-06 6e-06 7e-06 8e-06 9e-06 "
       "1e-05 2e-05 3e-05 4e-05 5e-05 6e-05 7e-05 8e-05 9e-05"},
      {0, 2e-6, "", false, 8,
       "0 2.50e-07 5.00e-07 7.50e-07 1.00e-06 1.25e-06 1.50e-06 1.75e-06 2.00e-06 2.25e-06"},
      // Fewer than two labels where a first digit of 0 took the tenfold step, or in steps
      // of the decade; fewer than three decades.
      {200, 230, "", true, 3, "200 210 220 230"},
      {2, 2.5, "", true, 3, "2.0 2.1 2.2 2.3 2.4 2.5"},
      {1.01, 2.1, "", true, 3, "1.1 1.2 1.3 1.4 1.5 1.6 1.7 1.8 1.9 2.0 3.0"},
      {9.5, 200, "", true, 3, "10 20 50 100 200"},
      {1, 400, "", true, 3, "1.0 2.0 5.0 10 20 50 100 200 500"},
      {1, 1000, "V", true, 4, "0.01 0.10 1.00"},
      {1, 1001, "V", true, 5, "10.00 100.0 1000 10000"},
      // More digits than others have, where the step asks for them.
      {1.23456785, 1.23456798, "", true, 10,
       "1.23456785 1.23456786 1.23456787 1.23456788 1.23456789 1.23456790 1.23456800"},
      // Ends that only rounding keeps from a step.
      {5e-11, 5e-10, "s", true, 3, "50 60 70 80 90 100 200 300 400 500"},
      {0.009000000000000001, 9, "", true, 4, "0.01 0.10 1.00 10.0"},
      {-0.04, 0.04, "V", false, 3, "-40 -30 -20 -10 0 10 20 30 40 50"},
      {0, 0.05, "V", false, 2, "0 10 20 30 40 50 60"},
      {0.015, 0.016, "V", false, 4, "15.0 15.1 15.2 15.3 15.4 15.5 15.6 15.7 15.8 15.9 16.0 16.1"},
      // 13 digits don't tell the steps: those that would read wrong have no text.
      {1e7, 1e7 + 2e-5, "Hz", false, 14,
       "10.0000000000 _ _ _ 10.00000000001 _ _ _ 10.00000000002"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.min << " to " << c.max << ' ' << c.unit << ' ' << c.log);
    const AxisData axis = Finished(c.min, c.max, c.unit, c.log);
    EXPECT_EQ(Labels(axis), c.texts);
    EXPECT_EQ(axis.maxLabelLength, c.length);
  }
}

TEST(Labels, OfStepsThatTheHostSet) {
  AxisData dense = Finished(0, 1000, "", false);
  dense.step = 1.0;
  dense.SetLabels();
  EXPECT_STREQ(dense.GetStr(99), "99");
  EXPECT_EQ(dense.GetStr(100), nullptr);
  EXPECT_EQ(dense.GetStr(-1), nullptr);
}

// A user can tell where on an axis a curve lies: each label stands at the pixel of the value that it
// reads. On a logarithmic axis it stands on a line of the grid, and there are two at least.
TEST(Walk, LabelsStandWhereTheirValuesAre) {
  std::mt19937 random(10);
  constexpr int kPixels = 100000;
  const auto decimal = [&](int digits, int exponent) {
    return std::strtod(FormatText("%de%d", digits, exponent).c_str(), nullptr);
  };
  for (int i = 0; i < 20000; ++i) {
    const int digits = 1 + static_cast<int>(random() % 9999);
    const int exponent = static_cast<int>(random() % 30) - 15;
    const bool log = i % 3 != 0;
    const double min = decimal(log || i % 2 ? digits : -digits, exponent);
    const double max = i % 2 ? decimal(digits + 1 + static_cast<int>(random() % 999), exponent)
                             : decimal(digits, exponent + 1 + static_cast<int>(random() % 5));
    AxisData axis = Finished(min, max, "", log, kPixels);
    axis.labelStep = log ? axis.labelStep : static_cast<int>(random() % 4);
    SCOPED_TRACE(::testing::Message() << min << " to " << max << " log " << log);
    std::vector<int> grid;
    for (axis.iter.Init(&axis); axis.iter.pos <= kPixels + 1; axis.iter.Next(true))
      grid.push_back(axis.iter.pos);
    int seen = 0, slot = 0;
    for (axis.iter.InitLabel(&axis); axis.iter.pos <= kPixels + 1; axis.iter.NextLabel(true)) {
      ASSERT_STRNE(axis.GetStr(slot), "") << slot;
      const double read = std::strtod(axis.GetStr(slot), nullptr);
      ASSERT_NEAR(axis.iter.pos, axis.GetPos(read), log ? 1 : 2) << read;
      if (log) {
        ASSERT_TRUE(std::binary_search(grid.begin(), grid.end(), axis.iter.pos));
      }
      slot += axis.LabelSlotStep();
      ++seen;
    }
    ASSERT_GE(seen, log ? 2 : 1);
  }
}

// Whatever a host writes into the fields of an axis.
TEST(Walk, EndsOnAnAxisThatGivesNothingToWalkOn) {
  AxisData::StepIter unset;
  unset.InitLabel(nullptr);
  EXPECT_EQ(unset.NextLabel(true), kFarPixel);
  constexpr double AxisData::*fields[] = {&AxisData::step, &AxisData::min, &AxisData::max,
                                          &AxisData::firstStep, nullptr};
  for (const auto field : fields) {
    for (const double value : {kNan, kInf, -kInf, 0.0, -1.0, 5e-324, 1e-300, 1e300}) {
      for (const bool log : {kLinear, kLog}) {
        AxisData axis = Finished(1, 500, "V", log);
        axis.labelStep = std::numeric_limits<int>::max();
        if (field)
          axis.*field = value;
        else
          axis.scale = value;
        axis.SetLabels();
        int steps = 0;
        for (axis.iter.Init(&axis); axis.iter.pos < 1000; axis.iter.Next(false))
          ASSERT_LE(++steps, 1000001) << log << ' ' << value;
        for (axis.iter.InitLabel(&axis); axis.iter.pos < 1000; axis.iter.NextLabel(true))
          ASSERT_LE(++steps, 2000002) << log << ' ' << value;
      }
    }
  }
}

}  // namespace
}  // namespace sparlow::test
