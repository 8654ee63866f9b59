#include "sparlow/platform/qt/PaintedDevice.h"

#include <QPaintEngine>

#include "sparlow/platform/qt/DashPattern.h"
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

QPen MakePen(int style, COLORREF color, int width, Qt::PenCapStyle caps) {
  const DashPattern dashes(style);
  QPen pen(QColor(ToQt(color)), width, Qt::SolidLine, caps, Qt::RoundJoin);
  if (dashes.IsSolid())
    return pen;
  QList<qreal> lengths;
  for (std::size_t i = 0; i < dashes.Count(); ++i)
    lengths.append(dashes.Length(i));
  pen.setCapStyle(Qt::FlatCap);
  pen.setDashPattern(lengths);
  return pen;
}

bool PaintedDevice::open(QPaintDevice& target, QSize size) {
  if (!painter_.begin(&target))
    return false;
  bounds_ = visible_ = painterClip_ = QRect(QPoint(0, 0), size);
  canMix_ = painter_.paintEngine()->hasFeature(QPaintEngine::RasterOpModes);
  mix_ = R2_COPYPEN;
  pen_.reset();
  font_ = nullptr;
  painter_.setRenderHint(QPainter::Antialiasing, false);
  painter_.setRenderHint(QPainter::TextAntialiasing, true);
  return true;
}

bool PaintedDevice::isPicture() const {
  return painter_.paintEngine()->type() == QPaintEngine::Raster;
}

QRect PaintedDevice::areaOf(const Clip& clip) const {
  return clip ? scale_.Area(*clip).intersected(bounds_) : bounds_;
}

/// Readies the painter for a primitive. Returns false when nothing of it could be seen.
bool PaintedDevice::begin(const Clip& clip, int mix) {
  if (!prepare())
    return false;
  visible_ = areaOf(clip);
  if (visible_.isEmpty())
    return false;
  setMix(mix);
  return true;
}

void PaintedDevice::setMix(int mix) {
  // A mix that leaves the pen's colour on white is that colour on paper, which nobody mixes twice.
  if (!canMix_)
    mix = R2_COPYPEN;
  if (mix == mix_)
    return;
  painter_.setCompositionMode(mix == R2_NOTXORPEN ? QPainter::RasterOp_NotSourceXorDestination
                                                  : QPainter::CompositionMode_SourceOver);
  mix_ = mix;
}

void PaintedDevice::clipPainter() {
  if (painterClip_ == visible_)
    return;
  painterClip_ = visible_;
  if (visible_ == bounds_)
    painter_.setClipping(false);
  else
    painter_.setClipRect(visible_);
}

QPainter& PaintedDevice::Clipped(const Clip& clip) {
  visible_ = areaOf(clip);
  setMix(R2_COPYPEN);
  clipPainter();
  pen_.reset();  // It may come back with another one.
  return painter_;
}

void PaintedDevice::fill(const QRect& area, QRgb color) {
  const QRect seen = area.intersected(visible_);
  if (seen.isEmpty())
    return;
  // A clip that is left from a text is in the way only where it is narrower.
  if (!painterClip_.contains(seen))
    clipPainter();
  painter_.fillRect(seen, QColor(color));
}

void PaintedDevice::FillRect(const CRect& rect, COLORREF color, const Clip& clip) {
  if (!rect.IsRectEmpty() && begin(clip, R2_COPYPEN))
    fill(scale_.Area(rect), ToQt(color));
}

void PaintedDevice::Rectangle(const CRect& rect, const Stroke& outline, COLORREF fillColor,
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

void PaintedDevice::Ellipse(const CRect& rect, const Stroke& outline, COLORREF fillColor,
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
  pen_.reset();
  painter_.setPen(QPen(QColor(ToQt(outline.color)), width));
  if (width == 1) {
    painter_.drawEllipse(QRect(area.topLeft(), area.size() - QSize(1, 1)));
  } else {
    const QPointF from(penCentre(r.left, outline.width), penCentre(r.top, outline.width));
    const QPointF to(penCentre(r.right - 1, outline.width), penCentre(r.bottom - 1, outline.width));
    painter_.drawEllipse(QRectF(from, to));
  }
}

void PaintedDevice::Text(CPoint topLeft, std::string_view utf8, const FontRequest& request,
                         COLORREF color, const Clip& clip) {
  if (!begin(clip, R2_COPYPEN))
    return;
  const CellFont& font = FontFor(request);
  clipPainter();
  pen_.reset();
  painter_.setPen(QPen(QColor(ToQt(color))));
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

CSize PaintedDevice::TextExtent(std::string_view utf8, const FontRequest& font) const {
  const CellFont& found = FontFor(font);
  return {found.metrics.horizontalAdvance(FromUtf8(utf8)), found.CellHeight()};
}

int PaintedDevice::TextAscent(const FontRequest& font) const {
  return FontFor(font).Ascent();
}

}  // namespace sparlow::qt
