// The markers of the two cursors: their pixels, what moves them, and what a move costs.

#include <climits>

#include "sparlow/platform/window/Input.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

using test::RecordingDevice;

TEST(MarkerTest, ShapesAndArrows) {
  RecordingDevice device;
  DeviceContext dc{&device}, frame{nullptr};
  Bitmap bitmap;
  bitmap.surface = device.MakeCompatible({800, 600});
  CDC(&frame).SelectObject(&bitmap);
  Cursor cursor;
  cursor.SetColor(0x0000FF);
  const struct {
    int style, y;
    const char* strokes;
    int width;
    CRect rect;
  } cases[] = {
      {0, 60, "Rectangle 98,58 102,62", 3, {96, 56, 104, 64}},
      {1, 0, "Ellipse 97,-3 103,3", 5, {92, -8, 108, 8}},
      {2, 200, "Line 95,195 105,205|Line 105,195 95,205", 5, {92, 192, 108, 208}},
      {2, -1, "Line 95,5 100,0|Line 100,0 105,5|Line 100,0 100,10", 5, {90, -5, 110, 15}},
      {0,
       INT_MAX,
       "Line 94,194 100,200|Line 100,200 106,194|Line 100,200 100,188",
       3,
       {88, 206, 112, 182}},
  };
  for (const auto& each : cases) {
    Cursor::SetStyle(each.style);
    cursor.rect = {};
    cursor.Draw(&dc, &frame, 100, each.y, 200);
    std::string strokes;
    for (const std::string& call : device.take()) {
      const auto end = call.find(FormatText(" style 0 width %d color 0x0000FF", each.width));
      strokes += (strokes.empty() ? "" : "|") + call.substr(0, end);
    }
    EXPECT_EQ(strokes, each.strokes);
    EXPECT_EQ(cursor.rect, each.rect) << each.strokes;
    cursor.Draw(&dc, nullptr, 300, 50, 200);
    device.take();
    EXPECT_EQ(cursor.rect, each.rect) << "what is drawn on paper isn't to be taken away";
  }
  Cursor::SetStyle(2);
}

/// A hundred steps over the width of the plot.
class CursorsTest : public GraphTest {
 protected:
  CursorsTest() {
    TheGraph().active = true;
    Show(101);
    Pump();
    Window().surface->take();
  }
  ~CursorsTest() override { ReleaseCapture(); }
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
  const int rendersBefore = series.begun;
  EXPECT_FALSE(TheGraph().MoveLCursor(5));
  EXPECT_FALSE(TheGraph().MoveRCursor(-5));
  TheGraph().DrawCursors();
  Pump();
  ExpectCursors(5, 95);
  EXPECT_EQ(series.begun, rendersBefore);
  EXPECT_EQ(Window().surface->count("memory"), 0) << "the frame was painted";
  EXPECT_EQ(Window().surface->count("Copy"), 2) << "what stood below the two markers";
  EXPECT_EQ(Markers(), 4);
}

TEST_F(CursorsTest, MarkersAreDrawnWhereThereIsSomethingToBeSeen) {
  view->ChangeAxes([](GraphAxis& a) { a.Preset(0, 0.5, 0, 0.1); });
  Pump();
  EXPECT_EQ(Markers(), 5) << "a cross, and an arrow for the sample above the plot";
  for (const bool active : {true, false}) {
    Window().surface->take();
    TheGraph().active = active;
    TheGraph().DrawAll();
    EXPECT_EQ(Markers(), active ? 5 : 0);
  }
  TheGraph().active = true;
  series.SetLCursor(50);
  TheGraph().DrawCursors();
  const int x = Over(0).x + series.xLCursorPosGet(&axis);
  const int y = TopOffset(&series) + series.yLCursorPosGet(&axis);
  const std::string stroke = FormatText("Line %d,%d %d,%d ", x - 5, y - 5, x + 5, y + 5);
  EXPECT_EQ(Window().surface->count(stroke), 1);
  Window().surface->take();
  StartGatedRender();
  TheGraph().DrawCursors();
  EXPECT_EQ(Markers(), 0) << "a render is due";
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());
}

TEST_F(CursorsTest, Reach) {
  const auto reaches = [this](CPoint point, int x, int y) {
    return TheGraph().inCursorArea(point, x, y);
  };
  const int height = Plot().cy;
  EXPECT_TRUE(reaches({104, 50}, 100, 50));
  EXPECT_FALSE(reaches({105, 50}, 100, 50));
  EXPECT_FALSE(reaches({100, 45}, 100, 50));
  EXPECT_TRUE(reaches({100, 9}, 100, -1));
  EXPECT_FALSE(reaches({100, 10}, 100, -1));
  EXPECT_TRUE(reaches({100, height - 10}, 100, height));
  EXPECT_FALSE(reaches({INT_MAX, 50}, INT_MIN, 50));
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
  system.pointer = nullptr;
  TheGraph().BeginDragRightCursor();
  EXPECT_EQ(system.pointer, LoadCursor(IDC_SIZEALL));
  DragTo({5000, 0});
  EXPECT_EQ(series.iRCursor, 79);
  // One that crosses the other leaves it its own sample, which must be on show too.
  DragTo({-5000, 0});
  ExpectCursors(21, 22);
}

}  // namespace
}  // namespace sparlow
