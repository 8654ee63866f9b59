#include <climits>
#include <tuple>

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
  void at(Cursors cursors) { std::tie(view.iLCursor, view.iRCursor) = cursors; }
  void show(unsigned from, unsigned to) {
    view.SetFrom(from);
    view.SetTo(to);
  }
  Placed placed(bool answer) const { return {answer, view.iLCursor, view.iRCursor}; }
  /// Moves one cursor after the other; 0 is no move.
  Placed moved(Cursors before, int left, int right) {
    at(before);
    const bool l = left != 0 && view.MoveLCursor(left, &hor);
    const bool r = right != 0 && view.MoveRCursor(right, &hor);
    return placed(l || r);
  }
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
      {{10, INT_MAX}, true, 2000, {true, 998, 999}},
      {{INT_MAX, 20}, false, 30, {true, 30, 999}},
  };
  for (const auto& [before, left, sample, expected] : cases) {
    at(before);
    EXPECT_EQ(placed(left ? view.SetLCursor(sample) : view.SetRCursor(sample)), expected)
        << before.first << " " << before.second << (left ? " left to " : " right to ") << sample;
  }
  for (const unsigned few : {0u, 1u}) {
    fill(few);
    const Placed before = placed(false);
    EXPECT_EQ(placed(view.SetLCursor(5)), before);
    EXPECT_EQ(placed(view.SetRCursor(5)), before);
    EXPECT_EQ(placed(view.MoveLCursor(5, &hor)), before);
    EXPECT_EQ(placed(view.MoveRCursor(5, nullptr)), before);
  }
}

TEST_F(DataCursors, MoveOnAnAutomaticAxis) {
  struct {
    SampleInterval shown;
    Cursors before;
    int left, right;
    Placed expected;
    SampleInterval then;
  } const cases[] = {
      {{0, 1000}, {10, 20}, INT_MIN, INT_MAX, {false, 0, 999}, {0, 1000}},
      {{0, 1000}, {10, 20}, INT_MAX, 0, {false, 19, 20}, {0, 1000}},
      {{0, 1000}, {10, 20}, 0, INT_MIN, {false, 10, 11}, {0, 1000}},
      {{0, 1000}, {10, 20}, 3, -3, {false, 13, 17}, {0, 1000}},
      {{0, 1000}, {-1, 20}, 5, 5, {false, -1, 20}, {0, 1000}},
      {{0, 1000}, {10, -1}, 5, 5, {false, 10, -1}, {0, 1000}},
      // Reversed ones stay in the series.
      {{0, 1000}, {500, 0}, 1, 0, {false, 0, 0}, {0, 1000}},
      {{0, 1000}, {999, 500}, 0, 1, {false, 999, 999}, {0, 1000}},
      {{0, 1000}, {INT_MAX, INT_MAX}, -1, 0, {false, 998, INT_MAX}, {0, 1000}},
      // Zoomed: who leaves the interval drags it along, who is outside already doesn't.
      {{100, 200}, {100, 199}, 0, 1, {true, 101, 200}, {101, 201}},
      {{100, 200}, {105, 150}, -10, 0, {true, 90, 189}, {90, 190}},
      {{100, 200}, {105, 150}, INT_MIN, 0, {true, 0, 99}, {0, 100}},
      {{100, 200}, {50, 300}, -10, 10, {false, 40, 310}, {100, 200}},
      {{100, 200}, {105, 200}, 0, 1, {false, 105, 201}, {100, 200}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    show(each.shown.from, each.shown.end);
    EXPECT_EQ(moved(each.before, each.left, each.right), each.expected);
    EXPECT_EQ(view.GetInterval(), each.then);
  }
  view.ResetCursor();
  EXPECT_EQ(placed(false), (Placed{false, 100, 199}));
}

TEST_F(DataCursors, AreNothingWhereThereIsNoSample) {
  for (const int nowhere : {-1, INT_MIN, 1000, INT_MAX}) {
    at({nowhere, nowhere});
    EXPECT_EQ(view.xLCursorGet(), 0);
    EXPECT_EQ(view.yRCursorGet(), 0);
    EXPECT_EQ(view.xRCursorPosGet(&axis), 0);
  }
  at({INT_MIN, INT_MAX});
  EXPECT_EQ(view.dnCursorGet(), INT_MAX);
}

TEST_F(DataCursors, CopyToReplacesTheSamplesOnly) {
  fill(10000);
  Live<ViewData> other;
  other.waveform = true;
  other.Add(7, 7, true);
  show(100, 200);
  at({110, 120});
  view.CopyTo(&view);
  view.CopyTo(nullptr);
  EXPECT_EQ(placed(false), (Placed{false, 110, 120})) << "nothing happens";
  view.CopyTo(&other);
  ASSERT_EQ(other.GetSize(), 10000u) << "though it was a waveform";
  EXPECT_EQ(other.xGet(999), 1998);
  EXPECT_EQ(other.yGet(1), -1);
  EXPECT_FALSE(other.slopeGet(0));
  EXPECT_EQ(other.dnCursorGet(), 10000);
  EXPECT_EQ(other.GetStatParams().span, 9999);
  fill(0);
  view.CopyTo(&other);
  EXPECT_FALSE(other.Valid());
  EXPECT_FALSE(other.ValidCursor());
}

}  // namespace
}  // namespace sparlow::test
