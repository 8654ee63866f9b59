#include <optional>

#include "sparlow/platform/Input.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

/// The application's main window: notes what a view tells it.
class MainWindow : public CWnd {
 public:
  MainWindow() {
    CreateMessageOnly();
    told.clear();
    SetMainWindow(GetSafeHwnd());
  }
  ~MainWindow() override { SetMainWindow(nullptr); }

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM) override {
    told.emplace_back(message, wParam);
    if (onMessage)
      onMessage();
    return 0;
  }

  std::vector<std::pair<UINT, WPARAM>> told;
  std::function<void()> onMessage;
};

/// What a click on an overlaid graph may hit.
struct Hit {
  int index;
  bool isMask;
};

class OverlaidView : public CSingleGraphView {
 public:
  std::optional<Hit> hit;
  std::vector<std::string> done;

 protected:
  std::unique_ptr<Graph> NewGraph(GraphAxis* axes) override {
    struct Overlaid : Graph {
      Overlaid(GraphAxis* shared, OverlaidView& owner) : Graph(shared), view(owner) {}
      bool IsMultiple() const override { return true; }
      bool GetViewDataByPoint(ViewData**, int* index, bool* isMask, CPoint) override {
        if (view.hit && index && isMask) {
          *index = view.hit->index;
          *isMask = view.hit->isMask;
        }
        return view.hit.has_value();
      }
      void SetActiveMask(int index) override {
        view.done.push_back("mask " + std::to_string(index));
      }
      OverlaidView& view;
    };
    return std::make_unique<Overlaid>(axes, *this);
  }
  void OnGraphActivated(int index) override { done.push_back("graph " + std::to_string(index)); }
};

class ViewInputTest : public GraphTest {
 protected:
  static constexpr unsigned size = 8000;

  ViewInputTest() { Show(size); }
  ~ViewInputTest() override { Graph::RestrictGraphOperationInRealTime = true; }

  void Show(unsigned samples) {
    Fill(series, samples);
    view->UpdateGraph();
    view->SetActive(true);
    EXPECT_TRUE(AwaitIdle());
    window = view->GetSafeHwnd();
  }
  /// A point of the plot as one of the client area.
  CPoint At(int x, int y) const {
    return {x + Offset::Left(axis.ver.maxLabelLength), y + TopOffset(&series)};
  }
  void Mouse(UINT message, CPoint at) { SendMessage(window, message, 0, PackPoint(at)); }
  void Drag(CPoint from, CPoint to) {
    Mouse(WM_LBUTTONDOWN, from);
    Mouse(WM_MOUSEMOVE, {(from.x + to.x) / 2, (from.y + to.y) / 2});
    Mouse(WM_MOUSEMOVE, to);
  }
  void Press(WPARAM key) { SendMessage(window, WM_KEYDOWN, key, 1); }
  void ScrollBar(UINT message, int code) {
    SendMessage(window, message, static_cast<WPARAM>(code), 0);
  }
  std::pair<unsigned, unsigned> Interval() const { return {series.GetFrom(), series.GetTo()}; }
  bool Zoomed() const { return Interval() != std::pair(0u, series.GetSize()); }
  void PutCursors(unsigned left, unsigned right) {
    series.SetRCursor(right);
    series.SetLCursor(left);
  }
  CPoint LeftMarker() { return At(series.xLCursorPosGet(&axis), series.yLCursorPosGet(&axis)); }

  HWND window = nullptr;
  const std::pair<unsigned, unsigned> whole{0, size};
};

TEST_F(ViewInputTest, ABoxZoomsWhicheverWayItIsDrawn) {
  const CSize plot = Plot();
  const CPoint corners[] = {At(100, 20), At(300, 200)};
  const CPoint beyond[] = {At(-40, -20), At(plot.cx / 2, plot.cy + 90)};
  std::vector<std::pair<unsigned, unsigned>> shown;
  for (const auto& [from, to] :
       {std::pair(corners[0], corners[1]),
        {corners[1], corners[0]},
        {CPoint{corners[0].x, corners[1].y}, CPoint{corners[1].x, corners[0].y}},
        {beyond[0], beyond[1]}}) {
    Drag(from, to);
    EXPECT_TRUE(Window().captured);
    EXPECT_FALSE(Zoomed());
    Mouse(WM_LBUTTONUP, to);
    EXPECT_FALSE(Window().captured);
    shown.push_back(Interval());
    TheGraph().ZoomOutFull();
  }
  EXPECT_NE(shown[0], whole);
  EXPECT_EQ(shown[1], shown[0]);
  EXPECT_EQ(shown[2], shown[0]);
  EXPECT_EQ(shown[3].first, 0u);
  EXPECT_NEAR(shown[3].second, size / 2, size / 50);
}

