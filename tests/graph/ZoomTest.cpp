// What zooms, scrolls and edited ranges make of interval, axes and scroll bars.

#include <limits>
#include <utility>

#include "sparlow/graph/AxisRangeEditor.h"
#include "tests/graph/GraphTest.h"

namespace sparlow {
namespace {

using Interval = std::pair<unsigned, unsigned>;
constexpr int kFar = std::numeric_limits<int>::max();

/// Stands for the user at the dialog.
struct FakeEditor : AxisRangeEditor {
  FakeEditor() { Install(this); }
  ~FakeEditor() override { Install(nullptr); }
  void Edit(AxisRange& range) override {
    given = range;
    edit(range);
  }
  AxisRange given;
  std::function<void(AxisRange&)> edit = [](AxisRange&) {};
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
  // One that changes nothing is taken off the window at once, without a render.
  Show(1000);
  axis.yAutoZoom = false;
  Window().surface->take();
  const int before = series.begun;
  Box({0, 10}, {Plot().cx, 15});
  EXPECT_EQ(series.begun, before);
  EXPECT_FALSE(Window().surface->calls().empty());
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

TEST_F(ZoomTest, VerticalScrolls) {
  Show(1000);
  TheGraph().OnYAutoZoom();
  TheGraph().ZoomInBySample();
  SetVer(0, 10);
  TheGraph().yScroll(true);
  EXPECT_DOUBLE_EQ(axis.ver.max, 10.5);
  SetVer(0, 10);
  TheGraph().yScroll(false);
  EXPECT_DOUBLE_EQ(axis.ver.min, -0.5);
  Window().bars[SB_VERT].nTrackPos = 7;
  TheGraph().yScrollDo();
  EXPECT_DOUBLE_EQ(axis.ver.max, series.yGlobalMaxGet() - 3.5);
  EXPECT_DOUBLE_EQ(axis.ver.range, 10);
  ExpectTrueColumns();
}

TEST_F(ZoomTest, BarsShowWherePartOfTheDataIsShown) {
  Show(1000);
  EXPECT_EQ(Bars(), "");
  TheGraph().ZoomInBySample();
  EXPECT_EQ(Bars(), "h");
  EXPECT_EQ(Bar(SB_HORZ), (SCROLLINFO{0, 999, 500, 250, 0}));

  TheGraph().OnYAutoZoom();
  const double all = series.yGlobalIntervalGet(), top = series.yGlobalMaxGet() - 0.2 * all;
  SetVer(top - 0.31 * all, top);
  EXPECT_EQ(Bars(), "hv");
  // 64.5 steps in all of the data; the thumb is 12.9 of them below the top.
  EXPECT_EQ(Bar(SB_VERT), (SCROLLINFO{0, 64, 20, 13, 0}));
  TheGraph().OnYAutoZoom();
  EXPECT_EQ(Bars(), "h") << "the range follows the samples";
  TheGraph().OnYAutoZoom();
  SetVer(top - 1.1 * all, top);
  EXPECT_EQ(Bars(), "h") << "the range is wider than the data";
  SetVer(top - 0.31 * all, top);
  EXPECT_EQ(Bars(), "hv");
  series.Reset();
  view->UpdateGraph();
  EXPECT_EQ(Bars(), "");
}

TEST_F(ZoomTest, AChangeOfBarsIsNoChangeOfSizeAndMayEndTheView) {
  Show(9000);
  Window().onShowScrollBar = [this] { Window().Resize({600, 400}); };
  Graph::LockResizing();
  const int before = series.begun;
  TheGraph().ZoomInBySample();
  EXPECT_EQ(series.begun, before + 1);
  Window().onShowScrollBar = nullptr;
  Window().Resize({700, 400});
  EXPECT_EQ(series.begun, before + 2) << "resizing is free again";
  for (int left : {1, 2}) {
    Window().onShowScrollBar = [&] {
      if (--left == 0)
        CloseView();
    };
    TheGraph().ZoomInBySample();
    EXPECT_EQ(view, nullptr);
    OpenView({640, 480});
    view->UpdateGraph();
  }
}

TEST_F(ZoomTest, AZoomWaitsForARenderAndAsksForTheNext) {
  StartGatedRender(60000);
  unsigned meanwhile = 0;
  std::thread opener([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    meanwhile = series.GetIntervalSize();
    series.OpenGate();
  });
  TheGraph().ZoomInBySample();
  opener.join();
  EXPECT_EQ(meanwhile, 60000u);
  ASSERT_TRUE(AwaitIdle());
  series.CloseGate();
  TheGraph().Scroll(100);
  EXPECT_TRUE(RenderDue());
  series.OpenGate();
  ASSERT_TRUE(AwaitIdle());
  EXPECT_EQ(Shown(), Interval(15100, 45100));
  EXPECT_TRUE(PipelineIsFree());
  ExpectTrueColumns();
}

TEST_F(ZoomTest, OddSeriesStayInsideThemselves) {
  const std::function<void(Graph&)> steps[] = {
      [this](Graph&) { ZoomAll(); },
      [this](Graph&) {
        Box({-kFar, -kFar}, {kFar, kFar});
        Box({kFar, kFar}, {-kFar, -kFar});
      },
      [](Graph& graph) { graph.Scroll(kFar); },
      [](Graph& graph) { graph.Scroll(-kFar - 1); },
      [](Graph& graph) { graph.ScrollTo(0xFFFFFFFF); },
      [](Graph& graph) { graph.yScroll(true), graph.yScrollDo(); },
  };
  for (const Points& points :
       {Points{}, {{5, 7}}, {{5, 1}, {5, 2}, {5, 3}}, {{-1e308, -1e308}, {0, 1}, {1e308, 1e308}}}) {
    Fill(series, points);
    view->UpdateGraph();
    Window().bars[SB_VERT].nTrackPos = kFar;
    for (const bool yAutoZoom : {true, false}) {
      axis.yAutoZoom = yAutoZoom;
      for (const auto& step : steps) {
        SCOPED_TRACE(FormatText("%zu samples, step %td", points.size(), &step - steps));
        step(TheGraph());
        ASSERT_LE(series.GetTo(), series.GetSize());
        ASSERT_EQ(series.GetIntervalSize() > 0, !points.empty());
        ASSERT_EQ(axis.Valid(), !points.empty());
        ASSERT_GE(Bar(SB_VERT).nMax, 0);
        Pump();
      }
    }
  }
}

TEST_F(ZoomTest, EditedRangesAreTaken) {
  TheGraph().OnXRange();  // nobody edits
  FakeEditor editor;
  Show(1000);
  TheGraph().ZoomInBySample();
  const int before = series.begun;
  TheGraph().OnXRange();
  EXPECT_EQ(editor.given.unit, "s");
  EXPECT_EQ(editor.given.min, 0.25);
  EXPECT_EQ(series.begun, before + 1) << "also after a cancel";
  EXPECT_EQ(Shown(), Interval(0, 1000));

  struct Case {
    AxisRange range;
    double min, max;
    Interval shown;
  };
  // Sorted, if they are the wrong way round; no range without numbers.
  for (const Case& c : {Case{{0.2005, 0.4005, false, ""}, 0.2005, 0.4005, {200, 402}},
                        Case{{0.6005, 0.3005, false, ""}, 0.3005, 0.6005, {300, 602}},
                        Case{{-INFINITY, 0.7, false, ""}, 0.3005, 0.6005, {300, 602}},
                        Case{{0.4, std::nan(""), false, ""}, 0.3005, 0.6005, {300, 602}}}) {
    editor.edit = [&](AxisRange& range) { range = c.range; };
    TheGraph().OnXRange();
    EXPECT_EQ(axis.hor.min, c.min);
    EXPECT_EQ(axis.hor.max, c.max);
    EXPECT_EQ(Shown(), c.shown);
    const int rendered = series.begun;
    ZoomAll();
    EXPECT_EQ(series.begun, rendered) << "a fixed axis isn't zoomed";
  }
  TheGraph().yScroll(true);
  EXPECT_EQ(Bars(), "");
  ExpectTrueColumns();
}

TEST_F(ZoomTest, AnEditedRangeWithoutDataIsTakenToo) {
  FakeEditor editor;
  editor.edit = [](AxisRange& range) { range = {-2, 3, false, ""}; };
  TheGraph().OnYRange();
  EXPECT_EQ(axis.ver.min, -2.0);
  EXPECT_EQ(series.begun, 0);
}

}  // namespace
}  // namespace sparlow
