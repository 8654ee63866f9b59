#pragma once

#include <cstdint>
#include <span>

namespace sparlow {

class CWnd;

using UINT = unsigned;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

/// Names a window. Handles are never used twice, so one that outlives its window is harmless.
struct WindowHandle;
using HWND = WindowHandle*;

inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_ACTIVATE = 0x0006;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_ERASEBKGND = 0x0014;
inline constexpr UINT WM_HELP = 0x0053;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_HSCROLL = 0x0114;
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_INITMENUPOPUP = 0x0117;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_CAPTURECHANGED = 0x0215;
inline constexpr UINT WM_USER = 0x0400;

inline constexpr std::uint32_t WS_HSCROLL = 0x00100000;
inline constexpr std::uint32_t WS_VSCROLL = 0x00200000;

inline constexpr WPARAM VK_SHIFT = 0x10;
inline constexpr WPARAM VK_LEFT = 0x25;
inline constexpr WPARAM VK_RIGHT = 0x27;

inline constexpr int SB_HORZ = 0;
inline constexpr int SB_VERT = 1;
inline constexpr int SB_BOTH = 3;

/// What a scroll bar requests, in the low 16 bits of wParam. The next two serve both directions.
inline constexpr int SB_LINELEFT = 0;
inline constexpr int SB_LINERIGHT = 1;
inline constexpr int SB_PAGELEFT = 2;
inline constexpr int SB_PAGERIGHT = 3;
inline constexpr int SB_LINEUP = 0;
inline constexpr int SB_LINEDOWN = 1;
inline constexpr int SB_PAGEUP = 2;
inline constexpr int SB_PAGEDOWN = 3;
inline constexpr int SB_THUMBPOSITION = 4;
inline constexpr int SB_THUMBTRACK = 5;

/// State of a scroll bar. nMin and nMax are inclusive, nPage is a length, so the highest position
/// is nMax - nPage + 1.
struct SCROLLINFO {
  int nMin = 0;
  int nMax = 0;
  unsigned nPage = 0;
  int nPos = 0;
  int nTrackPos = 0;  ///< where the thumb is dragged to; not taken by SetScrollInfo
  friend bool operator==(const SCROLLINFO&, const SCROLLINFO&) = default;
};

inline constexpr UINT RDW_INVALIDATE = 0x0001;

/// One row of a class's table of messages: which message, and the operation that handles it. Of
/// WM_COMMAND only the commands from first to last, both included.
struct MessageEntry {
  UINT message;
  LRESULT (*handle)(CWnd& window, WPARAM wParam, LPARAM lParam);
  UINT first = 0;
  UINT last = 0xFFFF;
};

/// The command that a WM_COMMAND is about.
constexpr UINT CommandOf(WPARAM wParam) {
  return static_cast<UINT>(wParam & 0xFFFF);
}

/// The table of messages of a class, and that of its base class, which is asked next.
struct MessageMap {
  const MessageMap* base;
  std::span<const MessageEntry> entries;
};

/// The handler of a table row: calls LRESULT Class::operation(WPARAM, LPARAM).
template <class Class, LRESULT (Class::*operation)(WPARAM, LPARAM)>
LRESULT Handle(CWnd& window, WPARAM wParam, LPARAM lParam) {
  return (static_cast<Class&>(window).*operation)(wParam, lParam);
}
/// The same for WM_COMMAND: calls void Class::operation(), or void Class::operation(UINT command).
template <class Class, void (Class::*operation)()>
LRESULT HandleCommand(CWnd& window, WPARAM, LPARAM) {
  (static_cast<Class&>(window).*operation)();
  return 0;
}
template <class Class, void (Class::*operation)(UINT)>
LRESULT HandleCommand(CWnd& window, WPARAM wParam, LPARAM) {
  (static_cast<Class&>(window).*operation)(CommandOf(wParam));
  return 0;
}

}  // namespace sparlow
