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
      {0.5, 1, {1, 1, 1, 0, 0, 0}},
      {4.5, 9, kNothing},
      {3, 2, kNothing},
  };
  fill({1, 2, 3, 4});
  for (const auto& [low, high, expected] : cases)
    EXPECT_EQ(calculated(low, high), expected) << low << " to " << high;
}

// As plain passes that ask every sample.
Six plain(const SourceData& s, double low, double high) {
  double min = kHigh, max = kLow, sum = 0, squares = 0, steps = 0, n = 0, pairs = 0;
  const auto pass = [&](auto use) {
    for (unsigned i = s.GetAnalyzeFrom(); i < s.GetAnalyzeTo(); ++i)
      if (const double y = s.yGet(i); y >= low && y <= high)
        use(i, y);
  };
  pass([&](unsigned i, double y) {
    min = std::min(min, y), max = std::max(max, y);
    sum += y, ++n;
    if (i > 0)
      steps += (y - s.yGet(i - 1)) * (y - s.yGet(i - 1)), ++pairs;
  });
  if (n == 0)
    return kNothing;
  const double mean = sum / n;
  pass([&](unsigned, double y) { squares += (y - mean) * (y - mean); });
  const double allan = pairs == 0 ? 0 : std::sqrt(steps / pairs * 0.5);
  return {mean, min, max, max - min, std::sqrt(squares / n), allan};
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
      ASSERT_EQ(std::bit_cast<Bits>(calculated(low, high)),
                std::bit_cast<Bits>(plain(s, low, high)))
          << s.GetAnalyzeFrom() << " to " << s.GetAnalyzeTo() << ", y " << low << " to " << high;
    }
  }
}

}  // namespace
}  // namespace sparlow::test
