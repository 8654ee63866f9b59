#pragma once

#include "sparlow/platform/base/Geometry.h"
#include "sparlow/platform/window/Messages.h"

namespace sparlow {

/// A shape of the mouse pointer: one of the system's, or a resource of a library. Null is the
/// arrow.
struct PointerShape;
using HCURSOR = const PointerShape*;

/// Four arrows: what moves with the mouse.
inline constexpr int IDC_SIZEALL = 0x7F86;

/// @name Mouse and keyboard
/// All mouse messages go to the window until it releases the mouse or loses it to a popup, a dialog
/// or another window; it is notified once, by WM_CAPTURECHANGED, from inside ReleaseCapture if it
/// released the mouse itself.
///@{
void SetCapture(HWND window);
void ReleaseCapture();
/// From a peer: the window system has taken the mouse from a window, which is notified if it had
/// it.
void CaptureLost(HWND window);
/// The window that has the mouse; null when none of this process has.
HWND GetCapture();
/// The shape of that number, IDC_* or a resource. Null when there is none.
HCURSOR LoadCursor(int id);
/// Shows a shape until the mouse moves on.
void SetCursor(HCURSOR shape);
/// Where the mouse is, in screen pixels.
bool GetCursorPos(CPoint* point);
/// From screen pixels to those of a window's client area, and back. Returns false for a window that
/// is gone.
bool ScreenToClient(HWND window, CPoint* point);
bool ClientToScreen(HWND window, CPoint* point);
/// Negative while the key VK_SHIFT is down; other keys aren't followed.
short GetKeyState(WPARAM key);
///@}

/// The point that a mouse message's lParam holds, in client pixels; coordinates are 16 bits and
/// signed.
constexpr CPoint PointOf(LPARAM lParam) {
  return {static_cast<std::int16_t>(lParam & 0xFFFF),
          static_cast<std::int16_t>(lParam >> 16 & 0xFFFF)};
}
/// The way back; coordinates beyond 16 bits are saturated.
constexpr LPARAM PackPoint(CPoint point) {
  const auto pack = [](int c) {
    return static_cast<std::uint32_t>(std::clamp(c, -0x8000, 0x7FFF)) & 0xFFFFu;
  };
  return static_cast<LPARAM>(pack(point.y) << 16 | pack(point.x));
}

/// The window of the application that messages to its frame go to; null without one.
void SetMainWindow(HWND window);
HWND AfxGetMainWnd();

}  // namespace sparlow
