// The markers of the two cursors: their pixels, what moves them, and what a move costs.

#include <climits>

#include "sparlow/platform/Input.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

using test::RecordingDevice;
using Calls = RecordingDevice::Calls;

/// A marker on a surface of its own, with a frame to take it away with.
class MarkerTest : public ::testing::Test {
 protected:
  MarkerTest() {
    bitmap.surface = device.MakeCompatible({800, 600});
    CDC(&frame).SelectObject(&bitmap);
    cursor.SetColor(0x0000FF);
  }
  ~MarkerTest() override {
    Cursor::SetStyle(2);
    Offset::LogPixelSize = 1;
  }
  Calls Draw(int x, int y, HDC from) {
    cursor.Draw(&dc, from, x, y, 200);
    return device.take();
  }

  RecordingDevice device;
  DeviceContext dc{&device};
  DeviceContext frame{nullptr};
  Bitmap bitmap;
  Cursor cursor;
};

TEST_F(MarkerTest, ShapesAndArrows) {
  const std::string wide = " style 0 width 5 color 0x0000FF";
  const std::string thin = " style 0 width 3 color 0x0000FF";
  const struct {
    int style, y;
    Calls calls;
    CRect rect;
  } cases[] = {
      {0, 60, {"Rectangle 98,58 102,62" + thin + " fill 0xFFFFFF"}, {96, 56, 104, 64}},
      {1, 0, {"Ellipse 97,-3 103,3" + wide + " fill 0xFFFFFF"}, {92, -8, 108, 8}},
      {2, 200, {"Line 95,195 105,205" + wide, "Line 105,195 95,205" + wide}, {92, 192, 108, 208}},
      {2,
       -1,
       {"Line 95,5 100,0" + wide, "Line 100,0 105,5" + wide, "Line 100,0 100,10" + wide},
       {90, -5, 110, 15}},
      {0,
       INT_MAX,
       {"Line 94,194 100,200" + thin, "Line 100,200 106,194" + thin, "Line 100,200 100,188" + thin},
       {88, 206, 112, 182}},
  };
  for (const auto& each : cases) {
    Cursor::SetStyle(each.style);
    cursor.rect = {};
    EXPECT_EQ(Draw(100, each.y, &frame), each.calls) << each.style << " at " << each.y;
    EXPECT_EQ(cursor.rect, each.rect) << each.style << " at " << each.y;
  }
  Draw(INT_MIN, INT_MIN, &frame);
}

TEST_F(MarkerTest, TakesTheLastOneAwayButNotOnPaper) {
  Draw(100, 60, &frame);
  EXPECT_EQ(Draw(300, 201, &frame)[0], "Copy 90,50 110,70 from 90,50");
  EXPECT_EQ(Draw(300, 100, &frame)[0], "Copy 288,183 312,207 from 288,183");
  Offset::LogPixelSize = 7;
  const CRect onWindow = cursor.rect;
  Cursor::SetStyleRect();
  EXPECT_EQ(Draw(500, 50, nullptr),
            Calls{"Rectangle 498,48 502,52 style 0 width 21 color 0x0000FF fill 0xFFFFFF"});
  EXPECT_EQ(cursor.rect, onWindow);
}

/// A hundred steps over the width of the plot.
class CursorsTest : public GraphTest {
 protected:
  CursorsTest() { Show(101); }
  ~CursorsTest() override { ReleaseCapture(); }

  void Show(unsigned n) {
    TheGraph().active = true;
    GraphTest::Show(n);
    EXPECT_TRUE(AwaitIdle());
    Window().surface->take();
  }
  /// Client point over a sample; any row does.
  CPoint Over(int sample) {
    const int pixel = static_cast<int>(std::ceil(Plot().cx * sample * 0.01));
    return {Offset::Left(axis.ver.maxLabelLength) + pixel, 100};
  }
  void DragTo(CPoint point) { TheGraph().DragCursor(point); }
  void ExpectCursors(int left, int right) {
    EXPECT_EQ(series.iLCursor, left);
    EXPECT_EQ(series.iRCursor, right);
  }
  int Markers() { return Window().surface->count("Line"); }
};

TEST_F(CursorsTest, AMoveCostsNeitherARenderNorAPaintOfTheFrame) {
  std::size_t expected = 0;
  for (const unsigned n : {1000u, 1000000u}) {
    Show(n);
    const int rendersBefore = series.begun;
    EXPECT_FALSE(TheGraph().MoveLCursor(5));
    EXPECT_FALSE(TheGraph().MoveRCursor(-5));
    TheGraph().DrawCursors();
    Pump();
    ExpectCursors(5, static_cast<int>(n) - 6);
    EXPECT_EQ(series.begun, rendersBefore);
    EXPECT_EQ(Window().surface->count("memory"), 0) << "the frame was painted";
    EXPECT_EQ(Window().surface->count("Copy"), 2);
    const std::size_t calls = Window().surface->take().size();
    EXPECT_EQ(calls, expected ? expected : calls);
    expected = calls;
  }
  EXPECT_GE(expected, 6u);
}

