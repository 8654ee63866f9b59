// A host may close the view in any code of its own that the view runs: the window ends at once, the
// object when nothing of it is at work any more. What is touched too late the address sanitizer finds.

#include "sparlow/ui/GraphMenu.h"
#include "tests/ui/ViewInput.h"

namespace sparlow {
namespace {

/// A series that runs the test's code at the place of its name, once.
struct HookedSeries : Analysis {
  void At(std::string newPlace, std::function<void()> newHook) {
    place = std::move(newPlace);
    hook = std::move(newHook);
  }
  void Pass(const std::string& here) const {
    if (here == place && UiThread::IsCurrent() && hook)
      std::exchange(hook, nullptr)();
  }
  void SetIntervalParams() override {
    Pass("SetIntervalParams");
    Analysis::SetIntervalParams();
  }
  int yPosGet(unsigned sample, const GraphAxis* axis) const override {
    Pass("yPosGet");
    return Analysis::yPosGet(sample, axis);
  }
  double GetxAnalyzeTo() const override {
    Pass("GetxAnalyzeTo");
    return Analysis::GetxAnalyzeTo();
  }
  bool Calculate() override {
    Pass("Calculate");
    return false;
  }

  std::string place;
  mutable std::function<void()> hook;
};

class LifetimeTest : public ViewInputTest {
 protected:
  void ShowHooked(unsigned samples) {
    OpenView(hooked);
    Fill(hooked, samples);
    view->UpdateGraph();
    view->SetActive(true);
    EXPECT_TRUE(AwaitIdle());
    window = view->GetSafeHwnd();
  }
  /// With a worker that waits for the series, or for its turn.
  void CloseUnderWork() {
    TheGraph().AnalyzeAll();
    Window().Resize({500, 300});
    CloseView();
  }

