#pragma once

#include <QPointF>
#include <QRect>
#include <cmath>

#include "sparlow/platform/base/Geometry.h"

namespace sparlow::qt {

/// Client pixels in device pixels. A client pixel c covers the device pixels Edge(c) to Edge(c +
/// 1), so that neighbours touch and never overlap, at whole scales and at broken ones.
/// Threads: a value; any thread, each with its own.
class PixelScale {
 public:
  explicit PixelScale(double factor) : factor_(factor > 0 ? factor : 1.0) {}

  double Factor() const { return factor_; }
  int Edge(int c) const {
    return factor_ == 1.0 ? c : static_cast<int>(std::floor(c * factor_ + 0.5));
  }
  /// The device pixel under the middle of a client pixel.
  int Middle(int c) const {
    return factor_ == 1.0 ? c : static_cast<int>(std::floor((c + 0.5) * factor_));
  }
  QRect Area(const CRect& rect) const {
    const QPoint topLeft(Edge(rect.left), Edge(rect.top));
    return {topLeft, QSize(Edge(rect.right) - topLeft.x(), Edge(rect.bottom) - topLeft.y())};
  }
  /// Width of a line that can't follow the edges of pixels.
  int Width(int w) const { return std::max(1, Edge(w)); }

 private:
  double factor_;
};

/// The first client pixel that a pen of a width covers when it stands on c.
inline int PenBegin(int c, int width) {
  return c - width / 2;
}
inline int PenEnd(int c, int width) {
  return c - width / 2 + width;
}

}  // namespace sparlow::qt
