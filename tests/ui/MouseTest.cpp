// Zoom boxes, drags of the cursors and clicks, and what ends them early.

#include "sparlow/ui/PointingHand.h"
#include "tests/ui/ViewInput.h"

namespace sparlow {
namespace {

using MouseTest = ViewInputTest;

TEST_F(MouseTest, ABoxZoomsWhicheverWayItIsDrawn) {
  const auto zoom = [this](CPoint from, CPoint to) {
    Drag(from, to);
    EXPECT_FALSE(Zoomed());
    EXPECT_TRUE(Window().captured);
    Release(to);
    EXPECT_FALSE(Window().captured);
    const Range shown = Interval();
    TheGraph().ZoomOutFull();
    return shown;
  };
  const Range shown = zoom(At(100, 20), At(300, 200)), whole{0, size};
  EXPECT_NE(shown, whole);
  EXPECT_EQ(zoom(At(300, 200), At(100, 20)), shown);
  EXPECT_EQ(zoom(At(100, 200), At(300, 20)), shown);
  const auto [from, to] = zoom(At(-40, -20), At(Plot().cx / 2, Plot().cy + 90));
  EXPECT_EQ(from, 0u);
  EXPECT_NEAR(to, size / 2, size / 50);
  // A box without width or height is a click, and a paint takes it away.
  for (const CPoint end : {At(100, 50), At(100, 200), At(300, 50)}) {
    Pump();
    Drag(At(100, 50), end);
    Release(end);
    EXPECT_FALSE(Zoomed());
    EXPECT_TRUE(WindowSite::Find(window)->IsInvalid());
  }
}

TEST_F(MouseTest, ABoxIsDrawnAgainOnANewFrameAndNotTakenAway) {
  DrawBox();
  Window().surface->take();
  RedrawWindow(window);
  Pump();
  const CPoint corner = At(100, 50);
  const std::string edge =
      FormatText("Line %d,%d %d,%d ", corner.x, corner.y, corner.x + 200, corner.y);
  EXPECT_EQ(Window().surface->count(edge), 1);
  // Mixed into the frame: the same line takes it away again.
  Mouse(WM_MOUSEMOVE, At(310, 210));
  int mixed = 0;
  for (const std::string& call : Window().surface->calls())
    mixed += call.starts_with(edge) && call.ends_with(FormatText(" mix %d", R2_NOTXORPEN));
  EXPECT_EQ(mixed, 2);
}

TEST_F(MouseTest, EitherCursorIsDraggedUntilItIsReleasedOrTheMouseIsLost) {
  for (const bool right : {false, true}) {
    PutCursors();
    CPoint from =
        right ? At(series.xRCursorPosGet(&axis), series.yRCursorPosGet(&axis)) : LeftMarker();
    CopyableAtomic<int>& cursor = right ? series.iRCursor : series.iLCursor;
    const int before = cursor;
    Drag(from, {from.x + 30, from.y});
    EXPECT_GT(cursor, before);
    EXPECT_EQ(right ? series.iLCursor : series.iRCursor, right ? 2000 : 5000);
    const int released = cursor;
    if (right)
      Release({from.x + 30, from.y});
    else
      CaptureLost(window);
    EXPECT_FALSE(TheGraph().IsCursorDrag());
    EXPECT_FALSE(Window().captured);
    Mouse(WM_MOUSEMOVE, {from.x + 60, from.y});
    EXPECT_EQ(cursor, released);
  }
}

TEST_F(MouseTest, AnUpdateAppliesTheBoxFirst) {
  DrawBox();
  system.pointerAt = {Window().at.x + 5, Window().at.y + 5};
  SendMessage(window, WM_UPDATE_GRAPH, 0, 0);
  EXPECT_TRUE(Zoomed());
  EXPECT_EQ(GetCapture(), nullptr);
  const Range shown = Interval();
  Release(At(600, 10));
  EXPECT_EQ(Interval(), shown);
}

TEST_F(MouseTest, ThePointerTellsWhatAPressWouldDo) {
  PutCursors();
  EXPECT_FALSE(TheGraph().GetViewDataByPoint(nullptr, nullptr, nullptr, {5, 5}));
  Mouse(WM_MOUSEMOVE, LeftMarker());
  EXPECT_EQ(system.pointer, LoadCursor(IDC_SIZEALL));
  system.pointer = nullptr;
  Mouse(WM_MOUSEMOVE, {LeftMarker().x + 20, LeftMarker().y});
  Pump();
  view->SetActive(false);
  EXPECT_TRUE(WindowSite::Find(window)->IsInvalid());
  Mouse(WM_MOUSEMOVE, LeftMarker());
  EXPECT_EQ(system.pointer, nullptr);
  Mouse(WM_LBUTTONDOWN, LeftMarker());
  EXPECT_TRUE(TheGraph().IsCursorDrag()) << "an inactive graph gives no hint, but serves";
  // The tip of the pointing hand, at its hot spot: two white pixels between two black ones.
  const PointerShape hand = PointingHand();
  const auto tip = static_cast<std::size_t>(hand.hotSpot.y);
  EXPECT_EQ(hand.white[tip], 0x000C0000u);
  EXPECT_EQ(hand.black[tip], 0x00120000u);
}

TEST_F(MouseTest, ATransferRefusesInputAndEndsAGestureWithoutEffect) {
  PutCursors();
  Press(VK_RIGHT);
  Press(VK_RIGHT);
  for (const bool box : {true, false}) {
    Drag(box ? At(100, 50) : LeftMarker(), At(300, 200));
    EXPECT_EQ(TheGraph().IsCursorDrag(), !box);
    Begin(series);
    AddBlock(series, size);
    Pump();
    Mouse(WM_MOUSEMOVE, At(320, 220));
    Release(At(320, 220));
    if (box) {
      EXPECT_TRUE(WindowSite::Find(window)->IsInvalid()) << "it goes";
    }
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(Zoomed());
    EXPECT_FALSE(TheGraph().IsCursorDrag());
    series.TermDataTransfer();
    view->UpdateGraph();
    PutCursors();
  }
  Begin(series);
  AddBlock(series, size);
  view->UpdateGraph();
  PutCursors();
  for (const bool restricted : {true, false}) {
    Graph::RestrictGraphOperationInRealTime = restricted;
    Press(VK_RIGHT);
    EXPECT_EQ(series.iLCursor, restricted ? 2000 : 2001) << "by one: the key-up counted";
    LetGo(VK_RIGHT);
    DrawBox();
    Release(At(300, 200));
    EXPECT_EQ(Zoomed(), !restricted);
  }
}

TEST_F(MouseTest, LosingTheMouseFinishesTheGestureAtThePointer) {
  auto* const other = new TestView;
  ASSERT_TRUE(other->Create());
  DrawBox();
  SetCapture(other->GetSafeHwnd());
  EXPECT_TRUE(Zoomed());
  EXPECT_EQ(GetCapture(), other->GetSafeHwnd()) << "it isn't the view's to release";
  other->DestroyWindow();
}

}  // namespace
}  // namespace sparlow
