#include <gtest/gtest.h>

#include <map>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

using Peaks = std::map<unsigned, double>;

// Three full blocks and a bit, y = 0 where there is no peak.
void fill(Series& s, const Peaks& peaks, unsigned from, unsigned to) {
  s.Reset();
  for (unsigned i = 0; i < 25000; ++i)
    s.Add(i, peaks.contains(i) ? peaks.at(i) : 0);
  s.SetFrom(from);
  s.SetTo(to);
}

TEST(Bounds, ComeFromTheTwoBlocksThatPromiseMost) {
  const Peaks atEdges{{16383, 3}, {16384, 50}, {8191, 40}, {8192, -2}};
  const struct {
    Peaks peaks;
    unsigned from, to;
    double low, high;
  } cases[] = {{{{5, -7}, {20000, 9}}, 0, 25000, -7, 9},
               // The lowest block has its -5 outside and reaches -1 inside, which hides the -3 of
               // the second.
               {{{10, -5}, {100, -1}, {9000, -3}, {9001, 4}, {17000, 6}}, 50, 25000, -1, 6},
               // The highest block keeps its lowest y to itself.
               {{{100, -5}, {17000, 6}, {17001, -20}, {10, -30}}, 50, 25000, -5, 6},
               // The blocks of the interval, and no others.
               {atEdges, 8192, 16384, -2, 3},
               {atEdges, 8191, 16385, -2, 50},
               {atEdges, 8192, 8193, -2, -2}};
  Series s;
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.low << " to " << c.high);
    fill(s, c.peaks, c.from, c.to);
    s.SetIntervalParams();
    EXPECT_EQ(s.xIntervalMinGet(), c.from);
    EXPECT_EQ(s.xIntervalMaxGet(), c.to - 1);
    EXPECT_EQ(s.yIntervalMinGet(), c.low);
    EXPECT_EQ(s.yIntervalMaxGet(), c.high);
  }
  s.SetTo(8192);  // those of nothing stay as they are
  s.SetIntervalParams();
  EXPECT_EQ(s.xIntervalMax, 8192);
}

TEST(Bounds, FollowWhatComesDuringATransferAndWhatIsOverwritten) {
  Series s;
  fill(s, {}, 20000, 0);
  s.inTransfer = true;
  s.Add(25000, 77);
  s.SetIntervalParams();
  EXPECT_EQ(s.xIntervalMax, 25000);
  EXPECT_EQ(s.yIntervalMax, 77);
  fill(s, {}, 1, 25000);
  s.Set(30, 30, 12);  // its block's record doesn't know of it, but the first block is the one read
  s.SetIntervalParams();
  EXPECT_EQ(s.yIntervalMax, 12);
}

}  // namespace
}  // namespace sparlow::test
