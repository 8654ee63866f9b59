#pragma once

#include <memory>

#include "sparlow/platform/paint/Device.h"

namespace sparlow {

class DeviceContext;

/// The platform's name for a device context: where a CDC draws, and with what.
using HDC = DeviceContext*;

/// An off-screen picture that can be selected into a memory device context.
/// Threads: the window's.
struct Bitmap {
  std::unique_ptr<Device> surface;
};

/// The platform's name for an off-screen picture.
using HBITMAP = Bitmap*;

/// A pen that lines are drawn with. It must outlive its selection into a device context.
class CPen {
 public:
  CPen() = default;
  /// Covers any surface from any point.
  static constexpr int kWidest = 1 << 17;

  /// A style PS_*, a width in device pixels from 1 to kWidest, or else the nearest, and a colour.
  CPen(int style, int width, COLORREF color)
      : stroke_{style, std::clamp(width, 1, kWidest), color} {}
  const Stroke& stroke() const { return stroke_; }

 private:
  Stroke stroke_;
};

/// A font that text is drawn with. It must outlive its selection into a device context.
class CFont {
 public:
  CFont() = default;
  explicit CFont(FontRequest request) : request_(std::move(request)) {}

  /// Asks for a font whose character cells are height pixels high.
  void CreateFont(int height, int weight, const char* face);
  const FontRequest& request() const { return request_; }

 private:
  FontRequest request_;
};

/// A rectangular region in device coordinates, for clipping.
class CRgn {
 public:
  CRgn() = default;
  void CreateRectRgn(int left, int top, int right, int bottom) {
    rect_ = {left, top, right, bottom};
  }
  const CRect& rect() const { return rect_; }

 private:
  CRect rect_;
};

inline constexpr int FW_NORMAL = 400;

/// A picture of width by height pixels (at least 1 by 1) with the resolution and scale of the
/// surface behind dc. To be freed with DeleteObject. Null when dc has no surface to be like.
HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
/// Frees a picture. Null is allowed.
void DeleteObject(HBITMAP bitmap);

}  // namespace sparlow
