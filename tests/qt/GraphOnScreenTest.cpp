// A graph in a real window surface, pixel by pixel, and as pictures for people to look at.

#include <cmath>

#include "sparlow/platform/qt/QtWindow.h"
#include "sparlow/sparlow.h"
#include "tests/qt/Pixels.h"
#include "tests/qt/QtEnvironment.h"

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
  QImage Pixels() { return dynamic_cast<qt::QtWindow&>(*view->GetPeer()).Pixels().Image(); }
  int Count(COLORREF color) { return Find(Pixels(), color).count; }

  const GraphColors colors{0};
  GraphAxis axis;
  ViewData series;
  OpenView* view = new OpenView;
};

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
