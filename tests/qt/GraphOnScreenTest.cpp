// A graph in a real window surface, pixel by pixel, and as pictures for people to look at.

#include <QImage>

#include <cmath>

#include "sparlow/platform/qt/QtWindow.h"
#include "sparlow/sparlow.h"
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
  QImage Pixels() { return dynamic_cast<qt::QtWindow&>(*view->GetPeer()).Pixels().Image(); }
  COLORREF At(int x, int y) {
    const HDC hdc = GetDC(view->GetSafeHwnd());
    const COLORREF color = CDC(hdc).GetPixel({x, y});
    ReleaseDC(view->GetSafeHwnd(), hdc);
    return color;
  }
  static int Count(const QImage& image, COLORREF color) {
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QRgb pixel = image.pixel(x, y);
        found += RGB(static_cast<unsigned>(qRed(pixel)), static_cast<unsigned>(qGreen(pixel)),
                     static_cast<unsigned>(qBlue(pixel))) == color;
      }
    }
    return found;
  }

  const GraphColors colors{0};
  GraphAxis axis;
  GatedSeries series;
  OpenView* view = new OpenView;
};

TEST_F(GraphOnScreen, FrameGridAndCurveLieOnTheirPixels) {
  Fill(5001);
  App().ProcessEvents();
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
  int index = -1;
  bool mask = true;
  EXPECT_TRUE(view->TheGraph().GetViewDataByPoint(&found, &index, &mask, {58 + 421, 40}));
  EXPECT_EQ(found, &series);
  EXPECT_EQ(index, 0);
  EXPECT_FALSE(mask);
  EXPECT_FALSE(view->TheGraph().GetViewDataByPoint(nullptr, nullptr, nullptr, {100, 40}));
  EXPECT_FALSE(view->TheGraph().GetViewDataByPoint(nullptr, nullptr, nullptr, {-5, 9999}));
}

TEST_F(GraphOnScreen, ASlowRenderShowsItsMessageAndThenTheGraph) {
  series.CloseGate();
  Fill(20001);
  series.AwaitWorker();
  qt::Resize(*view, 500, 300);
  App().ProcessEvents();
  ASSERT_TRUE(qt::SavePicture(*view, "graph-rendering.png"));
  const QImage message = Pixels();
  // The soft edges of the text may hit the colour of the curve, but a curve has hundreds of pixels.
  constexpr int curve = 300;
  EXPECT_LT(Count(message, colors.trace), curve / 10);
  EXPECT_LT(Count(message, colors.backActive), message.width() * message.height() - 100);
  EXPECT_EQ(At(58, 21), colors.backActive);
  series.OpenGate();
  while (Count(Pixels(), colors.trace) < curve)
    App().ProcessEvents();
  EXPECT_EQ(At(58, 21), colors.frame);
  EXPECT_EQ(At(500 - 20, 300 - 21), colors.frame);
}

TEST_F(GraphOnScreen, PixelsComeBackWhenTheSameGraphIsPaintedAgain) {
  Fill(5001);
  App().ProcessEvents();
  const QImage first = Pixels();
  view->TheGraph().DrawAll();
  EXPECT_EQ(Pixels(), first);
}

}  // namespace
}  // namespace sparlow::test
