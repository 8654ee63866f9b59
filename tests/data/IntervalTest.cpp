#include <gtest/gtest.h>

#include <climits>
#include <limits>

#include "sparlow/axis/AxisData.h"
#include "sparlow/data/SampleSearch.h"
#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct Interval : testing::Test {
  Interval() { s.fillRamp(1000); }
  void show(unsigned from, unsigned to) {
    s.SetFrom(from);
    s.SetTo(to);
  }
  void setInterval(double from, double to) {
    AxisData axis;
    axis.min = from;
    axis.max = to;
    s.SetInterval(axis);
  }
  void fix(double from, double to) {
    hor.autoRange = false;
    hor.fixedMin = from;
    hor.fixedMax = to;
  }
  void expect(unsigned from, unsigned to, int left, int right) const {
    EXPECT_EQ(s.GetInterval(), (SampleInterval{from, to}));
    EXPECT_EQ(s.iLCursor, left);
    EXPECT_EQ(s.iRCursor, right);
  }

  Series s;
  AxisData hor;
};

TEST(FindSample, BisectsWithTolerance) {
  const auto block = std::make_unique<SampleBlock>(false);
  for (const double x : {0.0, 1.0, 2.0, 4.0, 8.0})
    block->Add(x, 0, false);
  EXPECT_EQ(FindSample(*block, 0, 5, 4, false), 3);
  EXPECT_EQ(FindSample(*block, 0, 5, 5e-16, true), 0);
  EXPECT_EQ(FindSample(*block, 0, 5, 1 - 5e-16, false), 1);
  EXPECT_EQ(FindSample(*block, 0, 5, 3, false), 2);
  EXPECT_EQ(FindSample(*block, 0, 5, 3, true), 3);
  EXPECT_EQ(FindSample(*block, 0, 5, 8.5, true), -1);
  EXPECT_EQ(FindSample(*block, 0, 5, -0.5, false), -1);
  EXPECT_EQ(FindSample(*block, 1, 2, -100, false), 1);  // one sample: anything below finds it
  EXPECT_EQ(FindSample(*block, 1, 2, 1.5, false), -1);
  EXPECT_EQ(FindSample(*block, 0, 5, kNan, false), -1);
  EXPECT_EQ(FindSample(*block, 0, 5, kInf, true), -1);
}

TEST_F(Interval, FindsTheSampleAtOrBeforeX) {
  EXPECT_EQ(s.GetxValueIndex(500), 500u);
  EXPECT_EQ(s.GetxValueIndex(500.5), 500u);
  EXPECT_EQ(s.GetxValueIndex(-3), 0u);
  EXPECT_EQ(s.GetxValueIndex(1e9), 999u);
  EXPECT_EQ(s.GetxValueIndex(kInf), 999u);
  EXPECT_EQ(s.GetxValueIndex(kNan), 0u);
  s.fillRamp(20000);
  EXPECT_EQ(s.GetxValueIndex(8192), 8192u);
  EXPECT_EQ(s.GetxValueIndex(9000.5), 9000u);
  EXPECT_EQ(s.GetxValueIndex(8191.5), 16384u);  // between two blocks: the last block's first
  EXPECT_EQ(s.GetxValueIndex(16383.5), 16384u);
}

TEST_F(Interval, ReachesOneSampleBeyondARangeWithTheCursorsInside) {
  setInterval(100.5, 200.5);
  expect(100, 202, 101, 200);
  setInterval(120, 150);
  expect(120, 151, 120, 150);
  s.ResetInterval(nullptr);
  setInterval(-5, 300);  // begins before the first sample: the end isn't looked for
  expect(0, 1000, 0, 300);
  setInterval(990.5, 5000);
  expect(990, 1000, 991, 999);
  setInterval(500, 500.5);  // too narrow for cursors of their own
  expect(500, 502, 500, 501);
}

