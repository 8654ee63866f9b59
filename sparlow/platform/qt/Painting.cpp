#include "sparlow/platform/qt/Painting.h"

#include <cmath>

#include "sparlow/platform/qt/QtFonts.h"

namespace sparlow::qt {

QRgb ToQt(COLORREF color) {
  return qRgb(static_cast<int>(color & 0xFFu), static_cast<int>(color >> 8 & 0xFFu),
              static_cast<int>(color >> 16 & 0xFFu));
}

COLORREF FromQt(QRgb color) {
  return RGB(static_cast<unsigned>(qRed(color)), static_cast<unsigned>(qGreen(color)),
             static_cast<unsigned>(qBlue(color)));
}

Painting::Painting(QPaintDevice& target, PixelScale scale, QSize size)
    : painter_(&target),
      scale_(scale),
      bounds_(QPoint(0, 0), size),
      visible_(bounds_),
      painterClip_(bounds_) {
  painter_.setRenderHint(QPainter::Antialiasing, false);
  painter_.setRenderHint(QPainter::TextAntialiasing, true);
  pen_ = painter_.pen();
}

bool Painting::begin(const Clip& clip, int mix) {
  visible_ = clip ? scale_.Area(*clip).intersected(bounds_) : bounds_;
  if (visible_.isEmpty())
    return false;
  if (mix != mix_) {
    painter_.setCompositionMode(mix == R2_NOTXORPEN ? QPainter::RasterOp_NotSourceXorDestination
                                                    : QPainter::CompositionMode_SourceOver);
    mix_ = mix;
  }
  return true;
}

void Painting::clipPainter() {
  if (painterClip_ == visible_)
    return;
  painterClip_ = visible_;
  if (visible_ == bounds_)
    painter_.setClipping(false);
  else
    painter_.setClipRect(visible_);
}

void Painting::setPen(const QPen& pen) {
  if (pen_ == pen)
    return;
  pen_ = pen;
  painter_.setPen(pen);
}

QPainter& Painting::Clipped(const Clip& clip) {
  begin(clip, R2_COPYPEN);
  clipPainter();
  return painter_;
}

void Painting::fill(const QRect& area, QRgb color) {
  const QRect seen = area.intersected(visible_);
  if (seen.isEmpty())
    return;
  // A clip that is left from a text is in the way only where it is narrower.
  if (!painterClip_.contains(seen))
    clipPainter();
  painter_.fillRect(seen, QColor(color));
}

void Painting::FillRect(const CRect& rect, COLORREF color, const Clip& clip) {
  if (!rect.IsRectEmpty() && begin(clip, R2_COPYPEN))
    fill(scale_.Area(rect), ToQt(color));
}

void Painting::Rectangle(const CRect& rect, const Stroke& outline, COLORREF fillColor,
                         const Clip& clip) {
  CRect r = rect;
  r.NormalizeRect();
  if (r.IsRectEmpty() || !begin(clip, outline.mix))
    return;
  const int w = outline.width;
  const QRect outer = scale_.Area(
      {PenBegin(r.left, w), PenBegin(r.top, w), PenEnd(r.right - 1, w), PenEnd(r.bottom - 1, w)});
  const CRect inside{PenEnd(r.left, w), PenEnd(r.top, w), PenBegin(r.right - 1, w),
                     PenBegin(r.bottom - 1, w)};
  if (inside.IsRectEmpty() && DashPattern(outline.style).IsSolid()) {
    fill(outer, ToQt(outline.color));
    return;
  }
  // The four sides share no pixel, since a mix mode must meet each one once.
  const QRect inner = scale_.Area({inside.left, inside.top, std::max(inside.left, inside.right),
                                   std::max(inside.top, inside.bottom)});
  fill(inner, ToQt(fillColor));
  const int innerRight = inner.x() + inner.width();
  const int innerBottom = inner.y() + inner.height();
  const int outerRight = outer.x() + outer.width();
  const int outerBottom = outer.y() + outer.height();
  band({outer.x(), outer.y(), outer.width(), inner.y() - outer.y()}, Qt::Horizontal, outline);
  band({outer.x(), innerBottom, outer.width(), outerBottom - innerBottom}, Qt::Horizontal, outline);
  band({outer.x(), inner.y(), inner.x() - outer.x(), inner.height()}, Qt::Vertical, outline);
  band({innerRight, inner.y(), outerRight - innerRight, inner.height()}, Qt::Vertical, outline);
}

void Painting::Ellipse(const CRect& rect, const Stroke& outline, COLORREF fillColor,
                       const Clip& clip) {
  CRect r = rect;
  r.NormalizeRect();
  if (r.IsRectEmpty() || !begin(clip, outline.mix))
    return;
  const QRect area = scale_.Area(r);
  const int width = scale_.Width(outline.width);
  if (std::min(area.width(), area.height()) <= 2) {
    // Too small to have an inside.
    fill(area, ToQt(outline.color));
    return;
  }
  clipPainter();
  painter_.setBrush(QColor(ToQt(fillColor)));
  setPen(QPen(QColor(ToQt(outline.color)), width));
  if (width == 1) {
    painter_.drawEllipse(QRect(area.topLeft(), area.size() - QSize(1, 1)));
  } else {
    const QPointF from(penCentre(r.left, outline.width), penCentre(r.top, outline.width));
    const QPointF to(penCentre(r.right - 1, outline.width), penCentre(r.bottom - 1, outline.width));
    painter_.drawEllipse(QRectF(from, to));
  }
}

void Painting::Text(CPoint topLeft, std::string_view utf8, const CellFont& font, COLORREF color,
                    const Clip& clip) {
  if (!begin(clip, R2_COPYPEN))
    return;
  clipPainter();
  setPen(QPen(QColor(ToQt(color))));
  if (font_ != &font) {
    font_ = &font;
    painter_.setFont(font.font);
  }
  const double s = scale_.Factor();
  const int base = scale_.Edge(topLeft.y + font.Ascent());
  if (s == 1.0) {
    painter_.drawText(QPoint(topLeft.x, base), FromUtf8(utf8));
    return;
  }
  // The glyphs are made at the scale of the device, the widths stay those of the client's pixels.
  painter_.setTransform(QTransform(s, 0, 0, s, scale_.Edge(topLeft.x), base));
  painter_.drawText(QPoint(0, 0), FromUtf8(utf8));
  painter_.setTransform(QTransform());
}

}  // namespace sparlow::qt
