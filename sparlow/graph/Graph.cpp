#include "sparlow/graph/GraphParts.h"

#include "sparlow/data/DataLock.h"
#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/CMenu.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

namespace {

/// The scheme of every new graph.
GraphColors& defaultColors() {
  static GraphColors scheme0;
  return scheme0;
}

}  // namespace

Graph::Graph(GraphAxis* sharedAxis)
    : axis(sharedAxis), colors(&defaultColors()), parts(std::make_unique<Parts>(*this)) {
  markers.SetColors(*colors);
}

Graph::~Graph() = default;

void Graph::Create(HWND window) {
  hWnd = window;
  parts->frame.Create(hWnd);
  parts->bars.Create(hWnd);
  parts->bars.Hide();
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
  changeInTurn([&] {
    readmit(series);
    activeViewData = series;
    series->SetColor(colors->trace);
    return true;
  });
}

const char* Graph::GetName() const {
  const ViewData* const series = GetActiveViewData();
  return series ? series->GetName().c_str() : nullptr;
}

void Graph::SetColors(GraphColors* scheme) {
  if (!scheme)
    return;
  colors = scheme;
  markers.SetColors(*colors);
  if (ViewData* const series = GetActiveViewData())
    series->SetColor(colors->trace);
}

void Graph::Clear() {
  const WindowHold hold(hWnd);
  const bool cleared = changeInTurn([this] {
    ViewData* const series = activeViewData;
    if (!series || !emptyActiveSeries())
      return false;
    series->ResetUnits();
    if (axis)
      axis->Reset();
    return true;
  });
  if (!cleared)
    return;
  RedrawWindow(hWnd, RDW_INVALIDATE);
  parts->bars.Hide();
}

bool Graph::emptyActiveSeries() {
  ViewData* const series = activeViewData;
  {
    const DataLock free(series->threadsMutex, std::try_to_lock);
    if (free)
      return series->TryReset();
  }
  // Whoever analyses it may fill it by a transfer, which is not a feed.
  stopSeries(series);
  const UiThread::AnswerBoxes answered(this);
  const DataLock analysed(series->threadsMutex);
  return releaseSeries(series) && series->TryReset();
}

void Graph::SetInfoBar(HWND window) {
  ReadoutReport::receiver = window;
}

bool Graph::DataValid() const {
  const ViewData* const series = GetActiveViewData();
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

bool Graph::MoveLCursor(int samples) {
  ViewData* const series = GetActiveViewData();
  if (!series || !axis)
    return false;
  ReadoutReport::SendCursorMoves();
  return series->MoveLCursor(samples, &axis->hor);
}

bool Graph::MoveRCursor(int samples) {
  ViewData* const series = GetActiveViewData();
  if (!series || !axis)
    return false;
  ReadoutReport::SendCursorMoves();
  return series->MoveRCursor(samples, &axis->hor);
}

bool Graph::inCursorArea(const CPoint& point, int x, int y) const {
  return CursorMarkers::InReach(point, x, y, layout.Height());
}

bool Graph::InLeftCursorArea(const CPoint& point) const {
  ViewData* const series = GetActiveViewData();
  return series && axis && series->ValidCursor() &&
         inCursorArea(point, series->xLCursorPosGet(axis), series->yLCursorPosGet(axis));
}

bool Graph::InRightCursorArea(const CPoint& point) const {
  ViewData* const series = GetActiveViewData();
  return series && axis && series->ValidCursor() &&
         inCursorArea(point, series->xRCursorPosGet(axis), series->yRCursorPosGet(axis));
}

void Graph::BeginDragLeftCursor() {
  markers.HoldLeft();
  beginDragCursor();
}

void Graph::BeginDragRightCursor() {
  markers.HoldRight();
  beginDragCursor();
}

void Graph::beginDragCursor() {
  SetCursor(LoadCursor(IDC_SIZEALL));
}

void Graph::DragCursor(CPoint& point) {
  if (!IsCursorDrag() || !axis)
    return;
  Clip(point);
  ViewData* const series = activeViewData;
  if (!DataAndAxisValid() || !series->ValidCursor())
    return;
  markers.DragTo(point.x, layout.Width(), *series, *axis);
  DrawCursors();
}

void Graph::EndDragCursor() {
  markers.LetGo();
  ReadoutReport::SendCursorMoves();
  UpdateCursorsReadout();
}

void Graph::noteUnits() {
  // The texts are the window's thread's to change: a worker takes those that were noted.
  if (const ViewData* const series = activeViewData; series && axis && UiThread::IsCurrent())
    parts->readouts.NoteUnits(*axis, *series);
}

void Graph::UpdateCursorsReadout() {
  const WindowHold hold(hWnd);
  ViewData* const series = activeViewData;
  const SeriesLeases::Use use(parts->leases, series);
  if (!use || !active || (RestrictGraphOperationInRealTime && series->inTransfer))
    return;
  noteUnits();
  parts->readouts.SendCursors(*series);
}

void Graph::UpdateDriftRate() {
  const WindowHold hold(hWnd);
  ViewData* const series = activeViewData;
  const SeriesLeases::Use use(parts->leases, series);
  if (!use)
    return;
  noteUnits();
  parts->readouts.SendDrift(*series);
}

void Graph::UpdateStaParams() {
  ViewData* const series = activeViewData;
  const SeriesLeases::Use use(parts->leases, series);
  if (!use || series->inTransfer || IsDependent() || !series->Valid())
    return;
  noteUnits();
  parts->readouts.SendStatistics(*series);
}

void Graph::UpdateStaParams(const ViewData* series, const char* unit) {
  if (series)
    ReadoutReport::SendStatistics(*series, unit);
}

void Graph::Clip(CPoint& point) const {
  point = layout.Clip(point);
}

COLORREF Graph::GetPixel(CPoint point) {
  const CPoint inPlot = layout.Clip(point);
  const bool inside =
      inPlot.x >= 1 && inPlot.x < layout.Width() && inPlot.y >= 1 && inPlot.y < layout.Height();
  return inside ? parts->frame.Pixel(point) : CLR_INVALID;
}

COLORREF Graph::CurvePixel(CPoint point) {
  const COLORREF color = GetPixel(point);
  return color == parts->frameBackground ? CLR_INVALID : color;
}

bool Graph::GetViewDataByPoint(ViewData** series, int* index, bool* isMask, CPoint point) {
  ViewData* const candidate = GetActiveViewData();
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
  const ViewData* const series = GetActiveViewData();
  if (!series || !menu.LoadMenu(static_cast<std::uint16_t>(series->GetMenuID())))
    return nullptr;
  return menu.GetSubMenu(0);
}

}  // namespace sparlow
