#include <cstdio>

#include "sparlow/platform/qt/Application.h"
#include "sparlow/sparlow.h"

// Shows a ramp in a view of its own and asks the view whether it has something to show.
int main(int argc, char** argv) {
  sparlow::qt::Application application(argc, argv);
  sparlow::GraphAxis axis;
  sparlow::ViewData series;
  series.Init("ramp", nullptr);

  auto* view = static_cast<sparlow::CSingleGraphView*>(sparlow::CSingleGraphView::CreateObject());
  view->Create();
  view->CreateGraph(&axis);
  view->AddViewData(&series);
  series.InitDataTransfer(false);
  series.InitBlockTransfer();
  for (int i = 0; i < 500; ++i)
    series.Add(i, 2.0 * i, false);
  series.TermBlockTransfer();
  series.TermDataTransfer();
  view->UpdateGraph();

  const bool valid = view->DataValid();
  std::printf("%s\n", valid ? "data on show" : "nothing on show");
  view->DestroyWindow();
  series.Term();
  return valid ? 0 : 1;
}
