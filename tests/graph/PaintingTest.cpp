// What a frame is painted of, and where: recorded primitives in the pixels of a window of 640 by
// 480.

#include <algorithm>

#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

class PaintingTest : public GraphTest {
 protected:
  /// A straight line over 0 to 2 V and 0 to 10 s, so that grid and labels fall on known pixels.
  void Paint() {
    series.SetUnits("V");
    Begin(series);
    series.InitBlockTransfer();
    for (int i = 0; i <= 10; ++i)
      series.Add(i, 0.2 * i, false);
    series.TermBlockTransfer();
    series.TermDataTransfer();
    Repaint();
  }
  void Repaint() {
    view->UpdateGraph();
    Pump();
  }
  std::ptrdiff_t IndexOf(const std::string& call) {
    const auto calls = Frame();
    const auto found = std::find(calls.begin(), calls.end(), call);
    EXPECT_NE(found, calls.end()) << call;
    return found - calls.begin();
  }
  std::ptrdiff_t Count(const std::string& beginning) {
    const auto calls = Frame();
    return std::count_if(calls.begin(), calls.end(),
                         [&](const std::string& call) { return call.starts_with(beginning); });
  }
  bool Has(const std::string& call) { return Count(call) != 0; }
};

// The plot of 562 by 438 pixels begins at (58, 21): ver.scale is 2 / 438, hor.scale 10 / 562.
TEST_F(PaintingTest, AFrameFromBackgroundToCurve) {
  Paint();
  const auto background = IndexOf("FillRect 0,0 640,480 color 0xE0E0E0");
  const auto caption = IndexOf("Text 58,2 \"Delay\" height 15 color 0x505050");
  const auto count = IndexOf("Text 550,2 \"11 Samples\" height 15 color 0x505050");
  const auto firstRow = IndexOf("Line 58,405 620,405 style 2 width 1 color 0xBCBCBC");
  const auto firstColumn = IndexOf("Line 114,459 114,21 style 2 width 1 color 0xBCBCBC");
  const auto frame = IndexOf("Line 58,21 58,459 style 0 width 1 color 0x000000");
  const auto verticalUnit = IndexOf("Text 47,6 \"V\" height 15 color 0x000000");
  const auto verticalLabel = IndexOf("Text 26,398 \"0.25\" height 15 color 0x000000");
  const auto horizontalUnit = IndexOf("Text 629,463 \"s\" height 15 color 0x000000");
  const auto curve =
      IndexOf("Line 58,459 58,459 style 0 width 1 color 0x505050 clip 59,22 620,459");
  EXPECT_EQ(background, 0);
  const std::ptrdiff_t order[] = {background,     caption, count,        firstRow,
                                  firstColumn,    frame,   verticalUnit, verticalLabel,
                                  horizontalUnit, curve};
  EXPECT_TRUE(std::is_sorted(std::begin(order), std::end(order)));
  EXPECT_EQ(Frame().back(), "Copy 0,0 640,480 from 0,0");
  // Neither a row nor a column at pixel 0, on the frame.
  EXPECT_FALSE(Has("Line 58,459 620,459 style 2"));
}

TEST_F(PaintingTest, LabelsStandClearOfEachOtherOfTheTopAndOfTheUnit) {
  Paint();
  // The last vertical label lies within 10 pixels of the top: 2.00 at pixel 438.
  EXPECT_TRUE(Shows("1.75"));
  EXPECT_FALSE(Shows("2.00"));
  EXPECT_TRUE(Shows("9"));
  EXPECT_FALSE(Shows("10")) << "the walk ends 10 pixels before the end";
  // A plot so low that rows lie closer than a line of text thins its labels out.
  Window().Resize({640, 120});
  Repaint();
  EXPECT_TRUE(Shows("0.50"));
  EXPECT_FALSE(Shows("0.25"));
}

TEST_F(PaintingTest, FixedAxesHaveAHeavyEdge) {
  Paint();
  EXPECT_FALSE(Has("Line 58,459 620,459 style 0 width 2"));
  axis.ver.autoRange = false;
  axis.hor.autoRange = false;
  Repaint();
  EXPECT_TRUE(Has("Line 58,21 58,459 style 0 width 2 color 0x0000FF"));
  EXPECT_TRUE(Has("Line 58,459 620,459 style 0 width 2 color 0x0000FF"));
}

TEST_F(PaintingTest, TheCaptionTellsTheIntervalAndItsSource) {
  struct FromInterval : GatedSeries {
    double GetxAnalyzeFrom() const override { return 0.0005; }
    double GetxAnalyzeTo() const override { return 0.002; }
  } derived;
  CloseView();
  derived.Init("Derived", nullptr);
  Fill(derived, 10000);
  derived.SetFrom(100);
  derived.SetTo(350);
  view = new TestView;
  ASSERT_TRUE(view->Create());
  Window().Resize({640, 480});
  view->CreateGraph(&axis);
  view->AddViewData(&derived);
  Repaint();
  EXPECT_EQ(Plot().cy, 425);
  EXPECT_TRUE(Has("Text 58,15 \"Source interval: 500 us - 2 ms\" height 15 color 0x505050"));
  EXPECT_TRUE(Has("Text 58,2 \"Derived\" height 15 color 0x505050"));
  EXPECT_TRUE(Shows("10000(250) Samples"));
  CloseView();
  derived.Term();
}

TEST_F(PaintingTest, AWaveformShowsItsEdgesInTwoColours) {
  series.InitDataTransfer(true);
  series.InitBlockTransfer();
  series.Add(1.0, 1.0, true);
  series.Add(0.0, 0.0, false);
  series.Add(2.0, 0.5, false);
  series.TermBlockTransfer();
  series.TermDataTransfer();
  Repaint();
  // The rising edge in the middle of the plot's top row, and a falling one at its right end.
  EXPECT_TRUE(Has("Line 341,19 337,23 style 0 width 2 color 0x0020FF clip 59,22 620,459"));
  EXPECT_TRUE(Has("Line 618,238 622,242 style 0 width 2 color 0x00C0FF clip 59,22 620,459"));
}

TEST_F(PaintingTest, SchemesAndActivity) {
  GraphColors dark(2);
  Paint();
  view->SetColors(dark);
  EXPECT_EQ(Frame().front(), "FillRect 0,0 640,480 color 0x000000");
  EXPECT_TRUE(Has("Text 58,2 \"Delay\" height 15 color 0x00FFFF"));
  view->SetActive(true);
  Pump();
  EXPECT_EQ(Frame().front(), "FillRect 0,0 640,480 color 0x4E4E4E");
  dark.LoadScheme(7);
  EXPECT_EQ(dark.scheme, 7);
  EXPECT_EQ(dark.backActive, 0xFFFFFFu);
  // The scheme is on loan; the graph must not read it when it is gone.
  CloseView();
}

TEST_F(PaintingTest, AStateThatTheNextPaintFindsAsItWas) {
  view->onOverlay = [] { throw 1; };
  EXPECT_THROW(Paint(), int);
  view->onOverlay = nullptr;
  RedrawWindow(view->GetSafeHwnd());
  Pump();
  const std::vector<std::string> first = Frame();
  TheGraph().DrawAll();
  EXPECT_EQ(Frame(), first);
}

}  // namespace
}  // namespace sparlow
