#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <random>
#include <vector>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

constexpr double kLow = std::numeric_limits<double>::lowest();
constexpr double kHigh = std::numeric_limits<double>::max();

using Six = std::array<double, 6>;  // mean, min, max, span, stdDev, allanDev
constexpr Six kNothing{0, 1, 1, 0, 0, 0};

Six sixOf(const StatisticParameters& p) {
  return {p.mean, p.min, p.max, p.span, p.stdDev, p.allanDev};
}

struct Statistics : testing::Test {
  ~Statistics() override { SourceData::AnalyzeDataBetweenCursors = false; }
  void fill(const std::vector<double>& values) {
    s.Reset();
    for (const double y : values)
      s.Add(s.GetSize(), y);
    s.AdjustSizeTo();
  }
  Six calculated(double low = kLow, double high = kHigh) {
    s.CalculateStatParams(low, high);
    return sixOf(s.GetStatParams());
  }
  Series s;
};

TEST_F(Statistics, CountTheSamplesOfTheWindow) {
  struct {
    double low, high;
    Six expected;
  } const cases[] = {
      {kLow, kHigh, {2.5, 1, 4, 3, std::sqrt(1.25), std::sqrt(0.5)}},
      {kNan, kNan, {2.5, 1, 4, 3, std::sqrt(1.25), std::sqrt(0.5)}},
      {2, 3, {2.5, 2, 3, 1, 0.5, std::sqrt(0.5)}},
      {2.5, 3.5, {3, 3, 3, 0, 0, std::sqrt(0.5)}},
      {0.5, 1, {1, 1, 1, 0, 0, 0}},
      {4.5, 9, kNothing},
      {3, 2, kNothing},
  };
  fill({1, 2, 3, 4});
  for (const auto& [low, high, expected] : cases)
    EXPECT_EQ(calculated(low, high), expected) << low << " to " << high;
  fill({7});
  EXPECT_EQ(calculated(), (Six{7, 7, 7, 0, 0, 0}));
  fill({0, 6, 4});
  EXPECT_EQ(calculated(5, 6), (Six{6, 6, 6, 0, 0, std::sqrt(18)}))
      << "back to one that doesn't count";
  s.Reset();
  EXPECT_EQ(sixOf(s.GetStatParams()), Six{});
  EXPECT_EQ(calculated(), kNothing);
  StatisticParameters none;
  none.Calculate(nullptr, kLow, kHigh);
  EXPECT_EQ(sixOf(none), kNothing);
}

TEST_F(Statistics, CountTheSamplesOfTheAnalysedRange) {
  s.InitDataTransfer(false);
  s.InitBlockTransfer();
  for (const double y : {5, 1, 3, 9})
    s.Add(s.GetSize(), y);
  SourceData::AnalyzeDataBetweenCursors = true;
  s.iLCursor = s.iRCursor = 1;
  EXPECT_EQ(calculated()[2], 9) << "all of them, while they come in";
  s.SetTo(3);
  EXPECT_EQ(calculated()[2], 5);
  s.TermDataTransfer();
  EXPECT_EQ(s.GetStatParams().max, 9);
  s.iLCursor = 1;
  s.iRCursor = 2;
  EXPECT_EQ(calculated(), (Six{2, 1, 3, 2, 1, std::sqrt((16 + 4) / 4.0)}));
  s.iRCursor = 0;
  EXPECT_EQ(calculated(), kNothing);
}

// As passes, each for itself, that ask every sample.
Six plain(const SourceData& s, double low, double high) {
  const auto pass = [&](auto use) {
    for (unsigned i = s.GetAnalyzeFrom(); i < s.GetAnalyzeTo(); ++i)
      if (const double y = s.yGet(i); y >= low && y <= high)
        use(i, y);
  };
  double min = kHigh, max = kLow, sum = 0, mean = 0, squares = 0, steps = 0, n = 0, pairs = 0;
  pass([&](unsigned, double y) { min = y < min ? y : min; });
  pass([&](unsigned, double y) { max = y > max ? y : max; });
  if (min > max)
    return kNothing;
  low = min;
  high = max;
  pass([&](unsigned, double y) { sum += y, ++n; });
  mean = sum / n;
  pass([&](unsigned, double y) { squares += (y - mean) * (y - mean); });
  pass([&](unsigned i, double y) {
    if (i > 0)
      steps += (y - s.yGet(i - 1)) * (y - s.yGet(i - 1)), ++pairs;
  });
  return {mean,
          min,
          max,
          max - min,
          std::sqrt(squares / n),
          pairs == 0 ? 0 : std::sqrt(steps / pairs * 0.5)};
}

