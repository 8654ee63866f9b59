// A graph in a real window surface, pixel by pixel, and as pictures for people to look at.

#include <cmath>

#include "sparlow/platform/qt/QtWindow.h"
#include "sparlow/sparlow.h"
#include "tests/qt/Pixels.h"
#include "tests/qt/QtEnvironment.h"
#include "tests/support/GatedSeries.h"

namespace sparlow::test {
namespace {

/// A view that lends its graph to tests.
class OpenView : public CSingleGraphView {
 public:
  Graph& TheGraph() { return *graph; }
};

class GraphOnScreen : public testing::Test {
 protected:
  GraphOnScreen() {
    series.Init("Staircase");
    series.SetUnits("V");
    view->Create();
    view->CreateGraph(&axis);
    view->AddViewData(&series);
    view->SetActive(true);
    qt::Resize(*view, 640, 480);
    view->ShowWindow(true);
  }
  ~GraphOnScreen() override {
    series.OpenGate();
    view->DestroyWindow();
    series.Term();
  }

  /// Steps of 1 V up and down over 10 s, with one sample of 5 V at 7.5 s.
  void Fill(unsigned n) {
    series.InitDataTransfer(false);
    series.InitBlockTransfer();
    for (unsigned i = 0; i < n; ++i) {
      const double x = 10.0 * i / (n - 1);
      series.Add(x, i == n / 4 * 3 ? 5.0 : std::floor(x / 2), false);
    }
    series.TermBlockTransfer();
    series.TermDataTransfer();
    view->UpdateGraph();
  }
  const qt::ImageDevice& Surface() {
    return dynamic_cast<qt::QtWindow&>(*view->GetPeer()).Pixels();
  }
  QImage Pixels() { return Surface().Image(); }
  COLORREF At(int x, int y) { return Surface().PixelAt({x, y}); }
  int Count(COLORREF color) { return Find(Pixels(), color).count; }

  const GraphColors colors{0};
  GraphAxis axis;
  GatedSeries series;
  OpenView* view = new OpenView;
};

TEST_F(GraphOnScreen, FrameGridAndCurveLieOnTheirPixels) {
  Fill(5001);
  // Out of the corners, which are looked at.
  series.SetLCursor(600);
  series.SetRCursor(2800);
  app->ProcessEvents();
  qt::SavePicture(*view, "graph-ready.png");
  // The plot of 562 by 438 pixels begins at (58, 21).
  for (const CPoint corner : {CPoint{58, 21}, {620, 21}, {58, 459}, {620, 459}})
    EXPECT_EQ(At(corner.x, corner.y), colors.frame);
  EXPECT_EQ(At(57, 300), colors.backActive);
  EXPECT_EQ(At(621, 300), colors.backActive);
  // The steps: 1 V from 2 s to 4 s, on row 21 + 438 * 4 / 5.
  EXPECT_EQ(At(58 + 562 * 3 / 10, 21 + 350), colors.trace);
  EXPECT_NE(At(58 + 562 * 3 / 10, 21 + 345), colors.trace);
  // The one high sample in 5000 reaches up to the frame.
  EXPECT_EQ(At(58 + 421, 22), colors.trace);
  EXPECT_EQ(At(58, 459), colors.frame) << "a curve paints over the frame";

  ViewData* found = nullptr;
  EXPECT_TRUE(view->TheGraph().GetViewDataByPoint(&found, nullptr, nullptr, {58 + 421, 40}));
  EXPECT_EQ(found, &series);
  EXPECT_FALSE(view->TheGraph().GetViewDataByPoint(&found, nullptr, nullptr, {100, 40}));

  const QImage first = Pixels();
  view->TheGraph().DrawAll();
  EXPECT_EQ(Pixels(), first) << "the same graph is painted again";
}

TEST_F(GraphOnScreen, ASlowRenderShowsItsMessageAndThenTheGraph) {
  series.CloseGate();
  Fill(20001);
  series.AwaitWorker();
  qt::Resize(*view, 500, 300);
  app->ProcessEvents();
  ASSERT_TRUE(qt::SavePicture(*view, "graph-rendering.png"));
  // The soft edges of the text may hit the colour of the curve, but a curve has hundreds of pixels.
  constexpr int curve = 300;
  EXPECT_LT(Count(colors.trace), curve / 10);
  EXPECT_GT(Find(Pixels(), colors.backActive, true).count, 100) << "no message";
  EXPECT_EQ(At(58, 21), colors.backActive);
  series.OpenGate();
  while (Count(colors.trace) < curve)
    app->ProcessEvents();
  EXPECT_EQ(At(58, 21), colors.frame);
  EXPECT_EQ(At(500 - 20, 300 - 21), colors.frame);
}

TEST_F(GraphOnScreen, AZoomBoxLeavesNothingBehind) {
  Fill(5001);
  app->ProcessEvents();
  const QImage before = Pixels();
  Graph& graph = view->TheGraph();
  graph.zoomStart = graph.zoomEnd = graph.zoomPrev = {100, 50};
  const auto moveTo = [&](CPoint point) {
    graph.zoomPrev = graph.zoomEnd;
    graph.zoomEnd = point;
    CClientDC dc(view->GetSafeHwnd());
    graph.DrawZoomBox(&dc);
  };
  for (const CPoint point : {CPoint{300, 200}, {40, 400}, {562, 438}}) {
    moveTo(point);
    EXPECT_NE(Pixels(), before);
  }
  moveTo({100, 50});
  EXPECT_EQ(Pixels(), before);
  view->ChangeAxes([](GraphAxis& axes) { axes.hor.autoRange = false; });
  app->ProcessEvents();
  const QImage fixed = Pixels();
  moveTo({300, 200});
  EXPECT_EQ(Pixels(), fixed);
}

TEST_F(GraphOnScreen, AMarkerLeavesNothingBehind) {
  Fill(5001);
  // 0 V and the sample of 5 V lie below and above the plot.
  view->ChangeAxes([](GraphAxis& axes) { axes.Preset(0.5, 3.5, 0, 10); });
  const auto markersAt = [&](unsigned left, unsigned right) {
    series.SetRCursor(5000);
    series.SetLCursor(left);
    series.SetRCursor(right);
    view->TheGraph().DrawCursors();
  };
  for (int style = 0; style <= 2; ++style) {
    Cursor::SetStyle(style);
    markersAt(600, 3750);
    view->TheGraph().DrawAll();
    qt::SavePicture(*view, FormatText("markers-%d-outside.png", style));
    markersAt(1500, 2800);
    view->TheGraph().DrawAll();
    qt::SavePicture(*view, FormatText("markers-%d.png", style));
    const QImage before = Pixels();
    EXPECT_GT(Count(colors.cursorLeft), 10);
    for (unsigned step = 0; step < 12; ++step) {
      markersAt(1100 + 7 * step, 3100 + 7 * step);
      EXPECT_NE(Pixels(), before);
      markersAt(3 * step, 4600 + 7 * step);
      markersAt(600, 1500);  // where the left one comes to stand
      markersAt(1500, 2800);
      ASSERT_EQ(Pixels(), before) << style << ", step " << step;
    }
  }
}

}  // namespace
}  // namespace sparlow::test
