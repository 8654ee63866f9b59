#include <thread>

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
  void block(unsigned samples) {
    s.InitBlockTransfer();
    for (unsigned i = 0; i < samples; ++i) {
      s.Add(s.GetSize(), 1);
      if (!s.adjusted && s.nTo == 0u) {
        EXPECT_EQ(s.GetTo(), s.GetSize());
      }
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

TEST_F(Transfer, CountsTheSamplesOfABlockWhateverIsOnShow) {
  s.InitDataTransfer(false);
  for (int i = 0; i < 3; ++i) {
    block(100);
    EXPECT_EQ(s.nBlockSamples, 100u);
    s.SetIntervalByX(10, 20);  // as a series that follows another one's axis
  }
  s.InitDataTransfer(false);
  s.InitBlockTransfer();
  EXPECT_EQ(s.nBlockSamples, 0u);
  block(100);
  EXPECT_EQ(s.GetTo(), 100u) << "all of a new data set";
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

TEST_F(Transfer, AWaveformEndsWithItsBlock) {
  s.InitDataTransfer(true);
  block(8200);
  EXPECT_EQ(s.GetSize(), 8192u);
  EXPECT_EQ(s.GetDroppedSamples().beyondLimit, 8u);
  EXPECT_EQ(s.xGlobalMax, 8191);
  EXPECT_TRUE(s.TermDataTransfer());
  EXPECT_EQ(s.GetTo(), 8192u);
  s.Reset();
  EXPECT_EQ(s.GetDroppedSamples().beyondLimit, 0u);
}

// y tells which data set a sample belongs to, x its place there.
TEST(Feeding, NewDataSetsDoNotDisturbWhoReads) {
  Series s;
  std::atomic<bool> done{false};
  const std::jthread feeder([&] {
    for (int set = 1; set <= 60; ++set) {
      s.InitDataTransfer(set % 4 == 0);
      for (int block = 0; block < 3; ++block) {
        s.InitBlockTransfer();
        for (int i = 0; i < 1500 * (set % 7); ++i)
          s.Add(s.GetSize(), set);
        s.TermBlockTransfer();
      }
      if (s.Valid())
        s.Set(s.GetSize() / 2, s.GetSize() / 2, set);
      s.TermDataTransfer();
    }
    done = true;
  });
  SourceData copy(s);
  while (!done) {
    const SampleReader samples = s.Read();
    for (unsigned i = 0; i < samples.size(); i += 97) {
      ASSERT_EQ(samples.x(i), i);
      ASSERT_EQ(samples.y(i), samples.y(0)) << "a sample of another data set";
    }
    s.SetIntervalParams();
    s.ResetInterval(nullptr);
    s.Scroll(50, nullptr);
    s.ZoomInByCursor();
    const SampleInterval shown = s.GetInterval();
    ASSERT_LE(shown.from, shown.end);
    s.CalculateStatParams(0, kInf);
    const StatisticParameters whole = s.GetStatParams();
    ASSERT_EQ(whole.min, whole.max);
    ASSERT_EQ(whole.mean, whole.mean == 0.0 ? whole.stdDev : whole.max) << "of two data sets";
    copy = s;
    for (unsigned i = 0, n = copy.Read().size(); i < n; i += 997)
      ASSERT_EQ(copy.xGet(i), i);
  }
}

TEST(Feeding, WhoSeesTheEndOfATransferSeesWhatItPublished) {
  Series s;
  for (int round = 0; round < 1000; ++round) {
    std::atomic<bool> begun{false};
    const std::jthread feeder([&] {
      s.InitDataTransfer(false);
      s.InitBlockTransfer();
      begun = true;
      for (int i = 0; i < 5; ++i)
        s.Add(i, i);
      s.TermBlockTransfer();
      s.TermDataTransfer();
    });
    while (!begun)
      std::this_thread::yield();
    while (s.inTransfer)
      s.ResetInterval(nullptr);
    // Also when the interval was opened anew just as the transfer ended.
    ASSERT_EQ(s.GetSize(), 5u);
    ASSERT_EQ(s.GetTo(), 5u);
    ASSERT_EQ(s.iRCursor, 4);
  }
}

}  // namespace
}  // namespace sparlow::test
