#include "sparlow/platform/window/Windows.h"

#include "sparlow/platform/window/MessageQueue.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow {

bool GetClientRect(HWND window, CRect* rect) {
  const auto site = WindowSite::Find(window);
  const CSize size = site ? site->ClientSize() : CSize{};
  if (rect)
    *rect = {0, 0, size.cx, size.cy};
  return site != nullptr;
}

bool RedrawWindow(HWND window, UINT flags) {
  const auto site = WindowSite::Find(window);
  if (!site || (flags & RDW_INVALIDATE) == 0)
    return false;
  site->Invalidate();
  return true;
}

bool InvalidateRect(HWND window, const CRect*, bool) {
  return RedrawWindow(window);
}

bool PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return MessageQueue::Post(window, message, wParam, lParam);
}

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto site = WindowSite::Find(window);
  return site ? site->Send(message, wParam, lParam) : 0;
}

void UpdateWindow(HWND window) {
  if (const auto site = WindowSite::Find(window))
    site->PaintIfDue();
}

HDC GetDC(HWND window) {
  const auto site = WindowSite::Find(window);
  return site && site->peer() ? new DeviceContext(&site->peer()->Surface()) : nullptr;
}

void ReleaseDC(HWND window, HDC dc) {
  if (!dc)
    return;
  delete dc;
  const auto site = WindowSite::Find(window);
  if (site && site->peer())
    site->peer()->Present();
}

bool ShowScrollBar(HWND window, int bar, bool show) {
  const auto site = WindowSite::Find(window);
  if (!site || !site->peer())
    return false;
  if (bar == SB_HORZ || bar == SB_BOTH)
    site->peer()->ShowScrollBar(SB_HORZ, show);
  if (site->peer() && (bar == SB_VERT || bar == SB_BOTH))
    site->peer()->ShowScrollBar(SB_VERT, show);
  return true;
}

bool GetScrollInfo(HWND window, int bar, SCROLLINFO* info) {
  const auto site = WindowSite::Find(window);
  if (!site || !site->peer() || !info)
    return false;
  *info = site->peer()->GetScrollInfo(bar);
  return true;
}

bool SetScrollInfo(HWND window, int bar, const SCROLLINFO& info) {
  const auto site = WindowSite::Find(window);
  if (!site || !site->peer())
    return false;
  site->peer()->SetScrollInfo(bar, info);
  return true;
}

bool SetScrollPos(HWND window, int bar, int position) {
  SCROLLINFO info;
  if (!GetScrollInfo(window, bar, &info))
    return false;
  info.nPos = position;
  return SetScrollInfo(window, bar, info);
}

}  // namespace sparlow
