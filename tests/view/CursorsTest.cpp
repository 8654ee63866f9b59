#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <tuple>

#include "sparlow/data/Error.h"
#include "tests/view/View.h"

namespace sparlow::test {
namespace {

using Cursors = std::pair<int, int>;
using Placed = std::tuple<bool, int, int>;  // the answer of what moved them, left and right

struct DataCursors : testing::Test {
  DataCursors() { fill(1000); }
  void fill(unsigned samples) {
    view.Reset();
    for (unsigned i = 0; i < samples; ++i)
      view.Add(i * 2.0, -1.0 * i);
    view.AdjustSizeTo();
  }
  void at(Cursors cursors) {
    view.iLCursor = cursors.first;
    view.iRCursor = cursors.second;
  }
  void show(unsigned from, unsigned to) {
    view.SetFrom(from);
    view.SetTo(to);
  }
  Placed placed(bool answer) const { return {answer, view.iLCursor, view.iRCursor}; }
  Live<ViewData> view;
  GraphAxis axis = unitAxis();
  AxisData& hor = axis.hor;
};

TEST_F(DataCursors, ArePlacedSoThatTheyNeverMeet) {
  struct {
    Cursors before;
    bool left;
    unsigned sample;
    Placed expected;
  } const cases[] = {
      {{10, 20}, true, 5, {false, 5, 20}},
      {{10, 20}, true, 25, {true, 20, 25}},
      {{10, 20}, true, 20, {true, 19, 20}},
      {{10, 20}, false, 30, {false, 10, 30}},
      {{10, 20}, false, 5, {true, 5, 10}},
      {{10, 20}, false, 10, {true, 10, 11}},
      // At the ends, and beyond them.
      {{5, 0}, true, 0, {true, 0, 1}},
      {{999, 5}, false, 999, {true, 998, 999}},
      {{10, 20}, true, UINT_MAX, {true, 20, 999}},
      {{10, 20}, false, 1u << 31, {false, 10, 999}},
      {{10, INT_MAX}, true, 2000, {true, 998, 999}},
      {{INT_MAX, 20}, false, 30, {true, 30, 999}},
  };
  for (const auto& [before, left, sample, expected] : cases) {
    at(before);
    EXPECT_EQ(placed(left ? view.SetLCursor(sample) : view.SetRCursor(sample)), expected)
        << before.first << " " << before.second << (left ? " left to " : " right to ") << sample;
  }
  at({10, 20});
  view.SwapCursors();
  EXPECT_EQ(placed(false), (Placed{false, 20, 10}));
  for (const unsigned few : {0u, 1u}) {
    fill(few);
    const Placed before = placed(false);
    EXPECT_EQ(placed(view.SetLCursor(5)), before);
    EXPECT_EQ(placed(view.SetRCursor(5)), before);
    EXPECT_EQ(placed(view.MoveLCursor(5, &hor)), before);
    EXPECT_EQ(placed(view.MoveRCursor(5, nullptr)), before);
  }
}

struct Move {
  Cursors before;
  int left, right;  // moves, one after the other; 0 is none
  Placed expected;
};

TEST_F(DataCursors, MoveOnAnAutomaticAxis) {
  const auto check = [this](unsigned from, unsigned end, const Move& move) {
    show(from, end);
    at(move.before);
    const bool scrolled = (move.left != 0 && view.MoveLCursor(move.left, &hor)) ||
                          (move.right != 0 && view.MoveRCursor(move.right, &hor));
    EXPECT_EQ(placed(scrolled), move.expected) << move.before.first << " " << move.before.second
                                               << " by " << move.left << ", " << move.right;
    return view.GetInterval();
  };
  for (const Move& move : {Move{{10, 20}, -1000, 0, {false, 0, 20}},
                           {{10, 20}, INT_MIN, INT_MAX, {false, 0, 999}},
                           {{10, 20}, INT_MAX, 0, {false, 19, 20}},
                           {{10, 20}, 0, INT_MIN, {false, 10, 11}},
                           {{10, 20}, 3, -3, {false, 13, 17}},
                           {{-1, 20}, 5, 5, {false, -1, 20}},
                           {{10, -1}, 5, 5, {false, 10, -1}},
                           {{500, 0}, 1, 0, {false, 0, 0}},  // reversed: stay in the series
                           {{999, 500}, 0, 1, {false, 999, 999}},
                           {{INT_MAX, INT_MAX}, -1, 0, {false, 998, INT_MAX}}})
    EXPECT_EQ(check(0, 1000, move), (SampleInterval{0, 1000}));
  // Zoomed: who leaves the interval drags it along, who is outside already doesn't.
  EXPECT_EQ(check(100, 200, {{100, 199}, 0, 1, {true, 101, 200}}), (SampleInterval{101, 201}));
  EXPECT_EQ(check(100, 200, {{105, 150}, -10, 0, {true, 90, 189}}), (SampleInterval{90, 190}));
  EXPECT_EQ(check(100, 200, {{105, 150}, INT_MIN, 0, {true, 0, 99}}), (SampleInterval{0, 100}));
  EXPECT_EQ(check(100, 200, {{50, 300}, -10, 10, {false, 40, 310}}), (SampleInterval{100, 200}));
  view.ResetCursor();
  EXPECT_EQ(placed(false), (Placed{false, 100, 199}));
  show(1000, 1000);
  view.ResetCursor();
  EXPECT_EQ(placed(false), (Placed{false, 999, 999}));
}

TEST_F(DataCursors, StayInAFixedRange) {
  const auto move = [this](Cursors before, int left, int right) {
    at(before);
    const bool l = view.MoveLCursor(left, &hor), r = view.MoveRCursor(right, &hor);
    return placed(l || r);
  };
  hor.autoRange = false;
  hor.fixedMin = 199;  // samples 100 to 400
  hor.fixedMax = 801;
  show(100, 401);
  EXPECT_EQ(move({150, 350}, -100, 100), (Placed{false, 100, 400}));
  EXPECT_EQ(move({150, 350}, INT_MIN, INT_MAX), (Placed{false, 100, 400}));
  EXPECT_EQ(move({150, 350}, -7, 7), (Placed{false, 143, 357}));
  EXPECT_EQ(move({99, 401}, 5, -5), (Placed{false, 99, 401})) << "outside";
  hor.fixedMax = std::numeric_limits<double>::infinity();
  EXPECT_EQ(move({150, 350}, 5, 5), (Placed{false, 150, 350})) << "no range";
}

TEST_F(DataCursors, GiveTheirSamples) {
  show(0, 1000);
  at({10, 20});
  EXPECT_EQ(view.dnCursorGet(), 11);
  EXPECT_EQ((std::pair{view.xLCursorGet(), view.yLCursorGet()}), (std::pair{20.0, -10.0}));
  EXPECT_EQ((std::pair{view.xRCursorGet(), view.yRCursorGet()}), (std::pair{40.0, -20.0}));
  EXPECT_EQ((Cursors{view.xLCursorPosGet(&axis), view.yLCursorPosGet(&axis)}), (Cursors{20, 10}));
  EXPECT_EQ((Cursors{view.xRCursorPosGet(&axis), view.yRCursorPosGet(&axis)}), (Cursors{40, 20}));
  EXPECT_TRUE(view.ValidCursor());
  for (const Cursors& none : {Cursors{-1, 20}, {10, -1}}) {
    at(none);
    EXPECT_TRUE(view.dnCursorGet() == 0 && !view.ValidCursor());
  }
  for (const int nowhere : {-1, INT_MIN, 1000, INT_MAX}) {
    at({nowhere, nowhere});
    EXPECT_EQ(view.xLCursorGet() + view.yRCursorGet(), 0);
    EXPECT_EQ(view.xRCursorPosGet(&axis) + view.yLCursorPosGet(&axis), 0);
  }
  at({INT_MIN, INT_MAX});
  EXPECT_EQ(view.dnCursorGet(), INT_MAX);
}

TEST_F(DataCursors, CopyToReplacesTheSamplesOnly) {
  Live<ViewData> other;
  other.waveform = true;
  other.Add(7, 7, true);
  show(100, 200);
  at({110, 120});
  view.CopyTo(&view);
  EXPECT_EQ(placed(false), (Placed{false, 110, 120})) << "itself: nothing happens";
  view.CopyTo(nullptr);
  view.CopyTo(&other);
  ASSERT_EQ(other.GetSize(), 1000u);
  EXPECT_EQ(other.xGet(999), 1998);
  EXPECT_EQ(other.yGet(1), -1);
  EXPECT_FALSE(other.slopeGet(0));
  EXPECT_EQ(other.dnCursorGet(), 1000);
  EXPECT_EQ(other.GetStatParams().span, 999);
  fill(0);
  view.CopyTo(&other);
  EXPECT_FALSE(other.Valid() || other.ValidCursor());
  EXPECT_TRUE(other.adjusted);
  EXPECT_EQ(other.GetStatParams().max, 1);
}

TEST(VerifiedView, ThrowsWithoutColumns) {
  struct : Live<ViewData> {
    using ViewData::Verify;
  } view;
  GraphAxis axis = unitAxis();
  view.fill({{1, 2}});
  EXPECT_THROW(view.Verify(), Error);
  view.Render(&axis, true);
  EXPECT_NO_THROW(view.Verify());
}

}  // namespace
}  // namespace sparlow::test
