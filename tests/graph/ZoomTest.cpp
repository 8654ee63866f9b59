// What zooms, scrolls and edited ranges make of interval, axes and scroll bars.

#include <limits>
#include <random>

#include "sparlow/graph/AxisRangeEditor.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

constexpr int kFar = std::numeric_limits<int>::max();
using Interval = std::pair<unsigned, unsigned>;

/// Stands for a user who enters two numbers, of which the second may be none.
struct FakeEditor : AxisRangeEditor {
  FakeEditor() { Install(this); }
  ~FakeEditor() override { Install(nullptr); }
  void Edit(AxisRange& range) override { range = {0.6005, max, false, ""}; }
  double max = 0.0;
};

class ZoomTest : public GraphTest {
 protected:
  Interval Shown() { return {series.GetFrom(), series.GetTo()}; }
  void Box(CPoint start, CPoint end) {
    TheGraph().zoomStart = start;
    TheGraph().zoomEnd = end;
    TheGraph().ZoomInByPoint();
  }
  void ZoomAll() {
    Graph& graph = TheGraph();
    graph.ZoomInByPoint();
    graph.ZoomInByCursor();
    graph.ZoomInBySample();
    graph.ZoomOutBySample();
    graph.ZoomOutFull();
  }
  void SetVer(double min, double max) {
    view->ChangeAxes([=](GraphAxis& axes) { axes.SetVer(min, max); });
  }
  /// Which scroll bars are shown.
  std::string Bars() {
    return std::string(Window().barShown[SB_HORZ] ? "h" : "") +
           (Window().barShown[SB_VERT] ? "v" : "");
  }
  const SCROLLINFO& Bar(int bar) { return Window().bars[bar]; }
};

TEST_F(ZoomTest, ABoxZoomsVerticallyFromAFortiethOfTheDataOn) {
  Window().Resize({640, 1000 + 42});
  for (const auto& [height, yAutoZoom] : {std::pair{24, false}, {26, false}, {500, true}}) {
    Show(1000);
    axis.yAutoZoom = yAutoZoom;
    const double xTo = axis.xPointValue(200), yMax = axis.ver.max;
    const double top = axis.yPointValue(300), bottom = axis.yPointValue(300 + height);
    Box({100, 300}, {200, 300 + height});
    EXPECT_EQ(series.GetTo(), std::ceil(xTo * 1e3) + 1);
    EXPECT_EQ(axis.ver.max == top && axis.ver.min == bottom, height == 26);
    EXPECT_EQ(axis.ver.max == yMax, height == 24);
    ExpectTrueColumns();
  }
}

TEST_F(ZoomTest, ABoxOnALogarithmicAxisTakesDecades) {
  Window().Resize({640, 400 + 42});
  axis.ver.log = true;
  axis.yAutoZoom = false;
  Points points{{0, 1e-12}};
  for (int i = 1; i < 100; ++i)
    points.emplace_back(i, 1e-9);
  Show(points);
  EXPECT_DOUBLE_EQ(axis.ver.min, 1e-12);
  Box({0, 100}, {500, 300});
  EXPECT_NEAR(std::log10(axis.ver.max), -9.75, 1e-9);
  EXPECT_NEAR(std::log10(axis.ver.min), -11.25, 1e-9);
  TheGraph().yScroll(true);
  Window().bars[SB_VERT].nTrackPos = 7;
  TheGraph().yScrollDo();
  EXPECT_NEAR(std::log10(axis.ver.max), -9.75, 1e-9) << "it has no steps to scroll by";
  EXPECT_EQ(Bars(), "h");
}

TEST_F(ZoomTest, AZoomByTheUserEndsAPresetRangeWhoseUnitsFollowUntilThen) {
  axis.Preset(-5000, 5000, 0, 10);
  series.SetUnits("V");
  Show(1000);
  EXPECT_STREQ(axis.ver.GetName(), "kV");
  EXPECT_STREQ(axis.ver.GetStr(0), "-5");
  series.SetUnits("%");
  view->UpdateGraph();
  EXPECT_STREQ(axis.ver.GetStr(0), "-5000");
  TheGraph().ZoomInBySample();
  EXPECT_FALSE(axis.preset);
  EXPECT_DOUBLE_EQ(axis.hor.max, 0.749);
}

TEST_F(ZoomTest, ZoomsAndScrollsOfTheInterval) {
  Show(1000);
  TheGraph().ZoomInBySample();
  EXPECT_EQ(Shown(), Interval(250, 750));
  TheGraph().Scroll(-30);
  EXPECT_EQ(Shown(), Interval(220, 720));
  TheGraph().ScrollTo(900);
  EXPECT_EQ(Shown(), Interval(500, 1000));
  TheGraph().ZoomOutBySample();
  EXPECT_EQ(Shown(), Interval(0, 1000));
  const int before = series.begun;
  TheGraph().ZoomOutBySample();
  EXPECT_EQ(series.begun, before);
  TheGraph().ZoomOutFull();
  EXPECT_EQ(series.begun, before + 1) << "also of a whole interval";
  series.iLCursor = 10;
  series.iRCursor = 20;
  TheGraph().ZoomInByCursor();
  TheGraph().ZoomInByCursor();
  EXPECT_EQ(Shown(), Interval(10, 21));
  EXPECT_EQ(series.begun, before + 2);
  EXPECT_DOUBLE_EQ(axis.hor.max, 0.020);
  ExpectTrueColumns();
}

