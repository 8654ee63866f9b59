#include <gtest/gtest.h>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

struct Transfer : testing::Test {
  ~Transfer() override { SourceData::nLastSamplesToDraw = 0; }

  void block(unsigned samples) {
    s.InitBlockTransfer();
    for (unsigned i = 0; i < samples; ++i)
      s.Add(s.GetSize(), 1);
    s.TermBlockTransfer();
  }

  Series s;
};

TEST_F(Transfer, KeepsTheOldDataUntilTheFirstBlock) {
  s.fillRamp(10000);
  s.InitDataTransfer(false);
  EXPECT_TRUE(s.inTransfer);
  EXPECT_EQ(s.GetSize(), 10000u);
  s.Add(10000, 7);  // still goes to the old data
  EXPECT_EQ(s.GetSize(), 10001u);
  EXPECT_EQ(s.yGet(10000), 7);
  EXPECT_TRUE(s.InitBlockTransfer());
  EXPECT_EQ(s.GetSize(), 0u);
  EXPECT_EQ(s.nTo, 0u);
  s.Add(0, 1);
  EXPECT_FALSE(s.InitBlockTransfer());
  EXPECT_EQ(s.GetSize(), 1u);
}

TEST_F(Transfer, ShowsAllThatHasComeAndPinsTheEndAtItsOwn) {
  s.InitDataTransfer(false);
  s.InitBlockTransfer();
  for (unsigned i = 1; i <= 20; ++i) {
    s.Add(i, i);
    EXPECT_EQ(s.GetTo(), i);
  }
  EXPECT_TRUE(s.IntervalWhole());
  s.TermBlockTransfer();
  EXPECT_EQ(s.nBlockSamples, 20u);
  EXPECT_EQ(s.yIntervalMax, 20);
  block(30);
  EXPECT_EQ(s.nToAtBlockStart, 20u);
  EXPECT_EQ(s.nBlockSamples, 30u);
  EXPECT_FALSE(s.adjusted);
  EXPECT_TRUE(s.TermDataTransfer());
  EXPECT_FALSE(s.inTransfer);
  EXPECT_TRUE(s.adjusted);
  EXPECT_EQ(s.nTo, 50u);
  EXPECT_EQ(s.iLCursor, 0);
  EXPECT_EQ(s.iRCursor, 49);
  s.Add(50, 0);
  EXPECT_EQ(s.GetTo(), 50u);
}

TEST_F(Transfer, WithoutSamplesEndsWithFalse) {
  s.fillRamp(10);
  s.InitDataTransfer(false);
  EXPECT_FALSE(s.TermDataTransfer());
  EXPECT_FALSE(s.inTransfer);
  EXPECT_EQ(s.GetSize(), 10u);
  EXPECT_EQ(s.GetTo(), 10u);
  s.InitDataTransfer(false);
  block(0);
  EXPECT_FALSE(s.TermDataTransfer());
  EXPECT_FALSE(s.inTransfer || s.adjusted);
}

TEST_F(Transfer, SlidesOverTheLastSamples) {
  SourceData::nLastSamplesToDraw = 1000;
  s.InitDataTransfer(false);
  block(400);
  EXPECT_EQ(s.nFrom, 0u);
  block(4600);
  EXPECT_EQ(s.nFrom, 4000u);
  EXPECT_EQ(s.GetTo(), 5000u);
  EXPECT_EQ(s.xIntervalMin, 4000);
  s.TermDataTransfer();
  EXPECT_EQ(s.iLCursor, 4000);
  EXPECT_EQ(s.iRCursor, 4999);
}

TEST_F(Transfer, AWaveformEndsWithItsBlock) {
  s.InitDataTransfer(true);
  block(8200);
  EXPECT_EQ(s.GetSize(), 8192u);
  EXPECT_EQ(s.xGlobalMax, 8191);
  EXPECT_TRUE(s.TermDataTransfer());
  EXPECT_EQ(s.GetTo(), 8192u);
}

TEST_F(Transfer, SamplesWithoutFlagsReadAsFalling) {
  s.fillRamp(10);
  s.InitDataTransfer(true);
  EXPECT_FALSE(s.slopeGet(9));
}

TEST_F(Transfer, AdjustSizeToPinsTheEndAtAnyTime) {
  s.AdjustSizeTo();
  EXPECT_TRUE(s.adjusted);
  EXPECT_EQ(s.iRCursor, -1);
  s.InitDataTransfer(false);
  block(20);
  s.AdjustSizeTo();
  EXPECT_EQ(s.iLCursor, 0);
  EXPECT_EQ(s.iRCursor, 19);
  block(5);
  EXPECT_EQ(s.GetTo(), 20u);
  EXPECT_EQ(s.nBlockSamples, 0u);
}

TEST_F(Transfer, CursorsStayInASeriesWhoseStartWasNeverSet) {
  s.Add(0, 0);
  s.Add(1, 0);
  s.AdjustSizeTo();
  EXPECT_EQ(s.iLCursor, 1);
  EXPECT_EQ(s.iRCursor, 1);
  EXPECT_EQ(s.GetIntervalSize(), 0u);
}

TEST_F(Transfer, StatisticsComeAtTheEndOverTheFinishedSeries) {
  struct Counting : SourceData {
    int calls = 0;
    void CalculateStatParams(double low, double high) override {
      ++calls;
      EXPECT_EQ(low, SampleBlock::kNoMax);
      EXPECT_EQ(high, SampleBlock::kNoMin);
      EXPECT_FALSE(inTransfer);
      EXPECT_EQ(GetAnalyzeTo(), 3u);
    }
  } counting;
  counting.Init("counting");
  counting.InitDataTransfer(false);
  EXPECT_FALSE(counting.TermDataTransfer());
  counting.InitDataTransfer(false);
  counting.InitBlockTransfer();
  for (int i = 0; i < 3; ++i)
    counting.Add(i, i);
  counting.TermBlockTransfer();
  EXPECT_EQ(counting.calls, 0);
  counting.TermDataTransfer();
  EXPECT_EQ(counting.calls, 1);
  counting.Term();
}

}  // namespace
}  // namespace sparlow::test
