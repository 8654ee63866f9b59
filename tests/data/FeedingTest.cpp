#include <gtest/gtest.h>

#include <thread>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

// y tells which data set a sample belongs to, x its place there.
void feed(SourceData& s, int dataSets) {
  for (int set = 1; set <= dataSets; ++set) {
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
}

TEST(Feeding, NewDataSetsDoNotDisturbWhoReads) {
  Series s;
  std::atomic<bool> done{false};
  std::thread feeder([&] {
    feed(s, 60);
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
    ASSERT_TRUE(!copy.Valid() || copy.xGet(copy.GetSize() - 1) == copy.GetSize() - 1);
  }
  feeder.join();
}

TEST(Feeding, WhoSeesTheEndOfATransferSeesWhatItPublished) {
  Series s;
  std::atomic<int> ended{0}, seen{0};
  constexpr int kRounds = 2000;
  std::thread feeder([&] {
    for (int round = 1; round <= kRounds; ++round) {
      s.InitDataTransfer(false);
      s.InitBlockTransfer();
      ended = round;
      for (int i = 0; i < 5; ++i)
        s.Add(i, i);
      s.TermBlockTransfer();
      s.TermDataTransfer();
      while (seen != round)
        std::this_thread::yield();
    }
  });
  for (int round = 1; round <= kRounds; ++round) {
    while (ended != round)
      std::this_thread::yield();
    while (s.inTransfer)
      s.ResetInterval(nullptr);
    // Also when the interval was opened anew just as the transfer ended.
    ASSERT_EQ(s.GetSize(), 5u);
    ASSERT_EQ(s.GetTo(), 5u);
    ASSERT_EQ(s.iRCursor, 4);
    seen = round;
  }
  feeder.join();
}

}  // namespace
}  // namespace sparlow::test
