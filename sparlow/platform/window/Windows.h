#pragma once

#include "sparlow/platform/paint/CDC.h"
#include "sparlow/platform/window/Messages.h"

namespace sparlow {

/// @name Any thread
/// None of these waits for another thread; on a handle that is gone they do nothing and return
/// false. Two reads of one window may differ when the size changes in between.
///@{
bool GetClientRect(HWND window, CRect* rect);
/// Marks the whole client area for a paint that comes later, on the window's thread; many marks
/// before it make one paint. flags must hold RDW_INVALIDATE.
bool RedrawWindow(HWND window, UINT flags = RDW_INVALIDATE);
/// The same; rect and erase make no difference, since a paint covers everything.
bool InvalidateRect(HWND window, const CRect* rect, bool erase);
/// Keeps a message for the window, which gets it later, in order.
bool PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
///@}

/// @name The window's thread
///@{

/// Runs the handler of a message now. 0 when the window is gone.
LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Runs a paint that is due now.
void UpdateWindow(HWND window);
/// A context on the window's surface, for a paint or outside one; what it draws reaches the screen
/// with ReleaseDC. Null for a window without a surface.
HDC GetDC(HWND window);
void ReleaseDC(HWND window, HDC dc);
/// A context on a window's surface for as long as it lives, which then brings what it drew to the
/// screen. It draws nothing on a window without a surface.
class CClientDC : public CDC {
 public:
  explicit CClientDC(HWND window) : CDC(GetDC(window)), window_(window) {}
  ~CClientDC() { ReleaseDC(window_, Detach()); }
  CClientDC(const CClientDC&) = delete;
  CClientDC& operator=(const CClientDC&) = delete;

 private:
  const HWND window_;
};
/// bar: SB_HORZ, SB_VERT or SB_BOTH. The client area has its new size when this returns, and the
/// window has had its WM_SIZE.
bool ShowScrollBar(HWND window, int bar, bool show);
/// State of SB_HORZ or SB_VERT. Returns false, and leaves info as it was, for a window without
/// bars.
bool GetScrollInfo(HWND window, int bar, SCROLLINFO* info);
bool SetScrollInfo(HWND window, int bar, const SCROLLINFO& info);
/// Moves the thumb; the position is brought into the range.
bool SetScrollPos(HWND window, int bar, int position);
///@}

}  // namespace sparlow