TEST_F(CursorsTest, MarkersStandOnTheirSamples) {
  view->ChangeAxes([](GraphAxis& a) { a.Preset(0, 0.5, 0, 0.1); });
  Pump();
  EXPECT_EQ(Markers(), 5) << "a cross, and an arrow for the sample above the plot";
  series.SetLCursor(50);
  Window().surface->take();
  TheGraph().DrawCursors();
  const int x = Over(0).x + series.xLCursorPosGet(&axis);
  const int y = TopOffset(&series) + series.yLCursorPosGet(&axis);
  EXPECT_EQ(Window().surface->count(FormatText("Line %d,%d %d,%d ", x - 5, y - 5, x + 5, y + 5)),
            1);
}

TEST_F(CursorsTest, NothingIsDrawnWhereNothingIsToBeSeen) {
  for (const bool active : {false, true}) {
    TheGraph().active = active;
    TheGraph().DrawAll();
    EXPECT_EQ(Markers(), active ? 4 : 0);
  }
  Window().surface->take();
  StartGatedRender();
  TheGraph().DrawCursors();
  EXPECT_EQ(Markers(), 0) << "a render is due";
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());

  series.iLCursor = -1;
  Window().surface->take();
  TheGraph().DrawCursors();
  EXPECT_EQ(Markers(), 0) << "no cursor";
  EXPECT_FALSE(TheGraph().InLeftCursorArea({0, 0}) || TheGraph().InRightCursorArea({0, 0}));
}

TEST_F(CursorsTest, Reach) {
  const int height = Plot().cy;
  const struct {
    CPoint point;
    int x, y;
    bool hit;
  } cases[] = {
      {{104, 50}, 100, 50, true},
      {{105, 50}, 100, 50, false},
      {{100, 45}, 100, 50, false},
      {{100, 9}, 100, -1, true},
      {{100, 10}, 100, -1, false},
      {{100, height - 10}, 100, height, true},
      {{100, height - 1}, 100, height, false},
      {{INT_MAX, 50}, INT_MIN, 50, false},
  };
  for (const auto& each : cases)
    EXPECT_EQ(TheGraph().inCursorArea(each.point, each.x, each.y), each.hit)
        << each.point.x << "," << each.point.y << " of " << each.x << "," << each.y;
  const CPoint right{series.xRCursorPosGet(&axis), series.yRCursorPosGet(&axis)};
  EXPECT_TRUE(TheGraph().InRightCursorArea(right));
  EXPECT_FALSE(TheGraph().InLeftCursorArea(right));
}

TEST_F(CursorsTest, ADragCrossesAndClips) {
  TheGraph().BeginDragLeftCursor();
  EXPECT_EQ(system.pointer, LoadCursor(IDC_SIZEALL));
  series.SetRCursor(60);
  DragTo(Over(30));
  ExpectCursors(30, 60);
  EXPECT_EQ(Markers(), 4) << "a step of a drag draws both markers";
  DragTo(Over(80));
  ExpectCursors(60, 80);
  DragTo(Over(60));
  ExpectCursors(60, 61);
  DragTo({-5000, INT_MAX});
  ExpectCursors(0, 61);
  TheGraph().EndDragCursor();
  EXPECT_EQ(GetCapture(), nullptr);
  DragTo(Over(50));
  ExpectCursors(0, 61);
}

TEST_F(CursorsTest, ADragStaysInAFixedRange) {
  view->ChangeAxes([](GraphAxis& a) {
    a.hor.autoRange = false;
    a.hor.fixedMin = 0.0205;
    a.hor.fixedMax = 0.0795;
  });
  TheGraph().BeginDragLeftCursor();
  DragTo({-100, 0});
  EXPECT_EQ(series.iLCursor, 21);
  TheGraph().BeginDragRightCursor();
  DragTo({5000, 0});
  EXPECT_EQ(series.iRCursor, 79);
  // One that crosses the other leaves it its own sample, which must be on show too.
  DragTo({-5000, 0});
  ExpectCursors(21, 22);
  axis.hor.fixedMin = NAN;
  axis.hor.fixedMax = -1;
  DragTo({5000, 0});
  ExpectCursors(0, 22);
}

TEST_F(CursorsTest, ADragOutlivesItsData) {
  TheGraph().BeginDragLeftCursor();
  Begin(series);
  DragTo(Over(10));
  series.InitBlockTransfer();
  DragTo(Over(20));
  ExpectCursors(-1, -1);
  series.TermBlockTransfer();
}

}  // namespace
}  // namespace sparlow
