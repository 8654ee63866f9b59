#pragma once

#include <QPainter>
#include <QPen>
#include <string_view>

#include "sparlow/platform/paint/Device.h"
#include "sparlow/platform/qt/DashPattern.h"
#include "sparlow/platform/qt/PixelScale.h"

namespace sparlow::qt {

struct CellFont;

/// Draws a device's primitives on anything that Qt paints on. Lines and areas that follow the edges
/// of pixels are filled rectangles, so that they are crisp at any scale; nothing but text is
/// antialiased. Its state is kept from one primitive to the next, since a graph has thousands.
/// Threads: one at a time, in general the window's.
class Painting {
 public:
  using Clip = Device::Clip;

  /// Paints on target until it is destroyed. size: of the target, in its own pixels.
  Painting(QPaintDevice& target, PixelScale scale, QSize size);

  void Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip);
  void FillRect(const CRect& rect, COLORREF color, const Clip& clip);
  void Rectangle(const CRect& rect, const Stroke& outline, COLORREF fill, const Clip& clip);
  void Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill, const Clip& clip);
  void Text(CPoint topLeft, std::string_view utf8, const CellFont& font, COLORREF color,
            const Clip& clip);

  /// The painter, clipped, in plain copying mode.
  QPainter& Clipped(const Clip& clip);

 private:
  /// False when nothing can be seen.
  bool begin(const Clip& clip, int mix);
  void clipPainter();
  void setPen(const QPen& pen);
  void fill(const QRect& area, QRgb color);
  void band(const QRect& area, Qt::Orientation along, const Stroke& stroke);
  void runLine(QPoint from, QPoint to, int thickness, const Stroke& stroke);
  void wideLine(CPoint from, CPoint to, const Stroke& stroke);
  double penCentre(int c, int width) const;

  QPainter painter_;
  PixelScale scale_;
  QRect bounds_;
  QRect visible_;         ///< what the primitive in hand may change
  QRect painterClip_;     ///< what the painter is clipped to
  int mix_ = R2_COPYPEN;  ///< what the painter is set to
  QPen pen_;
  const CellFont* font_ = nullptr;
};

QRgb ToQt(COLORREF color);
COLORREF FromQt(QRgb color);

}  // namespace sparlow::qt