TEST_F(ViewInputTest, ABoxWithoutWidthOrHeightIsAClick) {
  for (const CPoint to : {At(100, 50), At(100, 200), At(300, 50)}) {
    Pump();
    Drag(At(100, 50), to);
    Mouse(WM_LBUTTONUP, to);
    EXPECT_FALSE(Zoomed());
    EXPECT_TRUE(WindowSite::Find(window)->IsInvalid()) << "a paint takes the box away";
  }
}

TEST_F(ViewInputTest, ABoxSurvivesAPaint) {
  Drag(At(100, 50), At(300, 200));
  Window().surface->take();
  RedrawWindow(window);
  Pump();
  const CPoint corner = At(100, 50);
  const std::string edge =
      "Line " + std::to_string(corner.x) + "," + std::to_string(corner.y) + " ";
  const std::string far = std::to_string(corner.x + 200) + "," + std::to_string(corner.y) + " ";
  EXPECT_EQ(Window().surface->count(edge + far), 1) << "drawn on the new frame, and not taken away";
}

TEST_F(ViewInputTest, LosingTheMouseFinishesTheGestureAtThePointer) {
  auto* const other = new TestView;
  ASSERT_TRUE(other->Create());
  Drag(At(100, 50), At(300, 200));
  SetCapture(other->GetSafeHwnd());
  EXPECT_TRUE(Zoomed());
  EXPECT_EQ(GetCapture(), other->GetSafeHwnd());
  EXPECT_FALSE(Window().captured);
  other->DestroyWindow();
  EXPECT_EQ(GetCapture(), nullptr);

  TheGraph().ZoomOutFull();
  PutCursors(2000, 5000);
  const CPoint grip = LeftMarker();
  Drag(grip, {grip.x + 40, grip.y});
  const int dragged = series.iLCursor;
  EXPECT_GT(dragged, 2000);
  int told = 0;
  view->afterMessage = [&](UINT message) { told += message == WM_CAPTURECHANGED; };
  CaptureLost(window);
  CaptureLost(window);
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(TheGraph().IsCursorDrag());
  EXPECT_EQ(series.iLCursor, dragged);
}

TEST_F(ViewInputTest, AnUpdateAppliesTheBoxFirst) {
  Drag(At(100, 50), At(300, 200));
  system.pointerAt = {Window().at.x + 5, Window().at.y + 5};
  SendMessage(window, WM_UPDATE_GRAPH, 0, 0);
  EXPECT_TRUE(Zoomed());
  EXPECT_EQ(GetCapture(), nullptr);
  const auto shown = Interval();
  Mouse(WM_LBUTTONUP, At(600, 10));
  EXPECT_EQ(Interval(), shown);
}

TEST_F(ViewInputTest, TheShapeOfThePointerTellsWhatAPressWouldDo) {
  PutCursors(2000, 5000);
  Mouse(WM_MOUSEMOVE, LeftMarker());
  EXPECT_EQ(system.pointer, LoadCursor(IDC_SIZEALL));
  system.pointer = nullptr;
  Mouse(WM_MOUSEMOVE, {LeftMarker().x + 20, LeftMarker().y});
  view->SetActive(false);
  Mouse(WM_MOUSEMOVE, LeftMarker());
  EXPECT_EQ(system.pointer, nullptr);
  Mouse(WM_LBUTTONDOWN, LeftMarker());
  EXPECT_TRUE(TheGraph().IsCursorDrag()) << "an inactive graph gives no hint, but serves";
}

TEST_F(ViewInputTest, AClickOnACurveOfAnOverlaidGraphPicksIt) {
  auto* const overlaid = new OverlaidView;
  ASSERT_TRUE(overlaid->Create());
  TestWindows::Of(*overlaid).Resize({640, 480});
  overlaid->CreateGraph(&axis);
  overlaid->AddViewData(&series);
  overlaid->UpdateGraph();
  overlaid->SetActive(true);
  window = overlaid->GetSafeHwnd();
  const auto click = [&](std::optional<Hit> hit) {
    overlaid->hit = hit;
    system.pointer = nullptr;
    Mouse(WM_MOUSEMOVE, At(200, 100));
    EXPECT_EQ(system.pointer != nullptr, hit && !series.inTransfer);
    Mouse(WM_LBUTTONDOWN, At(200, 100));
    Mouse(WM_LBUTTONUP, At(200, 100));
  };
  click(std::nullopt);
  click(Hit{2, false});
  EXPECT_EQ(system.pointer, LoadCursor(102));
  click(Hit{1, true});
  Graph::RestrictGraphOperationInRealTime = false;
  Begin(series);
  AddBlock(series, 100);
  click(Hit{3, false});
  EXPECT_EQ(overlaid->done, (std::vector<std::string>{"graph 2", "mask 1"}));
  overlaid->DestroyWindow();
}

