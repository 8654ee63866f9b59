#include "sparlow/ui/CSingleGraphView.h"

#include "sparlow/platform/window/CDocument.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/ui/GraphMenu.h"
#include "sparlow/ui/Module.h"
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
    {WM_SPARLOW_COMMAND, Handle<View, &View::OnSparlowCommand>},
    {WM_INITMENUPOPUP, Handle<View, &View::OnInitMenuPopup>},
    {WM_COMMAND, HandleCommand<View, &View::OnGraphCommand>, ID_VIEW_SAMPLE_ZOOM_IN,
     ID_VIEW_FULL_ZOOM_OUT},
    {WM_COMMAND, HandleCommand<View, &View::OnGraphCommand>, ID_X_RANGE, ID_X_RANGE},
    {WM_COMMAND, HandleCommand<View, &View::OnGraphCommand>, ID_Y_RANGE, ID_Y_RANGE},
    {WM_COMMAND, HandleCommand<View, &View::OnGraphCommand>, ID_Y_AUTO_ZOOM, ID_Y_AUTO_ZOOM},
    {WM_LBUTTONDOWN, Handle<View, &View::OnLButtonDown>},
    {WM_LBUTTONUP, Handle<View, &View::OnLButtonUp>},
    {WM_LBUTTONDBLCLK, Handle<View, &View::OnLButtonDblClk>},
    {WM_RBUTTONDOWN, Handle<View, &View::OnRButtonDown>},
    {WM_MOUSEMOVE, Handle<View, &View::OnMouseMove>},
    {WM_CAPTURECHANGED, Handle<View, &View::OnCaptureChanged>},
    {WM_KEYDOWN, Handle<View, &View::OnKeyDown>},
    {WM_KEYUP, Handle<View, &View::OnKeyUp>},
    {WM_HSCROLL, Handle<View, &View::OnHScroll>},
    {WM_VSCROLL, Handle<View, &View::OnVScroll>},
    {WM_SETFOCUS, Handle<View, &View::OnSetFocus>},
    {WM_KILLFOCUS, Handle<View, &View::OnKillFocus>},
    {WM_ACTIVATE, Handle<View, &View::OnActivate>},
};
const MessageMap View::messageMap{&CView::messageMap, messageEntries};

CObject* View::CreateObject() {
  return new CSingleGraphView;
}

View::CSingleGraphView() {
  AttachResources();
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

void View::endZoomBox() {
  if (gesture.Now() == MouseGesture::box)
    OnCaptureChanged(0, 0);
}

void View::UpdateGraph() {
  if (!graph)
    return;
  const WindowHold hold(GetSafeHwnd());
  // The box was drawn on the axes as they are now.
  endZoomBox();
  graph->UpdateGraph();
}

void View::ChangeAxes(const std::function<void(GraphAxis&)>& change) {
  if (!graph)
    return;
  const WindowHold hold(GetSafeHwnd());
  endZoomBox();
  graph->ChangeAxes(change);
}

void View::SetActive(bool active) {
  if (!graph)
    return;
  const WindowHold hold(GetSafeHwnd());
  graph->active = active;
  if (active)
    graph->UpdateCursorsReadout();
  InvalidateRect(GetSafeHwnd(), nullptr, true);
}

void View::SetColors(GraphColors& colors) {
  if (!graph)
    return;
  const WindowHold hold(GetSafeHwnd());
  graph->SetColors(&colors);
  drawAll();
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
  activate(&Graph::SetActive, index);
}

void View::activate(void (Graph::*which)(int), int index) {
  if (!graph)
    return;
  const WindowHold hold(GetSafeHwnd());
  (graph.get()->*which)(index);
  if (CDocument* const document = GetSafeHwnd() ? GetDocument() : nullptr)
    document->SetTitle(graph->GetName());
}

void View::Print(CDC* dc, const CRect& rect) {
  if (graph)
    graph->Print(dc, rect);
}

bool View::PreCreateWindow(CREATESTRUCT& create) {
  create.style |= WS_HSCROLL | WS_VSCROLL;
  return CView::PreCreateWindow(create);
}

void View::OnDraw(CDC*) {
  // The graph paints the whole client area by itself, from its own bitmap.
  if (graph)
    drawAll();
}

LRESULT View::OnCreate(WPARAM, LPARAM) {
  if (Default() == -1)
    return -1;
  gesture = {};
  _CreateGraph();
  return 0;
}

LRESULT View::OnDestroy(WPARAM, LPARAM) {
  dropGesture();
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
