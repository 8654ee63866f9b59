#include <gtest/gtest.h>

#include <limits>
#include <thread>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(SourceData, InitGivesAnEmptySeriesInSeconds) {
  Series s;
  EXPECT_FALSE(s.Valid());
  EXPECT_EQ(s.nFrom, 0xFFFFFFFFu);
  EXPECT_EQ(s.nTo, 0xFFFFFFFFu);
  EXPECT_EQ(s.GetInterval(), SampleInterval{});
  EXPECT_EQ(s.iLCursor, -1);
  EXPECT_EQ(s.GetName(), "series");
  EXPECT_STREQ(s.GetCptName(), "Sample");
  EXPECT_STREQ(s.GetxUnit(), "s");
  EXPECT_STREQ(s.GetyUnit(), "s");
  EXPECT_EQ(s.GetMenuID(), 194);
  EXPECT_LT(s.GetxAnalyzeTo(), s.GetxAnalyzeFrom());
  EXPECT_FALSE(s.Analyze() || s.ApplyMask() || s.IsCalculated());
  EXPECT_TRUE(s.RealTimeScalingDefined());
  EXPECT_NE(s.statParams, nullptr);
}

TEST(SourceData, ACalculatedSeriesHasNoStatistics) {
  Series source;
  SourceData calculated;
  calculated.Init("calculated", &source);
  EXPECT_TRUE(calculated.IsCalculated());
  EXPECT_EQ(calculated.statParams, nullptr);
  EXPECT_EQ(calculated.GetStatParams().max, 0.0);
  calculated.Term();
}

TEST(SourceData, BadSamplesAreDropped) {
  Series s;
  s.Add(1, 2);
  for (const double bad : {kNan, kInf, -kInf}) {
    s.Add(bad, 5);
    s.Add(5, bad);
    s.Set(0, bad, 5);
    s.Set(0, 5, bad);
  }
  EXPECT_EQ(s.GetSize(), 1u);
  EXPECT_EQ(s.xGet(0), 1);
  EXPECT_EQ(s.xGlobalMax, 1);
  EXPECT_EQ(s.yGlobalMax, 2);
  EXPECT_EQ(s.xGlobalIntervalGet(), 0);
}

TEST(SourceData, SetWidensBoundsAndNeverNarrowsThem) {
  Series s;
  s.fillRamp(100);
  s.Set(99, 99, 50);
  EXPECT_EQ(s.yGlobalMaxGet(), 99);
  s.Set(50, -1, 500);
  EXPECT_EQ(s.xGet(50), -1);
  EXPECT_EQ(s.yGlobalMaxGet(), 500);
  EXPECT_EQ(s.xGlobalMinGet(), -1);
  EXPECT_EQ(s.yGlobalIntervalGet(), 500);
  s.Set(100, 1e6, 1e6);
  EXPECT_EQ(s.GetSize(), 100u);
  EXPECT_EQ(s.xGlobalMaxGet(), 99);
}

TEST(SourceData, SetWritesTheFlagOfAWaveform) {
  Series s;
  s.InitDataTransfer(true);
  s.InitBlockTransfer();
  s.Add(0, 0, false);
  s.Set(0, 0, 0, true);
  EXPECT_TRUE(s.slopeGet(0));
  EXPECT_FALSE(s.RealTimeScalingDefined());
}

TEST(SourceData, ResetEmptiesAndMayBeRepeated) {
  Series s;
  s.fillRamp(10000);
  s.SetIntervalParams();
  s.statParams->mean = 5;
  for (int i = 0; i < 2; ++i) {
    s.Reset();
    EXPECT_EQ(s.GetSize(), 0u);
    EXPECT_EQ(s.Store(), nullptr);
    EXPECT_EQ(s.nFrom, 0u);
    EXPECT_EQ(s.nTo, 0u);
    EXPECT_EQ(s.xIntervalMax, 0.0);
    EXPECT_EQ(s.xGlobalMax, SampleBlock::kNoMax);
    EXPECT_FALSE(s.adjusted);
    EXPECT_EQ(s.iLCursor, -1);
    EXPECT_EQ(s.iRCursor, -1);
    EXPECT_EQ(s.statParams->mean, 0.0);
  }
}