TEST_F(ViewInputTest, AHeldArrowKeyAcceleratesAndShiftMovesTheRightCursor) {
  PutCursors(2000, 5000);
  for (int i = 0; i < 3; ++i)
    Press(VK_RIGHT);
  EXPECT_EQ(series.iLCursor, 2000 + 1 + 2 + 3);
  system.shiftDown = true;
  Press(VK_LEFT);
  EXPECT_EQ(series.iRCursor, 5000 - 4);
  SendMessage(window, WM_KEYUP, VK_SHIFT, 1);
  Press('A');
  Press(VK_LEFT);
  EXPECT_EQ(series.iRCursor, 5000 - 4 - 5);
  SendMessage(window, WM_KEYUP, VK_RIGHT, 1);
  Press(VK_LEFT);
  EXPECT_EQ(series.iRCursor, 5000 - 4 - 5 - 1);
}

TEST_F(ViewInputTest, ATransferRefusesInputAndEndsAGestureWithoutEffect) {
  PutCursors(2000, 5000);
  Press(VK_RIGHT);
  Press(VK_RIGHT);
  const CPoint grip = LeftMarker();
  for (const CPoint from : {At(100, 50), grip}) {
    Drag(from, At(300, 200));
    Begin(series);
    AddBlock(series, size);
    Mouse(WM_MOUSEMOVE, At(320, 220));
    Mouse(WM_LBUTTONUP, At(320, 220));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(Zoomed() || TheGraph().IsCursorDrag());
    series.TermDataTransfer();
    view->UpdateGraph();
    PutCursors(2000, 5000);
  }
  Begin(series);
  AddBlock(series, size);
  view->UpdateGraph();
  PutCursors(2000, 5000);
  Drag(At(100, 50), At(300, 200));
  Mouse(WM_LBUTTONUP, At(300, 200));
  Press(VK_RIGHT);
  SendMessage(window, WM_KEYUP, VK_RIGHT, 1);
  EXPECT_FALSE(Zoomed());
  EXPECT_EQ(series.iLCursor, 2000);
  Graph::RestrictGraphOperationInRealTime = false;
  Press(VK_RIGHT);
  EXPECT_EQ(series.iLCursor, 2001) << "the key-up counted";
  Drag(At(100, 50), At(300, 200));
  Mouse(WM_LBUTTONUP, At(300, 200));
  EXPECT_TRUE(Zoomed());
}

TEST_F(ViewInputTest, TheThumbScrollsWhenItIsReleasedAlsoBeyond16Bits) {
  Show(200000);
  series.SetIntervalBySample(true, &axis.hor, 4);
  view->UpdateGraph();
  ASSERT_TRUE(AwaitIdle());
  SCROLLINFO& bar = Window().bars[SB_HORZ];
  const auto before = Interval();
  ASSERT_EQ(bar.nPos, static_cast<int>(before.first));
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
  const struct {
    int code;
    int moves;
  } steps[] = {{SB_LINELEFT, -1},
               {SB_LINERIGHT, 1},
               {SB_PAGELEFT, -static_cast<int>(bar.nPage)},
               {SB_PAGERIGHT, static_cast<int>(bar.nPage)},
               {8, 0}};
  for (const auto& step : steps) {
    series.ScrollTo(size / 2);
    view->UpdateGraph();
    ScrollBar(WM_HSCROLL, step.code);
    EXPECT_EQ(static_cast<int>(series.GetFrom()), static_cast<int>(size / 2) + step.moves)
        << step.code;
  }
  bar.nPos = bar.nMin;
  ScrollBar(WM_HSCROLL, SB_LINELEFT);
  EXPECT_EQ(series.GetFrom(), size / 2);

  axis.yAutoZoom = false;
  view->UpdateGraph();
  SCROLLINFO& vertical = Window().bars[SB_VERT];
  vertical = {0, 40, 20, 20, 0};
  const double max = axis.ver.max;
  ScrollBar(WM_VSCROLL, SB_PAGEUP);
  EXPECT_GT(axis.ver.max, max);
  vertical = {0, 40, 20, 20, 0};
  ScrollBar(WM_VSCROLL, SB_LINEDOWN);
  EXPECT_NEAR(axis.ver.max, max, 1e-9);
  vertical = {0, 40, 20, 21, 0};
  ScrollBar(WM_VSCROLL, SB_PAGEDOWN);
  EXPECT_NEAR(axis.ver.max, max, 1e-9);
}

