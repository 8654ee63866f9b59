// A graph in a real window surface, pixel by pixel.

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

TEST(GraphOnScreen, AMarkerLeavesNothingBehind) {
  GraphAxis axis;
  ViewData series;
  series.Init("Staircase");
  // Steps of 1 V up and down over 10 s, with one sample of 5 V at 7.5 s.
  for (unsigned i = 0; i <= 5000; ++i)
    series.Add(i / 500.0, i == 3750 ? 5.0 : i / 1000);
  series.AdjustSizeTo();
  auto* const view = new OpenView;
  view->Create();
  view->CreateGraph(&axis);
  view->AddViewData(&series);
  view->SetActive(true);
  qt::Resize(*view, 640, 480);
  view->ShowWindow(true);
  // 0 V and the sample of 5 V lie below and above the plot.
  view->ChangeAxes([](GraphAxis& axes) { axes.Preset(0.5, 3.5, 0, 10); });
  const auto pixels = [&] {
    return dynamic_cast<qt::QtWindow&>(*view->GetPeer()).Pixels().Image();
  };
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
    const QImage before = pixels();
    EXPECT_GT(Find(before, GraphColors(0).cursorLeft).count, 10);
    for (unsigned step = 0; step < 12; ++step) {
      markersAt(1100 + 7 * step, 3100 + 7 * step);
      EXPECT_TRUE(pixels() != before);
      markersAt(3 * step, 4600 + 7 * step);
      markersAt(600, 1500);  // where the left one comes to stand
      markersAt(1500, 2800);
      EXPECT_TRUE(pixels() == before) << style << ", step " << step;
    }
  }
  view->DestroyWindow();
  series.Term();
}

}  // namespace
}  // namespace sparlow::test
