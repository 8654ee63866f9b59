// What a user does with mouse, keyboard and scroll bars, as calls of the graph.

#include <algorithm>
#include <climits>
#include <utility>

#include "sparlow/platform/window/CDocument.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/ui/CSingleGraphView.h"
#include "sparlow/ui/PointingHand.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

using View = CSingleGraphView;

namespace {

void order(int& smaller, int& larger) {
  if (smaller > larger)
    std::swap(smaller, larger);
}

int scrollCode(WPARAM wParam) {
  return static_cast<int>(wParam & 0xFFFF);
}

}  // namespace

bool View::inTransfer() const {
  const ViewData* const series = graph ? graph->GetActiveViewData() : nullptr;
  return series && series->inTransfer;
}

bool View::transferLock() const {
  return Graph::RestrictGraphOperationInRealTime && inTransfer();
}

bool View::takesInput() const {
  return DataValid() && !transferLock();
}

LRESULT View::OnLButtonDown(WPARAM, LPARAM lParam) {
  const LRESULT result = Default();
  if (!takesInput())
    return result;
  CPoint point = PointOf(lParam);
  graph->Clip(point);
  MouseGesture::Kind kind = MouseGesture::box;
  if (graph->InLeftCursorArea(point)) {
    kind = MouseGesture::leftCursor;
    graph->BeginDragLeftCursor();
  } else if (graph->InRightCursorArea(point)) {
    kind = MouseGesture::rightCursor;
    graph->BeginDragRightCursor();
  } else {
    graph->zoomStart = graph->zoomEnd = graph->zoomPrev = point;
  }
  gesture.Begin(kind, GetSafeHwnd());
  return result;
}

LRESULT View::OnMouseMove(WPARAM, LPARAM lParam) {
  const LRESULT result = Default();
  if (!takesInput())
    return result;
  CPoint point = PointOf(lParam);
  if (gesture.Now() == MouseGesture::box) {
    graph->Clip(point);
    graph->zoomPrev = graph->zoomEnd;
    graph->zoomEnd = point;
    drawZoomBox();
  } else if (gesture.DragsCursor()) {
    graph->DragCursor(point);
  } else if (graph->active) {
    showPointer(point);
  }
  return result;
}

void View::drawAll() {
  graph->DrawAll();
  if (gesture.Now() != MouseGesture::box || !DataValid())
    return;
  // The frame that was painted has no box on it.
  graph->zoomPrev = graph->zoomStart;
  drawZoomBox();
}

void View::drawZoomBox() {
  CClientDC dc(GetSafeHwnd());
  graph->DrawZoomBox(&dc);
}

void View::showPointer(CPoint point) {
  CPoint inPlot = point;
  graph->Clip(inPlot);
  if (graph->InLeftCursorArea(inPlot) || graph->InRightCursorArea(inPlot))
    SetCursor(LoadCursor(IDC_SIZEALL));
  else if (graph->IsMultiple() && !inTransfer() &&
           graph->GetViewDataByPoint(nullptr, nullptr, nullptr, point))
    SetCursor(LoadCursor(IDC_POINTING_HAND));
}

LRESULT View::OnLButtonUp(WPARAM, LPARAM lParam) {
  const LRESULT result = Default();
  if (takesInput())
    finishGesture(PointOf(lParam));
  else
    dropGesture();
  return result;
}

void View::finishGesture(CPoint point) {
  const MouseGesture::Kind was = gesture.End();
  if (was == MouseGesture::none)
    return;
  if (was != MouseGesture::box)
    return graph->EndDragCursor();
  CPoint& start = graph->zoomStart;
  CPoint& end = graph->zoomEnd;
  if (start.x == end.x || start.y == end.y) {
    // The ends of a flat box are dots that its lines didn't take away again.
    if (start.x != end.x || start.y != end.y)
      InvalidateRect(GetSafeHwnd(), nullptr, true);
    return click(point);
  }
  order(start.x, end.x);
  order(start.y, end.y);
  graph->ZoomInByPoint();
}

void View::dropGesture() {
  const MouseGesture::Kind was = gesture.End();
  if (was == MouseGesture::box)
    InvalidateRect(GetSafeHwnd(), nullptr, true);
  else if (was != MouseGesture::none)
    graph->EndDragCursor();
}

void View::click(CPoint point) {
  if (!graph->IsMultiple()) {
    InvalidateRect(GetSafeHwnd(), nullptr, true);
    return;
  }
  int index = 0;
  bool isMask = false;
  if (inTransfer() || !graph->GetViewDataByPoint(nullptr, &index, &isMask, point))
    return;
  if (isMask)
    activate(&Graph::SetActiveMask, index);
  else
    OnGraphActivated(index);
}

