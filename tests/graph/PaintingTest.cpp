// What a frame is painted of, and where: recorded primitives in the pixels of a window of 640 by
// 480.

#include <algorithm>
#include <cstdio>
#include <set>
#include <span>

#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

class PaintingTest : public GraphTest {
 protected:
  /// A straight line over 0 to 2 V and 0 to 10 s, so that grid and labels fall on known pixels.
  void Paint() {
    Points line;
    for (int i = 0; i <= 10; ++i)
      line.emplace_back(i, 0.2 * i);
    series.SetUnits("V");
    Fill(series, line);
    Repaint();
  }
  void Repaint() {
    view->UpdateGraph();
    Pump();
  }
  bool Has(const std::string& beginning) {
    const auto calls = Frame();
    return std::any_of(calls.begin(), calls.end(),
                       [&](const std::string& call) { return call.starts_with(beginning); });
  }
};

// The plot of 562 by 438 pixels begins at (58, 21): ver.scale is 2 / 438, hor.scale 10 / 562.
TEST_F(PaintingTest, AFrameFromBackgroundToCurve) {
  Paint();
  const auto calls = Frame();
  auto at = calls.begin();
  for (const char* const next : {
           "FillRect 0,0 640,480 color 0xE0E0E0",
           "Text 58,2 \"Delay\" height 15 color 0x505050",
           "Text 550,2 \"11 Samples\" height 15 color 0x505050",
           "Line 58,405 620,405 style 2 width 1 color 0xBCBCBC",
           "Line 114,459 114,21 style 2 width 1 color 0xBCBCBC",
           "Line 58,21 58,459 style 0 width 1 color 0x000000",
           "Line 620,459 620,21 style 0 width 1 color 0x000000",
           "Line 620,21 58,21 style 0 width 1 color 0x000000",
           "Text 47,6 \"V\" height 15 color 0x000000",
           "Text 26,398 \"0.25\" height 15 color 0x000000",
           "Text 629,463 \"s\" height 15 color 0x000000",
           "Text 55,463 \"0\" height 15 color 0x000000",
           "Line 58,459 58,459 style 0 width 1 color 0x505050 clip 59,22 620,459",
           "Copy 0,0 640,480 from 0,0",
       }) {
    const auto found = std::find(at, calls.end(), next);
    EXPECT_NE(found, calls.end()) << next << " is missing, or comes too early";
    at = found == calls.end() ? at : found;
  }
  EXPECT_TRUE(Shows("1.75"));
  EXPECT_FALSE(Shows("2.00")) << "within 10 pixels of the top";
  EXPECT_TRUE(Shows("9"));
  EXPECT_FALSE(Shows("10")) << "in the way of the unit";
}

TEST_F(PaintingTest, FixedAxesAreHeavyAndAnOverlayIsClippedToThePlot) {
  Paint();
  const GraphColors scheme;
  const std::string heavy = FormatText(" style 0 width 2 color 0x%06X", scheme.fixedAxis);
  const std::string left = "Line 58,21 58,459" + heavy, below = "Line 58,459 620,459" + heavy;
  for (const bool vertical : {false, true}) {
    for (AxisData* const fixed : {&axis.hor, &axis.ver})
      fixed->autoRange = true;
    (vertical ? axis.ver : axis.hor).autoRange = false;
    (vertical ? axis.ver : axis.hor).fixedMax = 2;
    view->inOverlay = [](CDC& dc) { dc.FillSolidRect({-99, -99, 999, 999}, 0x123456); };
    Repaint();
    EXPECT_EQ(Has(left), vertical);
    EXPECT_EQ(Has(below), !vertical);
    EXPECT_TRUE(Has("FillRect -41,-78 1057,1020 color 0x123456 clip 59,22 620,459"));
  }
}