TEST_F(Interval, SearchesTheBlocksInForce) {
  s.fillRamp(20000);
  show(9000, 10000);
  setInterval(100.5, 9500.5);  // 100 lies in a block that isn't searched
  EXPECT_EQ(s.GetInterval(), (SampleInterval{0, 20000}));
  setInterval(8000.5, 17000.5);
  EXPECT_EQ(s.GetInterval(), (SampleInterval{8000, 17002}));
  show(8192, 8192);
  setInterval(8200, 8300);  // nothing in force: all samples
  EXPECT_EQ(s.GetInterval(), (SampleInterval{0, 20000}));
}

TEST_F(Interval, CursorsComeToTheSamePlaceInSamplesOutOfOrder) {
  s.Reset();
  for (const double x : {0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0})
    s.Add(x, 0);
  s.AdjustSizeTo();
  s.Set(8, 3.5, 0);
  ASSERT_FALSE(s.Store()->Ascending());
  setInterval(1.5, 5.5);
  expect(1, 7, 2, 5);
}

TEST_F(Interval, DeclinesWhatIsNotFinite) {
  show(10, 20);
  for (const double bad : {kNan, kInf, -kInf}) {
    setInterval(bad, 500);
    setInterval(0, bad);
    EXPECT_FALSE(s.ZoomInByPoint(bad, 500, &hor));
    EXPECT_FALSE(s.ZoomInByPoint(100, bad, nullptr));
  }
  EXPECT_EQ(s.GetInterval(), (SampleInterval{10, 20}));
  fix(-kInf, kInf);
  s.ResetInterval(&hor);
  EXPECT_EQ(s.GetInterval(), (SampleInterval{0, 1000}));
}

TEST_F(Interval, OfAnEmptySeriesIsEmptyAndLeavesTheCursors) {
  s.Reset();
  fix(10, 20);
  s.ResetInterval(&hor);
  EXPECT_EQ(s.nFrom, 0u);
  EXPECT_EQ(s.nTo, 0u);
  EXPECT_EQ(s.iLCursor, -1);
  EXPECT_EQ(s.iRCursor, -1);
}

TEST_F(Interval, ResetShowsAllOrTheFixedRange) {
  show(10, 20);
  s.SetIntervalParams();
  s.iLCursor = 3;
  s.ResetInterval(&hor);
  expect(0, 1000, 3, 999);
  EXPECT_TRUE(s.IntervalWhole());
  EXPECT_EQ(s.xIntervalMax, 0.0);
  fix(100.5, 200.5);
  s.ZoomOutFull(&hor);
  expect(100, 202, 101, 200);
  s.InitDataTransfer(false);
  s.ResetInterval(nullptr);
  EXPECT_EQ(s.nTo, 0u);
  EXPECT_EQ(s.GetTo(), 1000u);
}

TEST_F(Interval, IsCutToTheSamplesForEveryReader) {
  show(700, 5000);
  EXPECT_EQ(s.GetInterval(), (SampleInterval{700, 1000}));
  show(900, 300);
  EXPECT_EQ(s.GetIntervalSize(), 0u);
  EXPECT_EQ(s.GetFrom(), 300u);
  EXPECT_FALSE(s.Scroll(-10, &hor) || s.SetIntervalBySample(false, &hor, 2));
  s.SetIntervalParams();
  s.ScrollTo(3);
  EXPECT_EQ(s.nFrom, 900u);
  EXPECT_EQ(s.nTo, 300u);
}

TEST_F(Interval, ZoomByPoint) {
  EXPECT_TRUE(s.ZoomInByPoint(100.5, 200.5, &hor));
  expect(100, 202, 100, 201);
  EXPECT_FALSE(s.ZoomInByPoint(100.5, 200.5, &hor));
  expect(100, 202, 101, 200);
  s.ResetInterval(nullptr);
  fix(300, 400);
  EXPECT_TRUE(s.ZoomInByPoint(-50, 900, &hor));
  expect(300, 401, 300, 400);
  s.ResetInterval(nullptr);
  EXPECT_TRUE(s.ZoomInByPoint(500, 600, &hor));  // wholly outside: one sample stays
  EXPECT_EQ(s.GetIntervalSize(), 1u);
}

