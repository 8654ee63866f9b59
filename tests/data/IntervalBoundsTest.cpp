#include <gtest/gtest.h>

#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

// Three full blocks and a bit, y = 0 where a test hasn't put anything.
struct Bounds : testing::Test {
  void fill() {
    s.Reset();
    for (unsigned i = 0; i < 25000; ++i)
      s.Add(i, peaks.contains(i) ? peaks[i] : 0);
    s.AdjustSizeTo();
  }
  void expect(unsigned from, unsigned to, double low, double high) {
    s.SetFrom(from);
    s.SetTo(to);
    s.SetIntervalParams();
    EXPECT_EQ(s.xIntervalMinGet(), from);
    EXPECT_EQ(s.xIntervalMaxGet(), to - 1);
    EXPECT_EQ(s.yIntervalMinGet(), low);
    EXPECT_EQ(s.yIntervalMaxGet(), high);
  }

  std::map<unsigned, double> peaks;
  Series s;
};

TEST_F(Bounds, OfThatWholeAreThoseOfAllSamples) {
  peaks = {{5, -7}, {20000, 9}};
  fill();
  expect(0, 25000, -7, 9);
}

TEST_F(Bounds, ComeFromTheTwoBlocksThatPromiseMost) {
  // The lowest block has its -5 outside and reaches -1 inside, which hides the -3 of the second.
  peaks = {{10, -5}, {100, -1}, {9000, -3}, {9001, 4}, {17000, 6}};
  fill();
  expect(50, 25000, -1, 6);
  // The highest block keeps its lowest y to itself.
  peaks = {{100, -5}, {17000, 6}, {17001, -20}, {10, -30}};
  fill();
  expect(50, 25000, -5, 6);
  // Of two equal blocks the first one is read.
  peaks = {{10, -5}, {100, -1}, {9000, -5}};
  fill();
  expect(50, 20000, -1, 0);
}

TEST_F(Bounds, CoverTheBlocksOfTheIntervalAndNoOthers) {
  peaks = {{16383, 3}, {16384, 50}, {8191, 40}, {8192, -2}};
  fill();
  expect(8192, 16384, -2, 3);
  expect(8191, 16385, -2, 50);
  expect(8192, 8193, -2, -2);
}

TEST_F(Bounds, UseAnOpenEndDuringATransfer) {
  fill();
  s.inTransfer = true;
  s.SetFrom(20000);
  s.SetTo(0);
  s.Add(25000, 77);
  s.SetIntervalParams();
  EXPECT_EQ(s.xIntervalMax, 25000);
  EXPECT_EQ(s.yIntervalMax, 77);
}

TEST_F(Bounds, FollowAnOverwrittenSampleWithinTheRecords) {
  fill();
  s.SetFrom(1);
  s.Set(30, 30, 12);  // its block's record doesn't know of it, but the first block is the one read
  s.SetIntervalParams();
  EXPECT_EQ(s.yIntervalMax, 12);
}

TEST_F(Bounds, OfNothingStayAsTheyAre) {
  peaks = {{5, -7}};
  fill();
  expect(0, 100, -7, 0);
  s.SetFrom(50);
  s.SetTo(50);
  s.SetIntervalParams();
  EXPECT_EQ(s.xIntervalMax, 99);
  s.nSamples = 0;
  s.SetIntervalParams();
  EXPECT_EQ(s.yIntervalMin, -7);
}

}  // namespace
}  // namespace sparlow::test
