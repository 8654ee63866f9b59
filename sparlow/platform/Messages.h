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
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_ERASEBKGND = 0x0014;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_USER = 0x0400;

inline constexpr std::uint32_t WS_HSCROLL = 0x00100000;
inline constexpr std::uint32_t WS_VSCROLL = 0x00200000;

inline constexpr int SB_HORZ = 0;
inline constexpr int SB_VERT = 1;
inline constexpr int SB_BOTH = 3;

inline constexpr UINT RDW_INVALIDATE = 0x0001;

/// One row of a class's table of messages: which message, and the operation that handles it.
struct MessageEntry {
  UINT message;
  LRESULT (*handle)(CWnd& window, WPARAM wParam, LPARAM lParam);
};

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

}  // namespace sparlow