  HookedSeries& hooked = Make<HookedSeries>("Hooked", &series);
};

TEST_F(LifetimeTest, InACallbackThatChangesTheAxesAndInABoxOpenedThere) {
  for (const bool inBox : {false, true}) {
    OpenView();
    StartGatedRender();
    UiThread::SetBoxHandler([this](const BoxRequest&) {
      CloseView();
      return IDOK;
    });
    StopAtGate(series, [&] {
      view->ChangeAxes([&](GraphAxis&) {
        if (inBox)
          AfxMessageBox("Axes?");
        else
          CloseView();
        EXPECT_EQ(view, nullptr);
      });
    });
    EXPECT_FALSE(series.IsAborted());
    EXPECT_FALSE(series.renderStop);
  }
}

TEST_F(LifetimeTest, InTheCodeOfItsSeries) {
  for (const char* const place : {"SetIntervalParams", "yPosGet", "GetxAnalyzeTo", "Calculate"}) {
    SCOPED_TRACE(place);
    ShowHooked(size);
    hooked.At(place, [this] { CloseUnderWork(); });
    if (hooked.place == "Calculate")
      SetThreadStarter([](AFX_THREADPROC, void*) { return false; });
    view->UpdateGraph();
    if (hooked.place == "Calculate")
      TheGraph().AnalyzeAll();
    else if (view)
      Pump();
    SetThreadStarter(nullptr);
    EXPECT_EQ(view, nullptr);
    EXPECT_FALSE(hooked.IsAborted());
    EXPECT_FALSE(hooked.renderStop);
  }
}

TEST_F(LifetimeTest, InAnOverlay) {
  view->inOverlay = [this](CDC&) { CloseUnderWork(); };
  Pump();
  RedrawWindow(window);
  Pump();
  EXPECT_EQ(view, nullptr);
}

TEST_F(LifetimeTest, ABoxOrARepaintInAnOverlayIsPaintedAfterIt) {
  Pump();
  int frames = 0;
  UiThread::SetBoxHandler([this](const BoxRequest&) {
    Window().Resize({500, 300});
    Pump();
    return IDOK;
  });
  view->afterMessage = [&](UINT message) { frames += message == WM_PAINT; };
  view->inOverlay = [this](CDC&) {
    TheGraph().DrawAll();
    AfxMessageBox("Overlay");
  };
  RedrawWindow(window);
  Pump();
  Pump();
  EXPECT_EQ(frames, 3) << "the outer one, the one in the box, and one for both";
  EXPECT_TRUE(Shows("Delay"));
  EXPECT_EQ(Plot().cx, 500 - 58 - 20);
  view->afterMessage = nullptr;
}

TEST_F(LifetimeTest, InWhateverItsUserDoes) {
  SetMainWindow(receiver.GetSafeHwnd());
  receiver.onMessage = [this] { CloseView(); };
  const auto endAtRelease = [this] {
    view->afterMessage = [this](UINT now) {
      if (now == WM_CAPTURECHANGED)
        CloseView();
    };
  };
  const auto endInUpdate = [this] { Window().onShowScrollBar = [this] { CloseView(); }; };
  const auto scroll = [&](UINT message, WPARAM step) {
    TheGraph().ZoomInBySample();
    PutCursors(series.GetFrom(), size / 2);
    endInUpdate();
    SendMessage(window, message, step, 1);
  };
  const auto update = [this] { SendMessage(window, WM_UPDATE_GRAPH, 0, 0); };
  const auto box = [this] { DrawBox(); };
  const auto drag = [this] {
    PutCursors();
    Drag(LeftMarker(), At(300, 9));
  };
  const auto up = [this] { Release(At(300, 200)); };
  const auto close = [this] { CloseView(); };
  const auto pump = [this] { Pump(); };
  system.onMenu = [this](CMenu& menu, CPoint, HWND owner) -> UINT {
    CloseView();
    menu.NotifyOpening(owner, 0);
    return ID_VIEW_SAMPLE_ZOOM_IN;
  };
  system.onDialog = [this](test::TestDialog&) { CloseView(); };
  const std::vector<std::function<void()>> ways[]{
      {box, endAtRelease, up},
      {box, endInUpdate, up},
      {box, endAtRelease, update},
      {box, endInUpdate, update},
      {box, close},
      {drag, endAtRelease, up},
      {drag, close},
      {[&] { scroll(WM_KEYDOWN, VK_LEFT); }},
      {[&] { scroll(WM_HSCROLL, SB_LINELEFT); }},
      {[&] { scroll(WM_HSCROLL, SB_THUMBPOSITION); }},
      {endInUpdate,
       [&] {
         Window().bars[SB_VERT] = {0, 9, 0, 5, 0};
       },
       [&] { ScrollBar(WM_VSCROLL, 0); }},
      {[&] { view->SetActive(false); }, [&] { SendMessage(window, WM_SETFOCUS, 0, 0); }},
      {[&] { Mouse(WM_LBUTTONDBLCLK, At(100, 50)); }, pump},
      {[&] {
         Mouse(WM_RBUTTONDOWN, {9, 9});
       },
       pump, [&] { EXPECT_FALSE(Zoomed()); }},
      {[&] { SendMessage(window, WM_COMMAND, 32835, 0); },
       [&] { SendMessage(window, WM_SPARLOW_COMMAND, 4, 0); }},
      {[&] { Graph::SetInfoBar(receiver.GetSafeHwnd()); }, [&] { view->UpdateGraph(); }, pump},
  };
  for (const auto& way : ways) {
    SCOPED_TRACE(&way - ways);
    if (!view)
      OpenView();
    Show(size);
    for (const auto& step : way)
      step();
    EXPECT_EQ(view, nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
  }
}

TEST_F(LifetimeTest, AClosedGraphIsInert) {
  PutCursors();
  const Range before = Interval();
  view->ChangeAxes([this](GraphAxis&) {
    Graph& graph = TheGraph();
    CloseView();
    EXPECT_EQ(graph.GetActiveViewData(), nullptr);
    EXPECT_EQ(graph.GetName(), nullptr);
    EXPECT_FALSE(graph.DataAndAxisValid());
    EXPECT_TRUE(graph.Settled());
    EXPECT_FALSE(graph.MoveLCursor(5));
    EXPECT_FALSE(graph.AddViewData(&series));
    graph.ZoomInBySample();
    graph.ScrollTo(5);
    graph.OnXRange();
    graph.Clear();
    graph.ResizeGraph();
    graph.UpdateGraph();
    graph.DrawAll();
    graph.DrawCursors();
    graph.Destroy();
  });
  EXPECT_EQ(Interval(), before);
  EXPECT_EQ(series.iLCursor, 2000);
}

}  // namespace
}  // namespace sparlow
