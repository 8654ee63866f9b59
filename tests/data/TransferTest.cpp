#include <gtest/gtest.h>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

struct Counting : Series {
  int calls = 0;
  void CalculateStatParams(double low, double high) override {
    ++calls;
    EXPECT_EQ(low, SampleBlock::kNoMax);
    EXPECT_EQ(high, SampleBlock::kNoMin);
    EXPECT_FALSE(inTransfer);
    EXPECT_EQ(GetAnalyzeTo(), GetSize());
  }
};

struct Transfer : testing::Test {
  ~Transfer() override { SourceData::nLastSamplesToDraw = 0; }

  void block(unsigned samples) {
    s.InitBlockTransfer();
    for (unsigned i = 0; i < samples; ++i) {
      s.Add(s.GetSize(), 1);
      EXPECT_TRUE(s.adjusted || s.GetTo() == s.GetSize());
    }
    s.TermBlockTransfer();
  }

  Counting s;
};

TEST_F(Transfer, KeepsTheOldDataUntilTheFirstBlock) {
  s.fillRamp(10000);
  s.InitDataTransfer(false);
  s.Add(10000, 7);  // still goes to the old data
  EXPECT_TRUE(s.InitBlockTransfer());
  EXPECT_EQ(s.GetSize(), 0u);
  s.Add(0, 1);
  EXPECT_FALSE(s.InitBlockTransfer());
  EXPECT_EQ(s.GetSize(), 1u);
}

TEST_F(Transfer, ShowsAllThatHasComeAndPinsTheEndAtItsOwn) {
  s.InitDataTransfer(false);
  block(20);
  EXPECT_TRUE(s.IntervalWhole());
  EXPECT_EQ(s.xIntervalMax, 19);
  block(30);
  EXPECT_EQ(s.calls, 0);
  EXPECT_TRUE(s.TermDataTransfer());
  EXPECT_EQ(s.calls, 1);
  EXPECT_EQ(s.iLCursor, 0);
  EXPECT_EQ(s.iRCursor, 49);
  s.Add(50, 0);
  EXPECT_EQ(s.GetTo(), 50u);
}

TEST_F(Transfer, WithoutSamplesEndsWithFalse) {
  s.fillRamp(10);
  s.InitDataTransfer(false);
  s.ResetInterval(nullptr);  // opened for samples that never come
  EXPECT_FALSE(s.TermDataTransfer());
  EXPECT_EQ(s.GetTo(), 10u);
  EXPECT_FALSE(s.inTransfer);
  EXPECT_EQ(s.calls, 0);
}

TEST_F(Transfer, SlidesOverTheLastSamples) {
  SourceData::nLastSamplesToDraw = 1000;
  s.InitDataTransfer(false);
  block(400);
  block(4600);
  EXPECT_EQ(s.GetInterval(), (SampleInterval{4000, 5000}));
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

}  // namespace
}  // namespace sparlow::test