TEST_F(Interval, ZoomByCursor) {
  s.iLCursor = 10;
  s.iRCursor = 20;
  EXPECT_TRUE(s.ZoomInByCursor());
  expect(10, 21, 10, 20);
  EXPECT_FALSE(s.ZoomInByCursor());
  for (const auto& [left, right] : {std::pair{-1, 20}, {10, -1}, {20, 10}, {1000, 1001}}) {
    s.iLCursor = left;
    s.iRCursor = right;
    EXPECT_FALSE(s.ZoomInByCursor()) << left << " " << right;
    EXPECT_EQ(s.GetInterval(), (SampleInterval{10, 21}));
  }
}

TEST_F(Interval, ZoomBySample) {
  EXPECT_TRUE(s.SetIntervalBySample(true, &hor, 2));
  expect(250, 750, 250, 749);
  EXPECT_TRUE(s.SetIntervalBySample(false, &hor, 2));
  expect(0, 1000, 0, 999);
  EXPECT_FALSE(s.SetIntervalBySample(false, &hor, 2));
  show(500, 503);
  EXPECT_TRUE(s.SetIntervalBySample(true, &hor, 2));
  expect(500, 502, 500, 501);
  EXPECT_FALSE(s.SetIntervalBySample(true, &hor, 2));
  show(100, 400);
  EXPECT_TRUE(s.SetIntervalBySample(false, &hor, 2));  // -50 to 550, moved inside
  expect(0, 600, 0, 599);
  show(700, 900);
  EXPECT_TRUE(s.SetIntervalBySample(false, &hor, 4));
  expect(200, 1000, 200, 999);
  for (const int factor : {1, 0, -1, INT_MIN})
    EXPECT_FALSE(s.SetIntervalBySample(true, &hor, factor));
  EXPECT_TRUE(s.SetIntervalBySample(false, &hor, INT_MAX));
  expect(0, 1000, 0, 999);
  fix(0, 1);
  EXPECT_FALSE(s.SetIntervalBySample(true, &hor, 2));
}

TEST_F(Interval, Scroll) {
  show(30, 130);
  EXPECT_TRUE(s.Scroll(-100, &hor));
  expect(0, 100, 0, 99);
  EXPECT_FALSE(s.Scroll(-1, &hor));
  EXPECT_FALSE(s.Scroll(0, &hor));
  EXPECT_TRUE(s.Scroll(INT_MAX, &hor));
  expect(900, 1000, 900, 999);
  EXPECT_FALSE(s.Scroll(1, &hor));
  EXPECT_TRUE(s.Scroll(INT_MIN, nullptr));
  fix(0, 1);
  EXPECT_FALSE(s.Scroll(5, &hor));
  expect(0, 100, 0, 99);
  for (const unsigned beyond : {950u, 1000u, UINT_MAX}) {
    s.ScrollTo(0);
    s.ScrollTo(beyond);
    expect(900, 1000, 900, 999);
  }
  s.ScrollTo(7);
  expect(7, 107, 7, 106);
}

TEST_F(Interval, AnalysedRange) {
  s.iLCursor = 5;
  s.iRCursor = 9;
  EXPECT_EQ(s.GetAnalyzeFrom(), 0u);
  EXPECT_EQ(s.GetAnalyzeTo(), 1000u);
  SourceData::AnalyzeDataBetweenCursors = true;
  EXPECT_EQ(s.GetAnalyzeFrom(), 5u);
  EXPECT_EQ(s.GetAnalyzeTo(), 10u);
  s.iLCursor = -1;
  s.iRCursor = INT_MAX;
  EXPECT_LE(s.GetAnalyzeFrom(), 1000u);
  EXPECT_EQ(s.GetAnalyzeTo(), 1000u);
  s.inTransfer = true;
  show(10, 20);
  EXPECT_EQ(s.GetAnalyzeFrom(), 0u);
  EXPECT_EQ(s.GetAnalyzeTo(), 20u);
  SourceData::AnalyzeDataBetweenCursors = false;
}

}  // namespace
}  // namespace sparlow::test
