#pragma once

#include "tests/graph/GraphTest.h"
#include "tests/support/Doubled.h"

namespace sparlow {

using test::Doubled;

struct TestMulti : MultiGraphWithMasks {
  using Graph::colors, Graph::markers;
  using MultiGraphWithMasks::MultiGraphWithMasks, MultiGraph::legendMaskWidth;
};
struct MultiView : TestView {
  std::unique_ptr<Graph> NewGraph(GraphAxis* axes) override {
    return std::make_unique<TestMulti>(axes);
  }
};

/// A view of a graph with masks, which has the series of the fixture and what the test adds.
class MultiTest : public GraphTest {
 protected:
  MultiTest() {
    CloseView();
    view = new MultiView;
    view->Create();
    Window().Resize({640, 480});
    view->CreateGraph(&axis);
    AddTo(false, &series);
    Fill(series, 11);
  }
  TestMulti& Multi() { return static_cast<TestMulti&>(TheGraph()); }
  ViewData* Active() { return Multi().GetActiveViewData(); }
  bool AddTo(bool masks, ViewData* data) {
    return masks ? Multi().AddMaskData(data) : Multi().AddViewData(data);
  }
  bool RemoveFrom(bool masks, ViewData* data) {
    return masks ? Multi().RemoveMaskData(data) : Multi().RemoveViewData(data);
  }
  GatedSeries& Add(const std::string& name, unsigned samples = 11) {
    GatedSeries& added = Make(name);
    Fill(added, samples);
    EXPECT_TRUE(AddTo(false, &added));
    return added;
  }
  /// An analysis of the fixture's series.
  Doubled& AddDoubled(const std::string& name, bool mask = true) {
    Doubled& added = Make<Doubled>(name, &series);
    EXPECT_TRUE(AddTo(mask, &added));
    return added;
  }
  /// The window as it is when nobody works any more.
  void Paint(bool update = true) {
    if (update)
      view->UpdateGraph();
    EXPECT_TRUE(AwaitIdle());
    RedrawWindow(view->GetSafeHwnd());
    Pump();
  }
  void Analyze(bool masks) {
    SendMessage(view->GetSafeHwnd(), masks ? WM_RECALC_MASK : WM_RECALC_ANALYSIS, 0, 0);
  }
  /// A worker has come to an analysis and stays there.
  void StayAt(Doubled& analysis, bool mask) {
    analysis.end = Doubled::waits;
    analysis.runs = 0;
    Analyze(mask);
    EXPECT_TRUE(PumpUntil([&] { return analysis.runs > 0; }));
  }
  static std::string Stroke(int width, COLORREF color) {
    return FormatText(" style 0 width %d color 0x%06X", width, color);
  }
  static int Count(const std::vector<std::string>& calls, const std::string& part) {
    int count = 0;
    for (const std::string& call : calls)
      count += call.find(part) != std::string::npos;
    return count;
  }
  bool Draws(const std::string& part) { return Count(Frame(), part) > 0; }
  /// The curve of a series, in strokes of that width.
  bool Draws(ViewData& data, int width) { return Draws(Stroke(width, data.GetColor())); }
};

}  // namespace sparlow
