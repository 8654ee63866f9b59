#include <algorithm>
#include <climits>
#include <map>
#include <random>
#include <tuple>

#include "sparlow/axis/AxisData.h"
#include "tests/data/Series.h"

namespace sparlow::test {
namespace {

struct Interval : testing::Test {
  using Shown = std::tuple<unsigned, unsigned, int, int>;  // from, end, left and right cursor
  using Moved = std::tuple<bool, Shown>;                   // the answer of what moved it

  Interval() { s.fillRamp(1000); }
  void show(unsigned from, unsigned to) {
    s.SetFrom(from);
    s.SetTo(to);
  }
  Shown setInterval(double from, double to) {
    AxisData axis;
    axis.min = from;
    axis.max = to;
    s.SetInterval(axis);
    return shown();
  }
  Shown shown() const { return {s.GetFrom(), s.GetTo(), s.iLCursor, s.iRCursor}; }
  Moved after(bool answer) const { return {answer, shown()}; }
  void fix(double from, double to) {
    hor.autoRange = false;
    hor.fixedMin = from;
    hor.fixedMax = to;
  }

  Series s;
  AxisData hor;
};

TEST_F(Interval, FindsTheSampleAtOrBeforeX) {
  s.fillRamp(20000);
  // Between two blocks it is the last block's first.
  const std::pair<double, unsigned> cases[] = {{-3, 0},         {8192, 8192}, {9000.5, 9000},
                                               {8191.5, 16384}, {1e9, 19999}, {1 - 5e-16, 1}};
  for (const auto& [x, sample] : cases)
    EXPECT_EQ(s.GetxValueIndex(x), sample) << x;
}

// Whole blocks with pauses between them, as a segmented acquisition gives them, and one sample more
// or less than whole blocks.
TEST_F(Interval, ReachesOneSampleBeyondARangeWithTheCursorsInside) {
  std::mt19937 random(5);
  for (const unsigned size : {2u, 9u, 8191u, 8192u, 8193u, 16384u, 16385u, 25000u}) {
    std::vector<double> xs;
    s.Reset();
    for (unsigned i = 0; i < size; ++i) {
      xs.push_back(1 + i + 1000.0 * (i / 8192));
      s.Add(xs[i], 0);
    }
    s.AdjustSizeTo();
    const auto anyX = [&] {
      return 0.5 * static_cast<double>(random() % (2 * static_cast<unsigned>(xs.back()) + 4));
    };
    const auto index = [&](auto at) { return static_cast<int>(at - xs.begin()); };
    for (int i = 0; i < 500; ++i) {
      const auto [from, to] = std::minmax({anyX(), anyX()});
      const auto lowest = std::lower_bound(xs.begin(), xs.end(), from);
      const auto beyond = std::upper_bound(xs.begin(), xs.end(), to);
      const int left = index(lowest), right = index(beyond) - 1;
      if (left >= right)
        continue;
      const auto first = static_cast<unsigned>(*lowest > from ? std::max(left - 1, 0) : left);
      const auto last = static_cast<unsigned>(*(beyond - 1) < to ? right + 1 : right);
      const SampleInterval reached{first, std::min(last + 1, size)};
      SCOPED_TRACE(testing::Message() << size << ": " << from << " to " << to);
      ASSERT_EQ(setInterval(from, to), (Shown{first, reached.end, left, right}));
      ASSERT_EQ(s.SampleAtOrBefore(from), first);
      s.ResetInterval(nullptr);
      s.ZoomInByPoint(from, to, &hor);
      ASSERT_EQ(s.GetInterval(), reached);
      fix(from, to);
      s.ResetInterval(&hor);
      ASSERT_EQ(s.GetInterval(), reached);
      hor.autoRange = true;
    }
  }
}

TEST_F(Interval, OfARangeThatHoldsNothing) {
  EXPECT_EQ(setInterval(5000, 6000), (Shown{0, 1000, 0, 999}));
  EXPECT_EQ(setInterval(500, 500.5), (Shown{500, 502, 500, 501}));
  for (const double bad : {kNan, kInf, -kInf}) {
    EXPECT_EQ(setInterval(bad, 900), (Shown{500, 502, 500, 501}));
    EXPECT_EQ(after(s.ZoomInByPoint(0, bad, &hor)), (Moved{false, {500, 502, 500, 501}}));
  }
  s.fillRamp(9);
  s.Set(8, 3.5, 0);  // out of order
  EXPECT_EQ(setInterval(1.5, 5.5), (Shown{1, 7, 2, 5}));
}

TEST_F(Interval, ZoomByPointAndByCursor) {
  EXPECT_EQ(after(s.ZoomInByPoint(100.5, 200.5, &hor)), (Moved{true, {100, 202, 100, 201}}));
  s.iLCursor += 7;
  EXPECT_EQ(after(s.ZoomInByPoint(100.5, 200.5, &hor)), (Moved{false, {100, 202, 107, 201}}));
  s.ResetInterval(nullptr);
  fix(300, 400);
  EXPECT_EQ(after(s.ZoomInByPoint(-50, 900, &hor)), (Moved{true, {300, 401, 300, 400}}));
  s.ResetInterval(nullptr);
  EXPECT_TRUE(s.ZoomInByPoint(500, 600, &hor));  // wholly outside: one sample stays
  EXPECT_EQ(s.GetIntervalSize(), 1u);
  for (const auto& [left, right] :
       {std::pair{10, 20}, {10, 20}, {-1, 20}, {20, 10}, {1000, 1001}}) {
    const bool changes = s.GetFrom() != 10;
    s.iLCursor = left;
    s.iRCursor = right;
    EXPECT_EQ(after(s.ZoomInByCursor()), (Moved{changes, {10, 21, left, right}}));
  }
}

TEST_F(Interval, ZoomBySample) {
  const struct {
    SampleInterval before;
    bool in;
    int factor;
    SampleInterval then;
  } cases[] = {{{0, 1000}, true, 2, {250, 750}},        {{250, 750}, false, 2, {0, 1000}},
               {{500, 503}, true, 2, {500, 502}},       {{500, 502}, true, 2, {500, 502}},
               {{100, 400}, false, 2, {0, 600}},  // -50 to 550, moved inside
               {{700, 900}, false, 4, {200, 1000}},     {{700, 900}, true, INT_MIN, {700, 900}},
               {{700, 900}, false, INT_MAX, {0, 1000}}, {{3, 6}, false, 3, {0, 8}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message()
                 << c.before.from << " to " << c.before.end << " by " << c.factor);
    show(c.before.from, c.before.end);
    EXPECT_EQ(s.SetIntervalBySample(c.in, &hor, c.factor), c.then != c.before);
    EXPECT_EQ(s.GetInterval(), c.then);
    if (c.then != c.before) {
      EXPECT_EQ(s.iLCursor, static_cast<int>(c.then.from));
      EXPECT_EQ(s.iRCursor, static_cast<int>(c.then.end) - 1);
    }
  }
}

TEST_F(Interval, Scroll) {
  const Shown atStart{0, 100, 0, 99}, atEnd{900, 1000, 900, 999};
  show(30, 130);
  for (const auto& [samples, moved] : {std::pair{-100, Moved{true, atStart}},
                                       {-1, Moved{false, atStart}},
                                       {INT_MAX, Moved{true, atEnd}},
                                       {1, Moved{false, atEnd}},
                                       {INT_MIN, Moved{true, atStart}}})
    EXPECT_EQ(after(s.Scroll(samples, &hor)), moved) << samples;
  s.ScrollTo(7);
  EXPECT_EQ(shown(), (Shown{7, 107, 7, 106}));
  --s.iRCursor;
  s.ScrollTo(7);
  EXPECT_EQ(shown(), (Shown{7, 107, 7, 105})) << "where it was";
  s.ScrollTo(UINT_MAX);
  EXPECT_EQ(shown(), atEnd);
}

using Peaks = std::map<unsigned, double>;

// Three full blocks and a bit, y = 0 where there is no peak.
void fill(Series& s, const Peaks& peaks, unsigned from, unsigned to) {
  s.Reset();
  for (unsigned i = 0; i < 25000; ++i)
    s.Add(i, peaks.contains(i) ? peaks.at(i) : 0);
  s.SetFrom(from);
  s.SetTo(to);
}

TEST_F(Interval, BoundsComeFromTheTwoBlocksThatPromiseMost) {
  const Peaks atEdges{{16383, 3}, {16384, 50}, {8191, 40}, {8192, -2}};
  const struct {
    Peaks peaks;
    unsigned from, to;
    double low, high;
  } cases[] = {// The lowest block has its -5 outside and reaches -1 inside, which hides the -3 of
               // the second.
               {{{10, -5}, {100, -1}, {9000, -3}, {9001, 4}, {17000, 6}}, 50, 25000, -1, 6},
               // The highest block keeps its lowest y to itself.
               {{{100, -5}, {17000, 6}, {17001, -20}, {10, -30}}, 50, 25000, -5, 6},
               // The blocks of the interval, and no others.
               {atEdges, 8192, 16384, -2, 3},
               {atEdges, 8191, 16385, -2, 50},
               {atEdges, 8192, 8193, -2, -2}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.low << " to " << c.high);
    fill(s, c.peaks, c.from, c.to);
    s.SetIntervalParams();
    EXPECT_EQ(s.xIntervalMinGet(), c.from);
    EXPECT_EQ(s.xIntervalMaxGet(), c.to - 1);
    EXPECT_EQ(s.yIntervalMinGet(), c.low);
    EXPECT_EQ(s.yIntervalMaxGet(), c.high);
  }
}

TEST_F(Interval, BoundsFollowWhatComesDuringATransferAndWhatIsOverwritten) {
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
  s.Reset();
  s.Add(5, 7);
  s.SetIntervalParams();
  EXPECT_EQ(s.xIntervalMax, 5);
}

}  // namespace
}  // namespace sparlow::test