TEST_F(ViewInputTest, TheMainWindowHearsOfDoubleClicksAndFocus) {
  MainWindow mainWindow;
  const auto self = reinterpret_cast<WPARAM>(static_cast<CSingleGraphView*>(view));
  Mouse(WM_LBUTTONDBLCLK, At(100, 50));
  EXPECT_TRUE(mainWindow.told.empty()) << "posted";
  Pump();
  SendMessage(window, WM_SETFOCUS, 0, 0);
  view->SetActive(false);
  SendMessage(window, WM_SETFOCUS, 0, 0);
  Graph::RestrictGraphOperationInRealTime = false;
  Begin(series);
  Mouse(WM_LBUTTONDBLCLK, At(100, 50));
  Pump();
  const std::vector<std::pair<UINT, WPARAM>> expected{{0x465, self}, {0x466, self}};
  EXPECT_EQ(mainWindow.told, expected);
}

TEST_F(ViewInputTest, AViewWithoutDataIgnoresItsUser) {
  const auto everything = [&](CSingleGraphView& idle) {
    window = idle.GetSafeHwnd();
    for (const UINT message :
         {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_RBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK,
          WM_CAPTURECHANGED, WM_HSCROLL, WM_VSCROLL, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS})
      Mouse(message, {-30000, 30000});
    Press(VK_LEFT);
    SendMessage(window, WM_KEYUP, VK_LEFT, 1);
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
  Drag(At(0, 0), At(300, 200));
  Mouse(WM_LBUTTONUP, At(300, 200));
  Press(VK_LEFT);
  EXPECT_EQ(series.GetSize(), 1u);
}

/// A host may end the view in whatever it is told while a gesture goes on.
TEST_F(ViewInputTest, AViewMayEndInsideEachGesture) {
  MainWindow mainWindow;
  mainWindow.onMessage = [this] { CloseView(); };
  const auto endAt = [this](UINT message) {
    view->afterMessage = [this, message](UINT now) {
      if (now == message)
        CloseView();
    };
  };
  const auto endInUpdate = [this] { Window().onShowScrollBar = [this] { CloseView(); }; };
  const auto zoomed = [this] {
    TheGraph().ZoomInBySample();
    PutCursors(size / 2, size / 2 + 10);
  };
  const auto box = [this] { Drag(At(100, 50), At(300, 200)); };
  const auto up = [this] { Mouse(WM_LBUTTONUP, At(300, 200)); };
  const std::vector<std::function<void()>> ways{
      [&] { box(), endAt(WM_CAPTURECHANGED), up(); },
      [&] { box(), endInUpdate(), up(); },
      [&] { box(), endInUpdate(), view->UpdateGraph(); },
      [&] { box(), endAt(WM_CAPTURECHANGED), SendMessage(window, WM_UPDATE_GRAPH, 0, 0); },
      [&] { box(), CloseView(); },
      [&] {
        PutCursors(2000, 5000), Drag(LeftMarker(), At(300, 9)), endAt(WM_CAPTURECHANGED), up();
      },
      [&] { PutCursors(2000, 5000), Drag(LeftMarker(), At(300, 9)), CloseView(); },
      [&] {
        zoomed(), endInUpdate();
        for (int i = 0; view && i < static_cast<int>(size); ++i)
          Press(VK_LEFT);
      },
      [&] { zoomed(), endInUpdate(), ScrollBar(WM_HSCROLL, SB_LINELEFT); },
      [&] { zoomed(), endInUpdate(), ScrollBar(WM_HSCROLL, SB_THUMBPOSITION); },
      [&] {
        endInUpdate(), Window().bars[SB_VERT] = {0, 9, 0, 5, 0}, ScrollBar(WM_VSCROLL, 0);
      },
      [&] { view->SetActive(false), SendMessage(window, WM_SETFOCUS, 0, 0); },
  };
  for (std::size_t i = 0; i < ways.size(); ++i) {
    if (!view)
      OpenView({640, 480});
    Show(size);
    ways[i]();
    EXPECT_EQ(view, nullptr) << i;
    EXPECT_EQ(GetCapture(), nullptr) << i;
  }
}

}  // namespace
}  // namespace sparlow