TEST(SourceData, ACopyIsASecondHandleThatKeepsItsSamples) {
  Series s;
  s.fillRamp(10000);
  SourceData copy(s);
  EXPECT_EQ(copy.Store(), s.Store());
  EXPECT_EQ(copy.dataMutex, s.dataMutex);
  EXPECT_EQ(copy.terminator, s.terminator);
  s.Add(10000, 1);
  copy.SetFrom(500);
  EXPECT_EQ(copy.GetSize(), 10000u);
  EXPECT_EQ(s.GetFrom(), 0u);
  copy.Add(20000, 2);  // goes behind the sample that the copy hasn't counted
  EXPECT_EQ(copy.GetSize(), 10002u);
  EXPECT_EQ(copy.xGet(10000), 10000);
  EXPECT_EQ(s.GetSize(), 10001u);
  s.Reset();
  s.Add(-1, -1);
  EXPECT_EQ(copy.xGet(9999), 9999);
  EXPECT_EQ(copy.GetSize(), 10002u);
}

TEST(SourceData, UnitsAreCutToTheirFields) {
  Series s;
  s.xUnit[0] = 'm';
  s.SetUnits("V");
  EXPECT_STREQ(s.GetxUnit(), "s");
  EXPECT_STREQ(s.GetyUnit(), "V");
  s.SetUnits("0123456789012345678901234567890123456789");
  EXPECT_STREQ(s.GetyUnit(), "0123456789012345678901234567890");
  s.SetUnits("012345678901234567890123456789\xC2\xB0");  // a degree sign on the edge
  EXPECT_STREQ(s.GetyUnit(), "012345678901234567890123456789");
  s.SetUnits(nullptr);
  EXPECT_STREQ(s.GetyUnit(), "");
  s.ResetUnits();
  EXPECT_STREQ(s.GetxUnit(), "");
}

TEST(SourceData, TellsWorkersToStopByItsEvent) {
  Series s;
  EXPECT_FALSE(s.IsAborted());
  SetEvent(s.terminator);
  EXPECT_TRUE(s.IsAborted());
  ResetEvent(s.terminator);
  EXPECT_FALSE(s.IsAborted());
}

TEST(SourceData, IsHarmlessBeforeInitAndAfterTerm) {
  const auto use = [](SourceData& s) {
    EXPECT_FALSE(s.Valid() || s.IsAborted() || s.IntervalWhole());
    EXPECT_EQ(s.GetSize() + s.GetTo() + s.GetFrom() + s.GetxValueIndex(1) + s.GetAnalyzeTo(), 0u);
    EXPECT_FALSE(s.ZoomInByPoint(0, 1, nullptr) || s.ZoomInByCursor() || s.Scroll(1, nullptr) ||
                 s.SetIntervalBySample(false, nullptr, 2));
    s.ScrollTo(4);
    s.ResetInterval(nullptr);
    s.SetIntervalParams();
    s.Set(0, 1, 1);
    s.Reset();
    s.Term();
  };
  SourceData s;
  use(s);
  s.Init(nullptr);
  s.Add(1, 1);
  s.Term();
  EXPECT_EQ(s.dataMutex, nullptr);
  EXPECT_EQ(s.statParams, nullptr);
  use(s);
  s.Init("again");
  s.Add(1, 1);
  EXPECT_EQ(s.GetSize(), 1u);
  s.Term();
}

TEST(SourceData, TermWaitsForWhoeverWorksOnTheSeries) {
  SourceData s;
  s.Init("series");
  s.Add(1, 1);
  std::atomic<bool> working{false}, done{false};
  std::thread worker([&] {
    const CSingleLock lock(s.threadsMutex);
    working = true;
    for (int i = 0; i < 1000; ++i) {
      std::this_thread::yield();
      ASSERT_EQ(s.GetSize(), 1u);
    }
    done = true;
  });
  while (!working)
    std::this_thread::yield();
  s.Term();
  EXPECT_TRUE(done);
  worker.join();
}

}  // namespace
}  // namespace sparlow::test
