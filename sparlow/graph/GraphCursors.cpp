// The two measurement cursors on the window: their markers, moves by keys, and drags by the mouse.

#include <cstdint>
#include <cstdlib>

#include "sparlow/data/SampleSearch.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/graph/Readouts.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void Graph::DrawCursors() {
  const WindowHold hold(hWnd);
  // While a render is due the axes' scale is a worker's, and the window shows a message.
  if (RenderDue())
    return;
  frame.Use([this](HDC painted) {
    const CClientDC window(hWnd);
    drawMarkers(window.GetSafeHdc(), painted, {});
  });
}

void Graph::drawMarkers(HDC dc, HDC painted, const CRect& area) {
  ViewData* const series = activeViewData;
  if (!dc || !DataAndAxisValid() || !series->ValidCursor())
    return;
  const SavedDC before(dc);
  const CPoint origin = plotOriginIn(area);
  CDC(dc).SetPixelFactor(pixelFactor);
  CDC(dc).SetViewportOrg(origin.x, origin.y);
  CDC(painted).SetViewportOrg(origin.x, origin.y);
  // Both before either is drawn: where one stood the other may come to stand.
  if (painted) {
    lCursor->Erase(dc, painted);
    rCursor->Erase(dc, painted);
  }
  lCursor->Draw(dc, painted, series->xLCursorPosGet(axis), series->yLCursorPosGet(axis), height);
  rCursor->Draw(dc, painted, series->xRCursorPosGet(axis), series->yRCursorPosGet(axis), height);
}

bool Graph::MoveLCursor(int samples) {
  ViewData* const series = GetActiveViewData();
  if (!series || !axis)
    return false;
  tellCursorMoves();
  return series->MoveLCursor(samples, &axis->hor);
}

bool Graph::MoveRCursor(int samples) {
  ViewData* const series = GetActiveViewData();
  if (!series || !axis)
    return false;
  tellCursorMoves();
  return series->MoveRCursor(samples, &axis->hor);
}

void Graph::tellCursorMoves() {
  if (const HWND bar = InfoBarHwnd)
    PostMessage(bar, WM_READOUT_CURSOR_MOVES, 0, 0);
}

bool Graph::inCursorArea(const CPoint& point, int x, int y) const {
  constexpr std::int64_t reach = 5;
  // Where the arrow of a point above or below the plot is taken hold of.
  if (y < 0)
    y = 5;
  else if (y >= height)
    y = height - 6;
  // In 64 bits: a host may pass any point.
  return std::abs(std::int64_t{point.x} - x) < reach && std::abs(std::int64_t{point.y} - y) < reach;
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
  lCursor->drag = true;
  rCursor->drag = false;
  beginDragCursor();
}

void Graph::BeginDragRightCursor() {
  lCursor->drag = false;
  rCursor->drag = true;
  beginDragCursor();
}

void Graph::beginDragCursor() {
  const WindowHold hold(hWnd);
  SetCapture(hWnd);
  SetCursor(LoadCursor(IDC_SIZEALL));
}

void Graph::DragCursor(CPoint& point) {
  if (!IsCursorDrag() || !axis)
    return;
  Clip(point);
  ViewData* const series = activeViewData;
  if (!DataAndAxisValid() || !series->ValidCursor())
    return;
  const SampleReader samples = series->Read();
  if (samples.empty())
    return;
  const AxisData& hor = axis->hor;
  const unsigned last = samples.size() - 1;
  // The value of the last pixel is a rounding away from the last sample on show.
  const double x = axis->xPointValue(point.x);
  unsigned i = std::min(series->SampleAtOrBefore(point.x < width ? x : std::max(x, hor.max)), last);
  // Whichever is held: one that crosses the other gives the other its own sample.
  if (!hor.autoRange)
    i = FirstNotBelow(samples, i, last, hor.fixedMin);
  // A cursor that crosses the other one, or pushes it aside, gives the mouse to it.
  if (lCursor->drag) {
    rCursor->drag = series->SetLCursor(i);
    lCursor->drag = !rCursor->drag;
  }
  if (rCursor->drag) {
    if (!hor.autoRange)
      i = LastNotAbove(samples, 0, i, hor.fixedMax);
    lCursor->drag = series->SetRCursor(i);
    rCursor->drag = !lCursor->drag;
  }
  DrawCursors();
}

void Graph::EndDragCursor() {
  const WindowHold hold(hWnd);
  lCursor->drag = false;
  rCursor->drag = false;
  // The mouse may have gone to another window meanwhile, which keeps it.
  if (GetCapture() == hWnd)
    ReleaseCapture();
  tellCursorMoves();
  UpdateCursorsReadout();
}

}  // namespace sparlow
