#pragma once

#include <algorithm>
#include <cstdint>

namespace sparlow {

/// A colour as 0x00BBGGRR: blue in the high byte, red in the low one.
using COLORREF = std::uint32_t;
/// Where there is no pixel.
inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
  return (red & 0xFFu) | ((green & 0xFFu) << 8) | ((blue & 0xFFu) << 16);
}

/// A width and a height in pixels.
struct CSize {
  int cx = 0;
  int cy = 0;
  friend constexpr bool operator==(const CSize&, const CSize&) = default;
};

/// A point in pixels; rows grow downward.
struct CPoint {
  int x = 0;
  int y = 0;
  friend constexpr bool operator==(const CPoint&, const CPoint&) = default;
};

/// A rectangle in pixels: left and top belong to it, right and bottom don't.
struct CRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  constexpr int Width() const { return right - left; }
  constexpr int Height() const { return bottom - top; }
  constexpr bool IsRectEmpty() const { return right <= left || bottom <= top; }
  constexpr bool PtInRect(CPoint p) const {
    return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
  }
  /// Exchanges edges that are the wrong way round.
  constexpr void NormalizeRect() {
    if (left > right)
      std::swap(left, right);
    if (top > bottom)
      std::swap(top, bottom);
  }
  constexpr CRect Intersect(const CRect& other) const {
    CRect r{std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
    return r.IsRectEmpty() ? CRect{} : r;
  }
  friend constexpr bool operator==(const CRect&, const CRect&) = default;
};

}  // namespace sparlow
