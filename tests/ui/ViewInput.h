#pragma once

#include "sparlow/platform/window/Input.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {

/// A window that views tell things.
struct Receiver : CWnd {
  Receiver() {
    CreateMessageOnly();
    told.clear();
  }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM) override {
    told.emplace_back(message, wParam);
    if (onMessage)
      onMessage();
    return 0;
  }
  std::vector<std::pair<UINT, WPARAM>> told;
  std::function<void()> onMessage;
};

/// A view of 8000 samples, and what its user does. At() gives a point of the plot.
class ViewInputTest : public GraphTest {
 protected:
  using Range = std::pair<unsigned, unsigned>;
  static constexpr unsigned size = 8000;

  ViewInputTest() { Show(size); }
  ~ViewInputTest() override {
    CloseView();
    SetMainWindow(nullptr);
  }

  void Show(unsigned samples) {
    Fill(series, samples);
    view->UpdateGraph();
    view->SetActive(true);
    EXPECT_TRUE(AwaitIdle());
    window = view->GetSafeHwnd();
  }
  CPoint At(int x, int y) const {
    return {x + Offset::Left(axis.ver.maxLabelLength), y + TopOffset(&series)};
  }
  void Mouse(UINT message, CPoint at) { SendMessage(window, message, 0, PackPoint(at)); }
  void Drag(CPoint from, CPoint to) {
    Mouse(WM_LBUTTONDOWN, from);
    Mouse(WM_MOUSEMOVE, {(from.x + to.x) / 2, (from.y + to.y) / 2});
    Mouse(WM_MOUSEMOVE, to);
  }
  void DrawBox() { Drag(At(100, 50), At(300, 200)); }
  void Release(CPoint at) { Mouse(WM_LBUTTONUP, at); }
  void Press(WPARAM key) { SendMessage(window, WM_KEYDOWN, key, 1); }
  void LetGo(WPARAM key) { SendMessage(window, WM_KEYUP, key, 1); }
  void ScrollBar(UINT message, int code) {
    SendMessage(window, message, static_cast<WPARAM>(code), 0);
  }
  Range Interval() const { return {series.GetFrom(), series.GetTo()}; }
  bool Zoomed() const { return Interval() != Range(0, series.GetSize()); }
  void PutCursors(unsigned left = 2000, unsigned right = 5000) {
    series.SetRCursor(right);
    series.SetLCursor(left);
  }
  CPoint LeftMarker() { return At(series.xLCursorPosGet(&axis), series.yLCursorPosGet(&axis)); }

  HWND window = nullptr;
  Receiver receiver;
};

}  // namespace sparlow
