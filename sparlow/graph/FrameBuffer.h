#pragma once

#include <functional>

#include "sparlow/platform/paint/CDC.h"
#include "sparlow/platform/window/Messages.h"

namespace sparlow {

/// The finished frame of a window: painted off the screen, copied to the window, and kept, so that
/// markers can be taken off the window again and a curve be found by its colour.
class FrameBuffer {
 public:
  FrameBuffer() = default;
  ~FrameBuffer() { Free(); }
  FrameBuffer(const FrameBuffer&) = delete;
  FrameBuffer& operator=(const FrameBuffer&) = delete;

  void Create(HWND window);
  /// Frees the frame and all that it needs; at the end of a paint, if one is under way.
  void Free();
  /// Has a frame as large as the client area painted and copies it to the window. A paint within
  /// that, as in a message box that paint opens, is put off to its end. Nothing happens before
  /// Create, after Free, and when the window is gone.
  void Paint(HWND window, const std::function<void(CDC& frame, const CRect& client)>& paint);
  /// A frame has been painted.
  bool Painted() const { return bitmap_ && !painting_; }
  /// The context that holds the frame, for use(frame). Nothing happens unless it is painted.
  void Use(const std::function<void(HDC frame)>& use) const;
  /// Colour at a point of the client area; CLR_INVALID outside, or without a frame.
  COLORREF Pixel(CPoint point) const;

 private:
  void free();

  HDC dc_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  bool painting_ = false;
  bool paintAgain_ = false;
  bool freeLater_ = false;
};

}  // namespace sparlow
