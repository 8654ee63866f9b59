// Keys, scroll bars and focus.

#include "tests/ui/ViewInput.h"

namespace sparlow {
namespace {

TEST_F(ViewInputTest, AHeldArrowKeyAcceleratesAndShiftMovesTheRightCursor) {
  PutCursors();
  Pump();
  Window().surface->take();
  for (int i = 0; i < 3; ++i)
    Press(VK_RIGHT);
  EXPECT_EQ(series.iLCursor, 2000 + 1 + 2 + 3);
  EXPECT_EQ(Window().surface->count("Line"), 3 * 4) << "both markers each time, at once";
  system.shiftDown = true;
  Press(VK_LEFT);
  EXPECT_EQ(series.iRCursor, 5000 - 4);
  LetGo(VK_SHIFT);
  Press('A');
  Press(VK_LEFT);
  EXPECT_EQ(series.iRCursor, 5000 - 4 - 5) << "other keys don't count";
  LetGo(VK_RIGHT);
  Press(VK_LEFT);
  EXPECT_EQ(series.iRCursor, 5000 - 4 - 5 - 1);
  // A key that is let go where the view isn't told.
  const std::function<void()> elsewhere[]{
      [this] { SendMessage(window, WM_KILLFOCUS, 0, 0); },
      [this] {
        Mouse(WM_RBUTTONDOWN, {9, 9});
      },
      [this] { series.Reset(), LetGo(VK_LEFT), Show(size), PutCursors(); },
  };
  for (const auto& letGo : elsewhere) {
    Press(VK_LEFT);
    letGo();
    const int before = series.iRCursor;
    Press(VK_LEFT);
    EXPECT_EQ(series.iRCursor, before - 1);
  }
}

TEST_F(ViewInputTest, TheThumbScrollsWhenItIsReleasedAlsoBeyond16Bits) {
  Show(200000);
  series.SetIntervalBySample(true, &axis.hor, 4);
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  SCROLLINFO& bar = Window().bars[SB_HORZ];
  const Range before = Interval();
  EXPECT_TRUE(view->GetXAutoRange());
  PutCursors(before.first + 5, before.first + 9);
  bar.nTrackPos = bar.nPos;
  ScrollBar(WM_HSCROLL, SB_THUMBTRACK);
  ScrollBar(WM_HSCROLL, SB_THUMBPOSITION);
  EXPECT_EQ(series.iRCursor, static_cast<int>(before.first) + 9) << "taken and let go";
  ASSERT_TRUE(AwaitIdle());
  bar.nTrackPos = 131072 + 5;
  ScrollBar(WM_HSCROLL, SB_THUMBTRACK);
  EXPECT_EQ(Interval(), before);
  bar.nTrackPos = 3;
  ScrollBar(WM_HSCROLL, SB_THUMBPOSITION);
  EXPECT_EQ(series.GetFrom(), 131077u);
  ASSERT_TRUE(AwaitIdle());
}

TEST_F(ViewInputTest, StepsOfTheBarsStopAtTheirEnds) {
  series.SetIntervalBySample(true, &axis.hor, 4);
  view->UpdateGraph();
  SCROLLINFO& bar = Window().bars[SB_HORZ];
  const int middle = size / 2, page = static_cast<int>(bar.nPage);
  for (const auto& [code, moves] : {std::pair{SB_LINELEFT, -1},
                                    {SB_LINERIGHT, 1},
                                    {SB_PAGELEFT, -page},
                                    {SB_PAGERIGHT, page},
                                    {8, 0}}) {
    series.ScrollTo(size / 2);
    view->UpdateGraph();
    ScrollBar(WM_HSCROLL, code);
    EXPECT_EQ(static_cast<int>(series.GetFrom()), middle + moves) << code;
  }
  bar.nPos = bar.nMin;
  ScrollBar(WM_HSCROLL, SB_LINELEFT);
  EXPECT_EQ(static_cast<int>(series.GetFrom()), middle);

  axis.yAutoZoom = false;
  view->UpdateGraph();
  const double max = axis.ver.max;
  const auto scroll = [&](int position, int code) {
    Window().bars[SB_VERT] = {0, 40, 20, position, position};
    ScrollBar(WM_VSCROLL, code);
    return axis.ver.max;
  };
  EXPECT_GT(scroll(20, SB_PAGEUP), max);
  EXPECT_NEAR(scroll(20, SB_LINEDOWN), max, 1e-9);
  EXPECT_NEAR(scroll(21, SB_PAGEDOWN), max, 1e-9) << "at its end";
  EXPECT_NEAR(scroll(0, SB_LINEUP), max, 1e-9) << "at its beginning";
  EXPECT_NEAR(scroll(10, SB_THUMBPOSITION), series.yGlobalMaxGet() - axis.ver.range / 2, 1e-9);
}

TEST_F(ViewInputTest, TheMainWindowHearsOfDoubleClicksAndFocus) {
  SetMainWindow(receiver.GetSafeHwnd());
  const auto self = reinterpret_cast<WPARAM>(static_cast<CSingleGraphView*>(view));
  Mouse(WM_LBUTTONDBLCLK, At(100, 50));
  EXPECT_TRUE(receiver.told.empty()) << "posted";
  Pump();
  for (const bool active : {true, false}) {
    view->SetActive(active);
    SendMessage(window, WM_SETFOCUS, 0, 0);
  }
  Graph::RestrictGraphOperationInRealTime = false;
  Begin(series);
  Mouse(WM_LBUTTONDBLCLK, At(100, 50));
  Pump();
  const std::vector<std::pair<UINT, WPARAM>> expected{{0x465, self}, {0x466, self}};
  EXPECT_EQ(receiver.told, expected);
}

TEST_F(ViewInputTest, AViewWithoutDataIgnoresItsUser) {
  const auto everything = [&](CSingleGraphView& idle) {
    window = idle.GetSafeHwnd();
    for (const UINT message :
         {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_RBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK,
          WM_CAPTURECHANGED, WM_HSCROLL, WM_VSCROLL, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS})
      Mouse(message, {-30000, 30000});
    for (WPARAM command = 0; command < 6; ++command)
      SendMessage(window, WM_SPARLOW_COMMAND, command, 0);
    Press(VK_LEFT);
    LetGo(VK_LEFT);
    idle.UpdateGraph();
    EXPECT_EQ(GetCapture(), nullptr);
  };
  auto* const bare = new TestView;
  ASSERT_TRUE(bare->Create());
  everything(*bare);
  bare->CreateGraph(&axis);
  everything(*bare);
  bare->DestroyWindow();
  view->Clear();
  everything(*view);
  Show(1);
  everything(*view);
}

}  // namespace
}  // namespace sparlow
