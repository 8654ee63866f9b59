#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <thread>

#include "sparlow/platform/base/Threads.h"
#include "sparlow/sparlow.h"
#include "tests/support/FoldModel.h"
#include "tests/support/GatedSeries.h"
#include "tests/support/TestWindows.h"

namespace sparlow {

using test::GatedSeries;
using test::TestWindow;
using test::TestWindows;

/// Until something that another thread does has come.
template <class Condition>
void Spin(const Condition& holds) {
  while (!holds())
    std::this_thread::yield();
}

/// A view whose graph the tests can reach, and what a host may do in its own code.
class TestView : public CSingleGraphView {
 public:
  Graph& TheGraph() { return *graph; }

  std::function<void(UINT)> afterMessage;
  std::function<void(CDC&)> inOverlay;

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    const auto then = afterMessage;
    const LRESULT result = CSingleGraphView::WindowProc(message, wParam, lParam);
    if (then)
      then(message);
    return result;
  }

 protected:
  std::unique_ptr<Graph> NewGraph(GraphAxis* axes) override {
    struct HostGraph : Graph {
      HostGraph(GraphAxis* shared, TestView& owner) : Graph(shared), view(owner) {}
      void DrawCustomOverlay(CDC* dc) override {
        if (const auto hook = std::exchange(view.inOverlay, nullptr))
          hook(*dc);
      }
      TestView& view;
    };
    return std::make_unique<HostGraph>(axes, *this);
  }
};

/// One view with one series, in a window that opens nothing. The verbs below are what tests say.
class GraphTest : public ::testing::Test {
 protected:
  GraphTest() {
    series.Init("Delay", nullptr);
    OpenView();
  }
  ~GraphTest() override {
    series.OpenGate();
    if (view)
      view->afterMessage = nullptr;  // it may use what the test had on its stack
    CloseView();
    SetThreadStarter(nullptr);
    SourceData::nLastSamplesToDraw = 0;
    Graph::SetInfoBar(nullptr);
    Graph::RestrictGraphOperationInRealTime = true;
    Graph::UnlockResizing();
    for (const auto& one : owned)
      one->Term();
    series.Term();
  }

  void OpenView() { OpenView(series); }
  void OpenView(ViewData& shown) {
    CloseView();
    view = new TestView;
    ASSERT_TRUE(view->Create());
    Window().Resize({640, 480});
    view->CreateGraph(&axis);
    ASSERT_TRUE(view->AddViewData(&shown));
  }
  void CloseView() {
    if (view)
      view->DestroyWindow();
    view = nullptr;
  }

  /// One more series, which lasts as long as the fixture.
  template <class T = GatedSeries>
  T& Make(const std::string& name, SourceData* source = nullptr) {
    owned.push_back(std::make_unique<T>());
    owned.back()->Init(name.c_str(), source);
    return static_cast<T&>(*owned.back());
  }

  TestWindow& Window() { return TestWindows::Of(*view); }
  Graph& TheGraph() { return view->TheGraph(); }
  void Pump() { TestWindows::Pump(); }
  bool PumpUntil(const std::function<bool()>& holds) { return TestWindows::PumpUntil(holds); }
  bool AwaitIdle() {
    return PumpUntil([this] { return TheGraph().Settled(); });
  }

  static void Begin(ViewData& data) { data.InitDataTransfer(false); }
  static void AddBlock(ViewData& data, unsigned n) {
    data.InitBlockTransfer();
    for (unsigned i = 0; i < n; ++i) {
      const unsigned k = data.GetSize();
      data.Add(k * 1e-3, std::sin(k * 0.01) + 0.25 * std::sin(k * 1.7), false);
    }
    data.TermBlockTransfer();
  }
  /// A transfer of n samples, one a millisecond.
  static void Fill(ViewData& data, unsigned n) {
    Begin(data);
    AddBlock(data, n);
    data.TermDataTransfer();
  }
  using Points = std::vector<std::pair<double, double>>;
  static void AddPoints(ViewData& data, const Points& points) {
    data.InitBlockTransfer();
    for (const auto& [x, y] : points)
      data.Add(x, y, false);
    data.TermBlockTransfer();
  }
  static void Fill(ViewData& data, const Points& points) {
    Begin(data);
    AddPoints(data, points);
    data.TermDataTransfer();
  }
  /// Fills the series, or adds to it, and updates the graph.
  void Show(unsigned n) {
    Fill(series, n);
    view->UpdateGraph();
  }
  void Show(const Points& points) {
    Fill(series, points);
    view->UpdateGraph();
  }
  void ShowMore(unsigned n) {
    AddBlock(series, n);
    view->UpdateGraph();
  }
  /// Does what tells a worker at the gate to stop and waits for it.
  static void StopAtGate(GatedSeries& gated, const std::function<void()>& action) {
    gated.AwaitWorker();
    const std::jthread opener([&] {
      Spin([&] { return gated.renderStop || gated.IsAborted(); });
      gated.OpenGate();
    });
    action();
  }
  /// A worker stands at the gate, in the middle of a render of n samples.
  void StartGatedRender(unsigned n = 20000) {
    series.CloseGate();
    Show(n);
    series.AwaitWorker();
  }

  bool RenderDue() { return TheGraph().RenderDue(); }
  CSize Plot() {
    CPoint corner{1 << 20, 1 << 20};
    TheGraph().Clip(corner);
    return {corner.x, corner.y};
  }

  /// What the last frame was painted of, from its background to its copy to the window.
  std::vector<std::string> Frame() {
    const auto& calls = Window().surface->calls();
    std::size_t begin = calls.size();
    while (begin > 0 && !calls[--begin].starts_with("memory: FillRect 0,0 ")) {
    }
    std::vector<std::string> frame(calls.begin() + static_cast<std::ptrdiff_t>(begin), calls.end());
    for (std::string& call : frame)
      call = call.substr(call.starts_with("memory: ") ? 8 : 0);
    return frame;
  }
  /// The last frame has a text that reads so.
  bool Shows(const std::string& text) {
    for (const std::string& call : Frame()) {
      if (call.starts_with("Text ") && call.find('"' + text + '"') != std::string::npos)
        return true;
    }
    return false;
  }
  /// The columns are those that a fresh render of the same samples gives.
  void ExpectTrueColumns() {
    ViewData fresh(series);
    fresh.Render(&axis, true);
    EXPECT_EQ(test::columnsOf(series), test::columnsOf(fresh));
  }

  TestWindows system;
  GraphAxis axis;
  GatedSeries series;
  std::vector<std::unique_ptr<ViewData>> owned;
  TestView* view = nullptr;
};

}  // namespace sparlow
