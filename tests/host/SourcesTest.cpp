// Sources that read no file, and what is said of their samples.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "examples/host/Summary.h"
#include "examples/host/TimerSource.h"
#include "sparlow/data/SourceData.h"
#include "tests/host/Sources.h"

namespace sparlow::host {

namespace {

TEST(TimerSource, MeasuresDelaysForItsTime) {
  TimerSource source(std::chrono::microseconds(500), 0.2);
  const Samples delays = ReadAll(source);
  ASSERT_FALSE(delays.empty());
  EXPECT_EQ(source.Progress(), 1.0);
  double lastTick = 0.0;
  for (const Sample& delay : delays) {
    ASSERT_GE(delay.y, 0.0);
    // Every wake-up belongs to a tick of its own, a multiple of the period.
    const double tick = delay.x - delay.y;
    ASSERT_NEAR(std::remainder(tick, 500e-6), 0.0, 1e-9);
    ASSERT_GT(tick, lastTick + 400e-6);
    lastTick = tick;
  }
}

TEST(TimerSource, ComesBackFromALongSleepWhenItIsStopped) {
  TimerSource source(std::chrono::hours(1), std::nullopt);
  Samples block;
  EXPECT_TRUE(source.Next(block, std::stop_token()));
  EXPECT_TRUE(block.empty());
}

TEST(Summary, TellsRanksOfDelaysInMicrosecondsAndTheReachOfASeries) {
  SourceData series;
  series.Init("s");
  EXPECT_EQ(DescribeDelays(series.Read()), "0 samples");
  // 1 to 200 microseconds, in mixed order.
  for (int i = 0; i < 200; ++i) {
    series.Add(std::max(i, 1) * 0.5, (i * 77 % 200 + 1) * 1e-6);
  }
  EXPECT_EQ(DescribeDelays(series.Read()),
            "200 samples in 99.5 s: delay min 1, median 100, 99th percentile 198, max 200 us; "
            "2 samples/s");
  EXPECT_EQ(DescribeSeries(series), "s: 200 samples, x 0.5 to 99.5, y 1e-06 to 0.0002");
  series.Term();
}

}  // namespace

}  // namespace sparlow::host
