// A drag of a cursor, by what reaches the surface.

#include <cstdio>
#include <stdexcept>

#include "bench/Report.h"
#include "bench/Series.h"
#include "bench/Topics.h"
#include "sparlow/sparlow.h"
#include "tests/support/TestWindows.h"

namespace sparlow::bench {

namespace {

class OpenView : public CSingleGraphView {
 public:
  Graph& TheGraph() { return *graph; }
};

/// Of one move of the left cursor.
struct Moved {
  std::size_t primitives = 0;
  double pixels = 0;  ///< copied
  bool frame = false;
  bool rendered = false;
  friend bool operator==(const Moved&, const Moved&) = default;
};

Moved measure(const test::RecordingDevice::Calls& calls) {
  Moved moved;
  for (const std::string& call : calls) {
    ++moved.primitives;
    int l = 0, t = 0, r = 0, b = 0;
    if (std::sscanf(call.c_str(), "Copy %d,%d %d,%d", &l, &t, &r, &b) == 4)
      moved.pixels += static_cast<double>(r - l) * (b - t);
    moved.frame = moved.frame || call.starts_with("memory: ");
  }
  return moved;
}

Moved moveCursor(unsigned samples) {
  const test::TestWindows system;
  WaveSeries& series = SharedSeries(Steps::even, samples);
  GraphAxis axis;
  auto* const view = new OpenView;
  view->Create();
  auto& window = test::TestWindows::Of(*view);
  window.Resize({1100, 600});
  view->CreateGraph(&axis);
  view->AddViewData(&series);
  view->SetActive(true);
  series.ResetInterval(&axis.hor);
  series.ResetCursor();
  view->UpdateGraph();
  test::TestWindows::PumpUntil([&] { return !view->RenderDue(); });
  Graph& graph = view->TheGraph();
  const auto dragTo = [&](int x) {
    CPoint point{x, 300};
    graph.DragCursor(point);
    test::TestWindows::Pump();
  };
  graph.BeginDragLeftCursor();
  dragTo(300);
  dragTo(310);
  window.surface->take();
  const int sentinel = series.xPos[0] = 123456;  // a render would write it anew
  dragTo(320);
  Moved moved = measure(window.surface->take());
  moved.rendered = series.xPos[0] != sentinel;
  graph.EndDragCursor();
  view->DestroyWindow();
  return moved;
}

std::string text(const Moved& moved) {
  char line[160];
  std::snprintf(line, sizeof line, "%zu primitives, %.0f pixels copied, %s, %s", moved.primitives,
                moved.pixels, moved.rendered ? "a render" : "no render",
                moved.frame ? "a frame" : "no frame");
  return line;
}

}  // namespace

void RegisterCursor() {
  Told([] {
    const Moved few = moveCursor(1000), many = moveCursor(Samples(100'000'000));
    if (few.primitives == 0)
      throw std::runtime_error("the cursor didn't move");
    return std::vector<Line>{{"Moving a cursor over 1000 samples", "no render, no frame", text(few),
                              !few.rendered && !few.frame},
                             {"The same over 100 million", "the same", text(many), many == few}};
  });
}

}  // namespace sparlow::bench
