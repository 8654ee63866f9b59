#include "examples/host/Analyses.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <tuple>

namespace sparlow::host {
namespace {

class AnalysesTest : public ::testing::Test {
 protected:
  ~AnalysesTest() override { source.Term(); }

  void Fill(unsigned n, const std::function<double(unsigned)>& y, double distance = 1.0) {
    source.Init("Source");
    source.InitDataTransfer(false);
    source.InitBlockTransfer();
    for (unsigned i = 0; i < n; ++i)
      source.Add(i * distance, y(i));
    source.TermBlockTransfer();
    source.TermDataTransfer();
  }

  ViewData source;
};

TEST_F(AnalysesTest, AllanDeviationGivesThePublishedFiguresOf1000Points) {
  AllanDeviation deviation(source);
  // The second are about a frequency of 10 MHz, whose doubles are 2e-9 apart.
  for (const double offset : {0.0, 1e7}) {
    // The test suite of NIST SP 1065, section 12.4: a linear congruential generator.
    std::uint64_t n = 1234567890;
    const auto next = [&](unsigned) {
      const double y = static_cast<double>(n) / 2147483647.0;
      n = n * 16807 % 2147483647;
      return offset + y;
    };
    source.Term();
    Fill(1000, next, 0.25);
    ASSERT_TRUE(deviation.Analyze());
    ASSERT_EQ(deviation.GetSize(), 8u) << "three times 200 samples fit";
    for (const auto& [at, time, published] :
         {std::tuple{0u, 0.25, 2.922319e-01}, {3u, 2.5, 9.159953e-02}, {6u, 25.0, 3.241343e-02}}) {
      EXPECT_DOUBLE_EQ(deviation.xGet(at), time);
      EXPECT_NEAR(deviation.yGet(at), published, 5e-8);
    }
  }
  source.Term();
  Fill(2, [](unsigned i) { return 1.0 * i; });
  EXPECT_FALSE(deviation.Analyze()) << "three samples are the least";
}

TEST_F(AnalysesTest, EachIsWhatItSaysAlsoOfARange) {
  const auto wave = [](unsigned i) { return 1e6 + i * 0.25 * i + std::sin(i * 0.7); };
  Fill(500, wave);
  source.iLCursor = 100;
  source.iRCursor = 299;
  for (const bool between : {false, true}) {
    SourceData::AnalyzeDataBetweenCursors = between;
    const unsigned from = between ? 100 : 0, end = between ? 300 : 500;
    for (const unsigned window : {1u, 10u, 1001u}) {
      MovingAverage mean(source, window);
      ASSERT_TRUE(mean.Analyze());
      ASSERT_EQ(mean.GetSize(), end - from);
      for (unsigned i = from; i < end; i += 7) {
        const unsigned low = std::max(from + (window - 1) / 2, i) - (window - 1) / 2;
        const unsigned high = std::min(end - 1, i + window / 2);
        double sum = 0.0;
        for (unsigned k = low; k <= high; ++k)
          sum += wave(k);
        EXPECT_NEAR(mean.yGet(i - from), sum / (high - low + 1), 1e-7) << window << " at " << i;
      }
    }
    Histogram histogram(source, 20);
    ASSERT_TRUE(histogram.Analyze());
    double counted = 0.0;
    for (unsigned k = 0; k < histogram.GetSize(); k += 2)
      counted += histogram.yGet(k);
    EXPECT_EQ(counted, end - from);
    EXPECT_EQ(histogram.xGet(0), source.yGet(from));
  }
  SourceData::AnalyzeDataBetweenCursors = false;
  Derivative slope(source);
  ASSERT_TRUE(slope.Analyze());
  EXPECT_NEAR(slope.yGet(200), 100.0 + std::sin(0.7) * std::cos(140.0), 1e-9);
  EXPECT_STREQ(slope.GetyUnit(), "s/s");
  const StatisticParameters statistics = source.GetStatParams();
  DeviationLine line(source, -3);
  ASSERT_TRUE(line.Analyze());
  EXPECT_NEAR(line.yGet(1), statistics.mean - 3 * statistics.stdDev, 1e-6);
}

TEST_F(AnalysesTest, EachStopsWhenItIsToldTo) {
  Fill(1000, [](unsigned i) { return i * 1.0; });
  MovingAverage mean(source, 3);
  Derivative slope(source);
  Histogram histogram(source);
  DeviationLine line(source, 1);
  AllanDeviation deviation(source);
  for (Analysis* const each :
       std::initializer_list<Analysis*>{&mean, &slope, &histogram, &line, &deviation}) {
    SetEvent(each->terminator);
    EXPECT_FALSE(each->Analyze()) << each->GetName();
    EXPECT_EQ(each->GetSize(), 0u) << each->GetName();
    ResetEvent(each->terminator);
    EXPECT_TRUE(each->Analyze()) << each->GetName();
  }
}

}  // namespace
}  // namespace sparlow::host
