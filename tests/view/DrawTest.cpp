#include <tuple>
#include <vector>

#include "sparlow/platform/paint/CDC.h"
#include "sparlow/platform/paint/LogicalPixel.h"
#include "tests/support/RecordingDevice.h"
#include "tests/view/View.h"

namespace sparlow::test {
namespace {

using Calls = RecordingDevice::Calls;

struct Drawing : testing::Test {
  Drawing() { view.SetColor(0x0000FF); }
  ~Drawing() override {
    ViewData::SetDrawStyle(0x100);
    LogicalPixel::LogPixelSize = 1u;
  }
  void render(const std::vector<CPoint>& pixels) {
    view.fill(pixels);
    view.Render(&axis, true);
  }
  Calls draw(bool bold = false) {
    view.Draw(&dc, 100, bold);
    return device.take();
  }
  Calls drawWaveform() {
    const CPen* const before = context.pen;
    view.DrawWaveform(&dc, 0x00FF00, 0x0000FF);
    EXPECT_EQ(context.pen, before);
    return device.take();
  }
  static std::string line(const char* ends, int width = 1, COLORREF color = 0x0000FF) {
    return FormatText("Line %s style 0 width %d color 0x%06X", ends, width, color);
  }

  Live<ViewData> view;
  GraphAxis axis = unitAxis();
  RecordingDevice device;
  DeviceContext context{&device};
  CDC dc{&context};
};

TEST_F(Drawing, ADenseCurveHasAStrokeAndAPieceAColumnWhateverTheStyle) {
  render({{3, 10}, {3, 30}, {3, 5}, {3, 20}, {9, 7}});
  const Calls strokes{line("3,10 3,10"), line("3,5 3,30"), line("3,20 9,7")};
  for (const int style : {0x100, 0x001, 0x201}) {
    ViewData::SetDrawStyle(style);
    EXPECT_EQ(draw(), strokes);
  }
}

TEST_F(Drawing, ASparseCurveFollowsTheStyleAndGivesThePenBack) {
  EXPECT_EQ(draw(), Calls{});  // no columns yet
  const CPen before(PS_DOT, 3, 0x00FF00);
  dc.SelectObject(&before);
  render({{10, 10}, {20, 20}});
  EXPECT_EQ(draw(), (Calls{line("10,10 10,10"), line("10,10 20,20")}));
  ViewData::SetDrawStyle(0, 1);
  EXPECT_EQ(draw(),
            (Calls{"FillRect 9,9 12,12 color 0x0000FF", "FillRect 19,19 22,22 color 0x0000FF"}));
  ViewData::SetDrawStyle(2, 1);
  EXPECT_EQ(draw(true), (Calls{line("10,10 10,10", 2), "FillRect 8,8 13,13 color 0x0000FF",
                               line("10,10 20,20", 2), "FillRect 18,18 23,23 color 0x0000FF"}));
  EXPECT_EQ(context.pen, &before);
}

TEST_F(Drawing, AnEdgeLeansAsItsFlagSays) {
  view.InitDataTransfer(true);
  view.InitBlockTransfer();
  for (int i = 0; i < 3; ++i)
    view.Add(20 * i + 20, -50, i == 1);
  view.TermBlockTransfer();
  view.SetFrom(1);
  view.Render(&axis, true);
  const Calls screen{line("42,48 38,52", 2, 0xFF), line("58,48 62,52", 2, 0xFF00)};
  EXPECT_EQ(drawWaveform(), screen);
  // As it was rendered, whatever becomes of interval and flags before the next render.
  view.SetFrom(2);
  view.Set(1, 40, -50, false);
  EXPECT_EQ(drawWaveform(), screen);
  LogicalPixel::LogPixelSize = 7u;
  EXPECT_EQ(drawWaveform()[0], line("48,42 32,58", 14, 0xFF));
  LogicalPixel::LogPixelSize = 1u;
  view.InitDataTransfer(false);
  render({{40, 50}});  // columns without flags
  EXPECT_EQ(drawWaveform(), Calls{line("38,48 42,52", 2, 0xFF00)});
}

TEST_F(Drawing, AcceptsKnownPairsOfStylesOnly) {
  const std::tuple<int, int, int> cases[] = {{2, 1, 0x201}, {0, 1, 1},      {0, 0, 0x100},
                                             {3, 0, 0x100}, {-1, 1, 0x100}, {1, -1, 0x100}};
  for (const auto& [line, point, style] : cases) {
    ViewData::SetDrawStyle(line, point);
    EXPECT_EQ(ViewData::GetDrawStyle(), style) << line << " " << point;
  }
}

}  // namespace
}  // namespace sparlow::test
