#include <algorithm>
#include <array>
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
  fill({1, 2, 3, 4});
  const Six all{2.5, 1, 4, 3, std::sqrt(1.25), std::sqrt(0.5)};
  EXPECT_EQ(calculated(), all);
  EXPECT_EQ(calculated(kNan, kNan), all);
  EXPECT_EQ(calculated(2.5, 3.5), (Six{3, 3, 3, 0, 0, std::sqrt(0.5)}));
  EXPECT_EQ(calculated(4.5, 9), kNothing);
  fill({7});
  EXPECT_EQ(calculated(), (Six{7, 7, 7, 0, 0, 0}));
  s.Reset();
  EXPECT_EQ(calculated(), kNothing);
}

// Of a list of the samples asked for, one number after the other.
Six plain(const SourceData& s, double low, double high) {
  const bool between = SourceData::AnalyzeDataBetweenCursors;
  const unsigned from = between ? static_cast<unsigned>(std::max<int>(s.iLCursor, 0)) : 0;
  const unsigned end = between ? std::min(static_cast<unsigned>(s.iRCursor + 1), 20000u) : 20000;
  std::vector<double> ys, steps;
  for (unsigned i = from; i < end; ++i) {
    if (s.yGet(i) < low || s.yGet(i) > high)
      continue;
    ys.push_back(s.yGet(i));
    if (i > 0)
      steps.push_back(s.yGet(i) - s.yGet(i - 1));
  }
  if (ys.empty())
    return kNothing;
  const auto meanOf = [](const std::vector<double>& values, auto of) {
    double sum = 0.0;
    for (const double value : values)
      sum += of(value);
    return values.empty() ? 0.0 : sum / static_cast<double>(values.size());
  };
  const double mean = meanOf(ys, [](double y) { return y; });
  const double variance = meanOf(ys, [=](double y) { return (y - mean) * (y - mean); });
  const double min = *std::min_element(ys.begin(), ys.end());
  const double max = *std::max_element(ys.begin(), ys.end());
  const double allan = meanOf(steps, [](double step) { return step * step; }) * 0.5;
  return {mean, min, max, max - min, std::sqrt(variance), std::sqrt(allan)};
}

TEST_F(Statistics, AreThoseOfPlainPassesToTheLastBit) {
  std::mt19937 random(20240611);
  std::normal_distribution<double> noise(0, 1e-3);
  std::uniform_int_distribution<int> any(0, 20000);
  for (const bool coarse : {false, true}) {  // with many equal values
    double walk = coarse ? 0.0 : 10e6;
    s.Reset();
    for (int i = 0; i < 20000; ++i) {
      walk += noise(random);
      s.Add(i, coarse ? std::trunc(walk * 40) / 8 : walk);
    }
    s.AdjustSizeTo();
    s.Set(static_cast<unsigned>(any(random)), 0, coarse ? 9 : 10e6);
    for (int i = 0; i < 300; ++i) {
      SourceData::AnalyzeDataBetweenCursors = i % 3 != 0;
      s.iLCursor = any(random) / (1 + i % 50) - 1;
      s.iRCursor = s.iLCursor + any(random) / (1 + i % 70);
      const double low = s.yGet(static_cast<unsigned>(any(random)) % 20000);
      const double high = i % 5 == 0 ? kHigh : s.yGet(static_cast<unsigned>(any(random)) % 20000);
      ASSERT_EQ(calculated(low, high), plain(s, low, high))
          << s.GetAnalyzeFrom() << " to " << s.GetAnalyzeTo() << ", y " << low << " to " << high;
    }
  }
}

// Statistical Reference Datasets of the NIST, univariate summary statistics, NumAcc2 to NumAcc4:
// origin + 0.2, and then 0.1 and 0.3 in turn. The certified deviation has n - 1.
TEST_F(Statistics, ReachTheCertifiedValues) {
  const std::pair<int, double> references[] = {{1, 1e-13}, {1000000, 1e-9}, {10000000, 1e-7}};
  for (const auto& [origin, within] : references) {
    std::vector<double> values{(10.0 * origin + 2) / 10};
    for (int i = 0; i < 500; ++i)
      values.insert(values.end(), {(10.0 * origin + 1) / 10, (10.0 * origin + 3) / 10});
    fill(values);
    calculated();
    EXPECT_NEAR(s.GetStatParams().mean, origin + 0.2, 1e-14 * (origin + 0.2)) << origin;
    EXPECT_NEAR(s.GetStatParams().stdDev * std::sqrt(1001.0 / 1000) / 0.1, 1.0, within) << origin;
  }
}

}  // namespace
}  // namespace sparlow::test
