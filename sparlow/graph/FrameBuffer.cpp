#include "sparlow/graph/FrameBuffer.h"

#include <utility>

#include "sparlow/platform/window/Windows.h"

namespace sparlow {

void FrameBuffer::Create(HWND window) {
  if (dc_)
    return;
  const HDC dc = GetDC(window);
  dc_ = CreateCompatibleDC(dc);
  ReleaseDC(window, dc);
}

void FrameBuffer::Free() {
  freeLater_ = painting_;
  if (!painting_)
    free();
}

void FrameBuffer::free() {
  DeleteObject(std::exchange(bitmap_, nullptr));
  DeleteDC(std::exchange(dc_, nullptr));
}

void FrameBuffer::Paint(HWND window,
                        const std::function<void(CDC& frame, const CRect& client)>& paint) {
  /// Whatever a host throws while it paints, the next frame begins as this one did.
  struct Painting {
    explicit Painting(FrameBuffer& frame) : frame_(frame) { frame_.painting_ = true; }
    ~Painting() {
      frame_.painting_ = false;
      if (std::exchange(frame_.freeLater_, false))
        frame_.free();
    }
    FrameBuffer& frame_;
  };
  CRect client;
  paintAgain_ = painting_;
  if (!dc_ || painting_ || !GetClientRect(window, &client))
    return;
  {
    const Painting now(*this);
    CClientDC screen(window);
    DeleteObject(std::exchange(bitmap_, nullptr));
    bitmap_ = CreateCompatibleBitmap(screen.GetSafeHdc(), client.Width(), client.Height());
    // What a host draws or throws leaves no pen, font or bitmap behind.
    const SavedDC before(dc_);
    CDC frame(dc_);
    frame.SelectObject(bitmap_);
    paint(frame, client);
    screen.BitBlt(client.left, client.top, client.Width(), client.Height(), dc_, 0, 0, SRCCOPY);
  }
  if (std::exchange(paintAgain_, false))
    RedrawWindow(window, RDW_INVALIDATE);
}

void FrameBuffer::Use(const std::function<void(HDC frame)>& use) const {
  if (!Painted())
    return;
  const SavedDC before(dc_);
  CDC(dc_).SelectObject(bitmap_);
  use(dc_);
}

COLORREF FrameBuffer::Pixel(CPoint point) const {
  COLORREF color = CLR_INVALID;
  Use([&](HDC frame) { color = CDC(frame).GetPixel(point); });
  return color;
}

}  // namespace sparlow
