#include <cmath>

#include "sparlow/platform/qt/Application.h"
#include "sparlow/sparlow.h"

using namespace sparlow;

int main(int argc, char** argv) {
  qt::Application app(argc, argv);
  GraphAxis axis;
  ViewData series;
  series.Init("Damped oscillation");
  series.SetUnits("V");
  auto* view = static_cast<CSingleGraphView*>(CSingleGraphView::CreateObject());
  view->Create();
  view->CreateGraph(&axis);
  view->AddViewData(&series);
  view->SetActive(true);
  series.InitDataTransfer(false);
  series.InitBlockTransfer();
  for (double t = 0; t < 1; t += 1e-6)
    series.Add(t, std::exp(-5 * t) * std::sin(200 * t));
  series.TermBlockTransfer();
  series.TermDataTransfer();
  view->UpdateGraph();
  view->ShowWindow(true);
  const int status = app.HasDisplay() ? app.Exec() : !view->DataValid() || !view->DestroyWindow();
  series.Term();
  return status;
}