TEST_F(ZoomTest, BarsShowWherePartOfTheDataIsShown) {
  Show(1000);
  EXPECT_EQ(Bars(), "");
  TheGraph().ZoomInBySample();
  EXPECT_EQ(Bars(), "h");
  EXPECT_EQ(Bar(SB_HORZ), (SCROLLINFO{0, 999, 500, 250, 0}));

  TheGraph().OnYAutoZoom();
  SetVer(series.yGlobalMinGet(), series.yGlobalMaxGet());
  EXPECT_EQ(Bars(), "h");
  const double all = series.yGlobalIntervalGet(), top = series.yGlobalMaxGet() - 0.2 * all;
  SetVer(top - 0.31 * all, top);
  EXPECT_EQ(Bars(), "hv");
  // 64.5 steps in all of the data; the thumb is 12.9 of them below the top.
  EXPECT_EQ(Bar(SB_VERT), (SCROLLINFO{0, 64, 20, 13, 0}));
  TheGraph().OnYAutoZoom();
  EXPECT_EQ(Bars(), "h") << "the range follows the samples";
  series.Reset();
  view->UpdateGraph();
  EXPECT_EQ(Bars(), "");
}

TEST_F(ZoomTest, AChangeOfBarsIsNoChangeOfSize) {
  Show(9000);
  Window().onShowScrollBar = [this] { Window().Resize({600, 400}); };
  Graph::LockResizing();
  const int before = series.begun;
  TheGraph().ZoomInBySample();
  EXPECT_EQ(series.begun, before + 1);
  Window().onShowScrollBar = nullptr;
  Window().Resize({700, 400});
  EXPECT_EQ(series.begun, before + 2) << "resizing is free again";
}

TEST_F(ZoomTest, EditedRangesAreTaken) {
  FakeEditor editor;
  Show(1000);
  for (const double max : {0.3005, std::nan("")}) {
    editor.max = max;
    TheGraph().OnXRange();
    EXPECT_EQ(axis.hor.min, 0.3005) << "entered the wrong way round";
    EXPECT_EQ(Shown(), Interval(300, 602));
    const int rendered = series.begun;
    ZoomAll();
    EXPECT_EQ(series.begun, rendered) << "a fixed axis isn't zoomed";
  }
  ExpectTrueColumns();
}

TEST_F(ZoomTest, NoZoomCutsAPeakOff) {
  std::mt19937 random(1);
  const auto any = [&] { return static_cast<unsigned>(random()) % 60000; };
  for (const bool walk : {false, true}) {
    Points points;
    double y = 0.0;
    for (int i = 0; i < 60000; ++i) {
      y = std::normal_distribution<double>(walk ? y : 0.0)(random);
      points.emplace_back(i * 1e-3, y);
    }
    Fill(series, points);
    for (int i = 0; i < 1000; ++i) {
      const auto [from, to] = std::minmax({any(), any()});
      series.SetFrom(from);
      series.SetTo(to + 2);
      view->UpdateGraph();
      YRange shown;
      for (unsigned k = series.GetFrom(); k < series.GetTo(); ++k)
        shown.Include(series.yGet(k));
      ASSERT_EQ(axis.ver.min, shown.low) << from << " to " << to;
      ASSERT_EQ(axis.ver.max, shown.high) << from << " to " << to;
    }
  }
  EXPECT_TRUE(AwaitIdle());
}

TEST_F(ZoomTest, OddSeriesStayInsideThemselves) {
  for (const Points& points :
       {Points{}, {{5, 7}}, {{5, 1}, {5, 2}, {5, 3}}, {{-1e308, -1e308}, {0, 1}, {1e308, 1e308}}}) {
    SCOPED_TRACE(points.size());
    Show(points);
    Window().bars[SB_VERT].nTrackPos = kFar;
    for (const bool yAutoZoom : {true, false}) {
      axis.yAutoZoom = yAutoZoom;
      ZoomAll();
      Box({-kFar, -kFar}, {kFar, kFar});
      TheGraph().Scroll(kFar);
      TheGraph().ScrollTo(0xFFFFFFFF);
      TheGraph().yScroll(true);
      TheGraph().yScrollDo();
      Pump();
      EXPECT_LE(series.GetTo(), series.GetSize());
      EXPECT_EQ(series.GetIntervalSize() > 0, !points.empty());
      EXPECT_EQ(axis.Valid(), !points.empty());
      EXPECT_GE(Bar(SB_VERT).nMax, 0);
    }
  }
}

}  // namespace
}  // namespace sparlow
