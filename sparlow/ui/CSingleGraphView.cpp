#include "sparlow/ui/CSingleGraphView.h"

#include "sparlow/platform/CDocument.h"
#include "sparlow/platform/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

using View = CSingleGraphView;

const CRuntimeClass View::classCSingleGraphView{"CSingleGraphView", View::CreateObject,
                                                &CView::classCView};
const MessageEntry View::messageEntries[] = {
    {WM_CREATE, Handle<View, &View::OnCreate>},
    {WM_DESTROY, Handle<View, &View::OnDestroy>},
    {WM_SIZE, Handle<View, &View::OnSize>},
    {WM_ERASEBKGND, Handle<View, &View::OnEraseBkgnd>},
    {WM_UPDATE_GRAPH, Handle<View, &View::OnUpdateGraph>},
    {WM_RECALC_ANALYSIS, Handle<View, &View::OnRecalcAnalysis>},
    {WM_RECALC_MASK, Handle<View, &View::OnRecalcMask>},
};
const MessageMap View::messageMap{&CView::messageMap, messageEntries};

CObject* View::CreateObject() {
  return new CSingleGraphView;
}

View::~CSingleGraphView() {
  // A view that is deleted with its window has had no WM_DESTROY.
  if (graph)
    graph->Destroy();
}

std::unique_ptr<Graph> View::NewGraph(GraphAxis* axis) {
  return std::make_unique<Graph>(axis);
}

void View::CreateGraph(GraphAxis* axis) {
  if (graph || !axis || !GetSafeHwnd())
    return;
  graph = NewGraph(axis);
  graph->Create(GetSafeHwnd());
}

bool View::AddViewData(ViewData* data) {
  return graph && graph->AddViewData(data);
}

bool View::DataValid() const {
  return graph && graph->DataAndAxisValid();
}

void View::UpdateGraph() {
  if (graph)
    graph->UpdateGraph();
}

void View::ChangeAxes(const std::function<void(GraphAxis&)>& change) {
  if (graph)
    graph->ChangeAxes(change);
}

void View::SetActive(bool active) {
  if (!graph)
    return;
  graph->active = active;
  if (active)
    graph->UpdateCursorsReadout();
  InvalidateRect(GetSafeHwnd(), nullptr, true);
}

void View::SetColors(GraphColors& colors) {
  if (!graph)
    return;
  graph->SetColors(&colors);
  graph->DrawAll();
}

void View::Clear() {
  if (graph)
    graph->Clear();
}

void View::SetInfoBar(HWND bar) {
  if (graph)
    Graph::SetInfoBar(bar);
}

void View::OnGraphActivated(int index) {
  graph->SetActive(index);
  if (CDocument* const document = GetDocument())
    document->SetTitle(graph->GetName());
}

bool View::PreCreateWindow(CREATESTRUCT& create) {
  create.style |= WS_HSCROLL | WS_VSCROLL;
  return CView::PreCreateWindow(create);
}

void View::OnDraw(CDC*) {
  // The graph paints the whole client area by itself, from its own bitmap.
  if (graph)
    graph->DrawAll();
}

LRESULT View::OnCreate(WPARAM, LPARAM) {
  if (Default() == -1)
    return -1;
  _CreateGraph();
  return 0;
}

LRESULT View::OnDestroy(WPARAM, LPARAM) {
  if (graph)
    graph->Destroy();
  return Default();
}

LRESULT View::OnSize(WPARAM, LPARAM) {
  const LRESULT result = Default();
  if (graph)
    graph->ResizeGraph();
  return result;
}

LRESULT View::OnEraseBkgnd(WPARAM, LPARAM) {
  return 0;
}

LRESULT View::OnUpdateGraph(WPARAM, LPARAM) {
  UpdateGraph();
  return 0;
}

LRESULT View::OnRecalcAnalysis(WPARAM, LPARAM) {
  if (graph)
    graph->AnalyzeAll();
  return 0;
}

LRESULT View::OnRecalcMask(WPARAM, LPARAM) {
  if (graph)
    graph->AnalyzeMask();
  return 0;
}

}  // namespace sparlow