LRESULT View::OnCaptureChanged(WPARAM, LPARAM) {
  CPoint point;
  GetCursorPos(&point);
  ScreenToClient(GetSafeHwnd(), &point);
  OnLButtonUp(0, PackPoint(point));
  return Default();
}

LRESULT View::OnLButtonDblClk(WPARAM, LPARAM) {
  if (!graph || !graph->GetActiveViewData() || inTransfer())
    return 0;
  PostMessage(AfxGetMainWnd(), WM_VIEW_DOUBLE_CLICK, reinterpret_cast<WPARAM>(this), 0);
  return Default();
}

LRESULT View::OnRButtonDown(WPARAM, LPARAM lParam) {
  if (!graph || transferLock() || gesture.Now() == MouseGesture::box)
    return 0;
  CreatePopupMenu(PointOf(lParam));
  return Default();
}

LRESULT View::OnKeyDown(WPARAM key, LPARAM) {
  if (!takesInput() || !graph->GetActiveViewData()->ValidCursor() ||
      (key != VK_LEFT && key != VK_RIGHT))
    return 0;
  // A held key moves one sample further with each repeat.
  keyRepeat = std::min(keyRepeat, INT_MAX - 1) + 1;
  const int step = key == VK_LEFT ? -keyRepeat : keyRepeat;
  const bool right = GetKeyState(VK_SHIFT) < 0;
  if (right ? graph->MoveRCursor(step) : graph->MoveLCursor(step))
    UpdateGraph();
  else
    graph->DrawCursors();
  graph->UpdateCursorsReadout();
  return Default();
}

LRESULT View::OnKeyUp(WPARAM key, LPARAM) {
  if (key != VK_LEFT && key != VK_RIGHT)
    return 0;
  keyRepeat = 0;
  return DataValid() && graph->GetActiveViewData()->ValidCursor() ? Default() : 0;
}

LRESULT View::OnHScroll(WPARAM wParam, LPARAM) {
  if (!takesInput())
    return 0;
  SCROLLINFO bar;
  if (GetScrollInfo(GetSafeHwnd(), SB_HORZ, &bar))
    scrollBy(scrollCode(wParam), bar);
  return Default();
}

void View::scrollBy(int code, const SCROLLINFO& bar) {
  const int page = static_cast<int>(std::min(bar.nPage, static_cast<unsigned>(INT_MAX)));
  const int step = code == SB_PAGELEFT || code == SB_PAGERIGHT ? page : 1;
  switch (code) {
    case SB_LINELEFT:
    case SB_PAGELEFT:
      if (bar.nPos > bar.nMin)
        graph->Scroll(-step);
      break;
    case SB_LINERIGHT:
    case SB_PAGERIGHT:
      if (bar.nPos < bar.nMax)
        graph->Scroll(step);
      break;
    case SB_THUMBPOSITION:
      graph->ScrollTo(thumbTrackPos);
      break;
    case SB_THUMBTRACK:
      // The message itself has room for 16 bits only.
      thumbTrackPos = static_cast<std::uint32_t>(bar.nTrackPos);
      break;
    default:
      break;
  }
}

LRESULT View::OnVScroll(WPARAM wParam, LPARAM) {
  if (!takesInput())
    return 0;
  SCROLLINFO bar;
  if (GetScrollInfo(GetSafeHwnd(), SB_VERT, &bar))
    yScrollBy(scrollCode(wParam), bar);
  return Default();
}

void View::yScrollBy(int code, const SCROLLINFO& bar) {
  switch (code) {
    case SB_LINEUP:
    case SB_PAGEUP:
      if (bar.nPos > bar.nMin)
        graph->yScroll(true);
      break;
    case SB_LINEDOWN:
    case SB_PAGEDOWN:
      if (std::int64_t{bar.nPage} + bar.nPos <= bar.nMax)
        graph->yScroll(false);
      break;
    case SB_THUMBPOSITION:
      graph->yScrollDo();
      break;
    default:
      break;
  }
}

LRESULT View::OnSetFocus(WPARAM, LPARAM) {
  const LRESULT result = Default();
  if (!graph || !graph->active)
    SendMessage(AfxGetMainWnd(), WM_VIEW_FOCUSED, reinterpret_cast<WPARAM>(this), 0);
  return result;
}

LRESULT View::OnKillFocus(WPARAM, LPARAM) {
  keyRepeat = 0;
  return Default();
}

LRESULT View::OnActivate(WPARAM, LPARAM) {
  const LRESULT result = Default();
  if (graph)
    graph->UpdateCursorsReadout();
  return result;
}

}  // namespace sparlow
