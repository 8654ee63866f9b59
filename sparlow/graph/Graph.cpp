#include "sparlow/graph/Graph.h"

#include "sparlow/platform/CMenu.h"
#include "sparlow/platform/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

/// The scheme of every new graph.
GraphColors& defaultColors() {
  static GraphColors scheme0;
  return scheme0;
}

/// Empties a series that nobody renders, unless somebody fills it: an analysis, which holds its
/// threadsMutex, or a transfer of another thread's.
bool emptyUnlessFilled(ViewData& series) {
  CMutex* const threads = series.threadsMutex;
  if (threads && !threads->TryLock())
    return false;
  const bool emptied = series.TryReset();
  if (threads)
    threads->Unlock();
  return emptied;
}

}  // namespace

Graph::Graph(GraphAxis* sharedAxis)
    : axis(sharedAxis),
      colors(&defaultColors()),
      lCursor(std::make_unique<Cursor>()),
      rCursor(std::make_unique<Cursor>()),
      workers(std::make_shared<GraphWorkers>()) {
  lCursor->SetColor(colors->cursorLeft);
  rCursor->SetColor(colors->cursorRight);
}

Graph::~Graph() = default;

void Graph::Create(HWND window) {
  hWnd = window;
  if (!memDC) {
    const HDC dc = GetDC(hWnd);
    memDC = CreateCompatibleDC(dc);
    ReleaseDC(hWnd, dc);
  }
  ShowScrollBar(hWnd, SB_BOTH, false);
}

bool Graph::AddViewData(ViewData* series) {
  if (!series || activeViewData)
    return false;
  SetViewData(series);
  return true;
}

bool Graph::RemoveViewData(ViewData*) {
  return false;
}
bool Graph::AddMaskData(ViewData*) {
  return false;
}
bool Graph::RemoveMaskData(ViewData*) {
  return false;
}
void Graph::SetActive(int) {}
void Graph::SetActiveMask(int) {}
void Graph::RemoveActiveGraph() {}

void Graph::SetViewData(ViewData* series) {
  if (!series)
    return;
  whileNobodyRenders([&] {
    if (workers->Count() == 0)
      former.clear();
    else if (ViewData* const replaced = activeViewData; replaced && replaced != series)
      former.push_back(replaced);
    activeViewData = series;
    series->SetColor(colors->trace);
    return true;
  });
}

const char* Graph::GetName() const {
  const ViewData* const series = activeViewData;
  return series ? series->GetName().c_str() : nullptr;
}

void Graph::SetColors(GraphColors* scheme) {
  if (!scheme)
    return;
  colors = scheme;
  lCursor->SetColor(colors->cursorLeft);
  rCursor->SetColor(colors->cursorRight);
  if (ViewData* const series = activeViewData)
    series->SetColor(colors->trace);
}

void Graph::Clear() {
  const bool cleared = whileNobodyRenders([this] {
    ViewData* const series = activeViewData;
    if (!series || !emptyUnlessFilled(*series))
      return false;
    series->ResetUnits();
    if (axis)
      axis->Reset();
    return true;
  });
  if (!cleared)
    return;
  RedrawWindow(hWnd, RDW_INVALIDATE);
  ShowScrollBar(hWnd, SB_BOTH, false);
}

bool Graph::DataValid() const {
  const ViewData* const series = activeViewData;
  return series && series->Valid();
}

bool Graph::DataAndAxisValid() const {
  return axis && DataValid() && axis->Valid();
}

std::vector<ViewData*> Graph::AllSeries() const {
  ViewData* const series = activeViewData;
  return series ? std::vector<ViewData*>{series} : std::vector<ViewData*>{};
}

void Graph::defineMinMax() {
  ViewData* const series = activeViewData;
  series->SetIntervalParams();
  const IntervalBounds bounds = series->GetBoundsOnShow();
  xMin = bounds.xMin;
  xMax = bounds.xMax;
  yMin = bounds.yMin;
  yMax = bounds.yMax;
}

void Graph::ResetInterval() {
  activeViewData.load()->ResetInterval(&axis->hor);
}

void Graph::zoomOutFullPrimary() {
  activeViewData.load()->ZoomOutFull(&axis->hor);
}

bool Graph::AnalyzeEach() {
  return analyze(activeViewData, &SourceData::Analyze);
}

bool Graph::AnalyzeEachNewMask() {
  return false;
}

COLORREF Graph::GetPixel(CPoint point) {
  constexpr COLORREF none = 0xFFFFFFFF;
  CPoint inPlot = point;
  Clip(inPlot);
  if (inPlot.x < 1 || inPlot.x >= width || inPlot.y < 1 || inPlot.y >= height || !memDC ||
      !memBitmap)
    return none;
  CDC dc(memDC);
  const HBITMAP before = dc.SelectObject(memBitmap);
  const COLORREF color = dc.GetPixel(point);
  dc.SelectObject(before);
  return color;
}

COLORREF Graph::CurvePixel(CPoint point) {
  const COLORREF color = GetPixel(point);
  return color == frameBackground ? 0xFFFFFFFF : color;
}

bool Graph::GetViewDataByPoint(ViewData** series, int* index, bool* isMask, CPoint point) {
  ViewData* const candidate = activeViewData;
  if (!candidate || CurvePixel(point) != candidate->GetColor())
    return false;
  if (series)
    *series = candidate;
  if (index)
    *index = 0;
  if (isMask)
    *isMask = false;
  return true;
}

CMenu* Graph::CreateCustomPopupMenu(CMenu& menu) {
  const ViewData* const series = activeViewData;
  if (!series || !menu.LoadMenu(static_cast<std::uint16_t>(series->GetMenuID())))
    return nullptr;
  return menu.GetSubMenu(0);
}

}  // namespace sparlow