TEST_F(PaintingTest, EdgesOfAWaveformHaveTheColoursOfTheScheme) {
  series.InitDataTransfer(true);
  series.InitBlockTransfer();
  for (int i = 0; i < 4; ++i)
    series.Add(i, i % 2, i % 2 == 1);
  series.TermDataTransfer();
  Repaint();
  const GraphColors scheme;
  std::string order;
  for (const std::string& call : Frame()) {
    const auto edge = [&](COLORREF color) {
      return call.ends_with(FormatText(" width 2 color 0x%06X clip 59,22 620,459", color));
    };
    order += edge(scheme.edgeRising) ? "r" : edge(scheme.edgeFalling) ? "f" : "";
  }
  EXPECT_EQ(order, "frfr");
}

/// Whatever the size of the plot and the length of the labels.
TEST_F(PaintingTest, NoTextLiesOverAnother) {
  for (const double size : {1.0, 123456.0, 1e-9}) {
    for (const bool log : {false, true}) {
      axis.ver.log = log;
      Fill(series, {{0, size}, {7 * size, 1000 * size}});
      for (int side = 230; side < 700; side += 37) {
        Window().Resize({side, side / 2});
        Repaint();
        std::vector<CRect> texts;
        for (const std::string& call : Frame()) {
          int x = 0, y = 0, length = 0;
          if (std::sscanf(call.c_str(), "Text %d,%d \"%*[^\"]%n", &x, &y, &length) != 2)
            continue;
          const auto begin = call.find('"') + 1;
          const int width = 7 * (length - static_cast<int>(begin));
          texts.push_back({x, y, x + width, y + 15});
        }
        EXPECT_GT(texts.size(), 4u);
        for (std::size_t i = 2; i < texts.size(); ++i) {  // the captions may meet
          for (std::size_t j = 0; j < i; ++j) {
            const CRect &a = texts[i], &b = texts[j];
            const CRect both{std::max(a.left, b.left), std::max(a.top, b.top),
                             std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
            EXPECT_TRUE(both.IsRectEmpty()) << side << ": " << a.left << "," << a.top;
          }
        }
      }
    }
  }
}

TEST_F(PaintingTest, TheCaptionTellsTheIntervalAndItsSource) {
  struct FromInterval : GatedSeries {
    double GetxAnalyzeFrom() const override { return 0.0005; }
    double GetxAnalyzeTo() const override { return to; }
    double to = 0.002;
  };
  auto& derived = Make<FromInterval>("Derived");
  Fill(derived, 10000);
  derived.SetFrom(100);
  derived.SetTo(350);
  OpenView(derived);
  Repaint();
  EXPECT_EQ(Plot().cy, 425);
  EXPECT_TRUE(Has("Text 58,15 \"Source interval: 500 us - 2 ms\" height 15 color 0x505050"));
  EXPECT_TRUE(Has("Text 58,2 \"Derived\" height 15 color 0x505050"));
  EXPECT_TRUE(Shows("10000(250) Samples"));
  const std::string frame = "Line 58,34 58,459 style 0 width 1 color 0x000000";
  EXPECT_TRUE(Has(frame));
  derived.to = 0.0005;  // recalculated, and not yet updated
  RedrawWindow(view->GetSafeHwnd());
  Pump();
  EXPECT_TRUE(Has("Text 58,15 \"Derived\" ")) << "from there to there is no interval";
  EXPECT_TRUE(Has(frame)) << "the plot stays where its columns were made for";
}

TEST(ColorTest, EachCurveCanBeToldFromTheBackgroundsAndTheOthers) {
  std::set<std::pair<COLORREF, COLORREF>> schemes;
  for (int scheme = 0; scheme < 4; ++scheme) {
    const GraphColors colors(scheme);
    EXPECT_EQ(colors.scheme, scheme);
    EXPECT_TRUE(schemes.emplace(colors.backActive, colors.grid).second) << scheme;
    std::set<COLORREF> seen{colors.backActive, colors.backInactive};
    for (const auto& table : {GraphColorTable, MaskColorTable})
      for (const COLORREF color : std::span(table, 6)) {
        const COLORREF visible = colors.Visible(color);
        EXPECT_TRUE(seen.insert(visible).second) << scheme << ": " << color;
        EXPECT_EQ(colors.Visible(visible), visible);
        if (scheme == 0) {
          EXPECT_EQ(visible, color);
        }
      }
  }
}

}  // namespace
}  // namespace sparlow