TEST_F(Statistics, AreThoseOfPlainPassesToTheLastBit) {
  std::mt19937 random(20240611);
  std::normal_distribution<double> noise(0, 1e-3);
  std::uniform_int_distribution<int> any(0, 20000);
  using Bits = std::array<std::uint64_t, 6>;
  for (const bool coarse : {false, true}) {  // many equal values, and zeros of both signs
    double walk = coarse ? 0.0 : 10e6;
    s.Reset();
    for (int i = 0; i < 20000; ++i) {
      walk += noise(random);
      s.Add(i, coarse ? std::trunc(walk * 40) / 8 : walk);
    }
    s.AdjustSizeTo();
    for (int i = 0; i < 50; ++i)
      s.Set(static_cast<unsigned>(any(random)), i, coarse ? -0.0 : 10e6);
    for (int i = 0; i < 300; ++i) {
      SourceData::AnalyzeDataBetweenCursors = i % 3 != 0;
      s.iLCursor = any(random) / (1 + i % 50);
      s.iRCursor = s.iLCursor + any(random) / (1 + i % 70);
      double low = s.yGet(static_cast<unsigned>(any(random)) % 20000);
      double high = s.yGet(static_cast<unsigned>(any(random)) % 20000);
      if (i % 5 == 0)
        high = kHigh;
      ASSERT_EQ(std::bit_cast<Bits>(calculated(low, high)),
                std::bit_cast<Bits>(plain(s, low, high)))
          << s.GetAnalyzeFrom() << " to " << s.GetAnalyzeTo() << ", y " << low << " to " << high;
    }
  }
  StatisticParameters steps;
  steps.CalculateMinMax(&s, -1, 1);
  steps.CalculateMean(&s, -1, 1);
  steps.CalculateStdDev(&s, -1, 1);
  steps.CalculateAllanDev(&s, -1, 1);
  EXPECT_EQ(sixOf(steps), calculated(-1, 1));
}

// Statistical Reference Datasets of the NIST, univariate summary statistics: Michelso (speed of
// light), Mavro (filter transmittance), NumAcc1 to NumAcc4. The certified deviation has n - 1.
struct Reference {
  const char* name;
  std::vector<double> values;
  double mean, deviation, within;  // within: relative, for the deviation
};

std::vector<double> scaled(std::vector<int> steps, int origin, double unit) {
  std::vector<double> values;
  for (const int step : steps)
    values.push_back((origin + step) / unit);
  return values;
}

std::vector<double> alternating(int origin) {  // in tenths
  std::vector<int> steps{2};
  for (int i = 0; i < 500; ++i)
    steps.insert(steps.end(), {1, 3});
  return scaled(steps, origin, 10);
}

const Reference kReferences[] = {
    {"Michelso",
     scaled({85, 74, 90, 107, 93, 85, 95, 98, 98, 88, 100, 98, 93, 65, 76, 81, 100, 100, 96, 96,
             96, 94, 96, 94,  88, 80, 85, 88, 90, 84, 83,  79, 81, 88, 88, 83, 80,  79,  76, 80,
             88, 88, 88, 86,  72, 72, 62, 86, 97, 95, 88,  91, 85, 87, 84, 84, 85,  84,  84, 84,
             89, 81, 81, 82,  80, 77, 76, 74, 75, 76, 91,  92, 89, 86, 88, 72, 84,  85,  85, 78,
             89, 84, 78, 81,  76, 81, 79, 81, 82, 85, 87,  87, 81, 74, 81, 94, 95,  80,  81, 87},
            29900, 100),
     299.8524, 0.0790105478190518, 1e-12},
    {"Mavro",
     scaled({18, 17, 18, 19, 18, 17, 15, 14, 15, 15, 17, 18, 18, 19, 19, 21, 20,
             16, 14, 13, 13, 15, 15, 16, 15, 14, 13, 14, 15, 14, 15, 16, 15, 16,
             19, 20, 20, 21, 22, 23, 24, 25, 27, 26, 26, 26, 27, 26, 25, 24},
            20000, 10000),
     2.001856, 0.000429123454003053, 1e-12},
    {"NumAcc1", {10000001, 10000003, 10000002}, 10000002, 1, 1e-15},
    {"NumAcc2", alternating(10), 1.2, 0.1, 1e-13},
    {"NumAcc3", alternating(10000000), 1000000.2, 0.1, 1e-9},
    {"NumAcc4", alternating(100000000), 10000000.2, 0.1, 1e-7},
};

TEST_F(Statistics, ReachTheCertifiedValues) {
  for (const Reference& reference : kReferences) {
    fill(reference.values);
    const StatisticParameters p = (calculated(), s.GetStatParams());
    const double n = s.GetSize();
    EXPECT_NEAR(p.mean, reference.mean, 1e-14 * reference.mean) << reference.name;
    EXPECT_NEAR(p.stdDev * std::sqrt(n / (n - 1)) / reference.deviation, 1.0, reference.within)
        << reference.name;
  }
}

}  // namespace
}  // namespace sparlow::test
