// One small update of a live graph, from the samples to the window's pixels: leaves what ran in each
// part of the road below a folder of its own. Arguments: the folder for these.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "sparlow/platform/qt/Application.h"
#include "sparlow/sparlow.h"

extern "C" void __gcov_dump();
extern "C" void __gcov_reset();

using namespace sparlow;

namespace {

std::string folder;

/// What ran since the last call was this part.
void ranIn(const char* part) {
  setenv("GCOV_PREFIX", (folder + "/" + part).c_str(), 1);
  __gcov_dump();
  __gcov_reset();
}

struct RoadView : CSingleGraphView {
  void OnDraw(CDC* dc) override {
    if (measured)
      ranIn("update");
    CSingleGraphView::OnDraw(dc);
    if (measured)
      ranIn("paint");
  }
  bool measured = false;
};

std::string pixels(CWnd& window) {
  const std::string path = folder + "/window.png";
  qt::SavePicture(window, path);
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void feed(ViewData& series, unsigned samples) {
  series.InitBlockTransfer();
  for (unsigned i = 0; i < samples; ++i) {
    const double t = series.GetSize() * 1e-3;
    series.Add(t, std::exp(-t) * std::sin(20 * t));
  }
  series.TermBlockTransfer();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2)
    return 2;
  folder = argv[1];
  qt::Application app(argc, argv);
  GraphAxis axis;
  ViewData series;
  series.Init("Damped oscillation");
  series.SetUnits("V");
  auto* view = new RoadView;
  view->Create();
  view->CreateGraph(&axis);
  view->AddViewData(&series);
  view->SetActive(true);
  qt::Resize(*view, 900, 420);
  view->ShowWindow(true);
  series.InitDataTransfer(false);
  feed(series, 1000);
  view->UpdateGraph();
  app.ProcessEvents();
  const std::string before = pixels(*view);
  const HWND window = view->GetSafeHwnd();

  view->measured = true;
  __gcov_reset();
  std::thread([&] {
    feed(series, 50);
    ranIn("add");
    PostMessage(window, WM_UPDATE_GRAPH, 0, 0);
    ranIn("post");
  }).join();
  app.ProcessEvents();
  ranIn("screen");
  view->measured = false;

  const bool shown = pixels(*view) != before;
  if (!shown)
    std::fputs("road: the new samples are not in the window\n", stderr);
  series.TermDataTransfer();
  view->DestroyWindow();
  series.Term();
  // What comes after is no part of the road.
  std::_Exit(shown ? 0 : 1);
}
