// The lines of PaintedDevice.

#include <QLineF>
#include <cmath>
#include <cstdint>

#include "sparlow/platform/paint/LineClip.h"
#include "sparlow/platform/qt/DashPattern.h"
#include "sparlow/platform/qt/PaintedDevice.h"

namespace sparlow::qt {

namespace {

/// Painters keep fewer bits than an int; longer lines are cut to what is near the surface.
constexpr double painterLimit = 16000;

std::int64_t divideUp(std::int64_t a, std::int64_t b) {
  return a / b + (a % b > 0 ? 1 : 0);
}

/// Where in its pixels a painter's line of one pixel begins and ends: such a line covers both end
/// points and is nearest to one that goes from middle to middle. At the middles themselves, which of
/// two pixels an end falls on is left to rounding.
constexpr double thinOffset = 0.375;

bool isNear(const QLineF& line) {
  const auto fits = [](double c) { return std::abs(c) <= painterLimit; };
  return fits(line.x1()) && fits(line.y1()) && fits(line.x2()) && fits(line.y2());
}

/// The pieces that connect the columns of a curve: a few rectangles take less time than a stroke.
bool isShort(CPoint from, CPoint to) {
  constexpr std::int64_t most = 3;
  return std::min(std::abs(std::int64_t{to.x} - from.x), std::abs(std::int64_t{to.y} - from.y)) <=
         most;
}

}  // namespace

double PaintedDevice::penCentre(int c, int width) const {
  return scale_.Edge(PenBegin(c, width)) + scale_.Width(width) / 2.0;
}

void PaintedDevice::Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) {
  if (!begin(clip, stroke.mix))
    return;
  // Both directions give the same pixels: what was drawn one way is erased the other way.
  if (to.x < from.x || (to.x == from.x && to.y < from.y))
    std::swap(from, to);
  if (from.x == to.x || from.y == to.y) {
    const int w = stroke.width;
    const int top = std::min(from.y, to.y);
    const int bottom = std::max(from.y, to.y);
    // One thickness for all lines of a pen, also where a broken scale gives pixels unequal ones.
    const int thickness = scale_.Width(w);
    const QPoint begin(scale_.Edge(PenBegin(from.x, w)), scale_.Edge(PenBegin(top, w)));
    const QPoint end(scale_.Edge(PenBegin(to.x, w)), scale_.Edge(PenBegin(bottom, w)));
    band(QRect(begin, QSize(end.x() - begin.x() + thickness, end.y() - begin.y() + thickness)),
         from.x == to.x ? Qt::Vertical : Qt::Horizontal, stroke);
  } else if (scale_.Width(stroke.width) > 1 && isShort(from, to) && stroke.mix == R2_COPYPEN &&
             DashPattern(stroke.style).IsSolid()) {
    wideRuns(from, to, stroke);
  } else {
    obliqueLine(from, to, stroke);
  }
}

void PaintedDevice::band(const QRect& area, Qt::Orientation along, const Stroke& stroke) {
  const QRgb color = ToQt(stroke.color);
  const int width = scale_.Width(stroke.width);
  const DashPattern dashes(stroke.style);
  if (along == Qt::Horizontal) {
    dashes.ForEachDash(width, area.x(), area.x() + area.width(), visible_.x(),
                       visible_.x() + visible_.width(), [&](int begin, int end) {
                         fill({begin, area.y(), end - begin, area.height()}, color);
                       });
  } else {
    dashes.ForEachDash(width, area.y(), area.y() + area.height(), visible_.y(),
                       visible_.y() + visible_.height(), [&](int begin, int end) {
                         fill({area.x(), begin, area.width(), end - begin}, color);
                       });
  }
}

/// Runs of pixels in the direction in which the line is longer, each as much longer and thicker as
/// the pen is wide; they overlap. Run k holds the steps i whose exact offset i * m / n rounds to k,
/// so it is found without walking: a line of two runs costs two rectangles, however long it is.
void PaintedDevice::wideRuns(CPoint from, CPoint to, const Stroke& stroke) {
  const int w = stroke.width;
  const int thickness = scale_.Width(w);
  QPoint begin(scale_.Edge(PenBegin(from.x, w)), scale_.Edge(PenBegin(from.y, w)));
  QPoint end(scale_.Edge(PenBegin(to.x, w)), scale_.Edge(PenBegin(to.y, w)));
  const bool steep = std::abs(end.y() - begin.y()) > std::abs(end.x() - begin.x());
  const auto along = [steep](QPoint p) { return steep ? p.y() : p.x(); };
  const auto across = [steep](QPoint p) { return steep ? p.x() : p.y(); };
  if (along(end) < along(begin))
    std::swap(begin, end);
  const std::int64_t n = along(end) - along(begin);
  const std::int64_t m = std::abs(across(end) - across(begin));
  const int sign = across(end) < across(begin) ? -1 : 1;
  const QRgb color = ToQt(stroke.color);
  for (std::int64_t k = 0; k <= m; ++k) {
    const std::int64_t first = k == 0 ? 0 : divideUp((2 * k - 1) * n, 2 * m);
    const std::int64_t last = k == m ? n + 1 : divideUp((2 * k + 1) * n, 2 * m);
    const int row = across(begin) + sign * static_cast<int>(k);
    const int start = along(begin) + static_cast<int>(first);
    const int length = static_cast<int>(last - first) + thickness - 1;
    fill(steep ? QRect(row, start, thickness, length) : QRect(start, row, length, thickness),
         color);
  }
}

/// Round ends of a wide pen: they reach no farther than half the pen, as those of a line along the
/// pixels do, which are square.
void PaintedDevice::obliqueLine(CPoint from, CPoint to, const Stroke& stroke) {
  const int width = scale_.Width(stroke.width);
  const bool thin = width == 1;
  const auto place = [&](int c) {
    return thin ? scale_.Middle(c) + thinOffset : penCentre(c, stroke.width);
  };
  QLineF line(place(from.x), place(from.y), place(to.x), place(to.y));
  double offset = 0;
  if (!isNear(line)) {
    const double margin = 2.0 * width;
    const auto part =
        PartInside({line.x1(), line.y1(), line.dx(), line.dy()},
                   {-margin, -margin, bounds_.width() + margin, bounds_.height() + margin});
    if (!part)
      return;
    offset = part->first * line.length() / width;
    line = QLineF(line.pointAt(part->first), line.pointAt(part->last));
  }
  clipPainter();
  // A thousand lines of a curve have one pen.
  const Pen wanted{stroke.style, stroke.color, width, offset};
  if (pen_ != wanted) {
    QPen pen = MakePen(stroke.style, stroke.color, width, Qt::RoundCap);
    if (thin)  // Without it the end point isn't covered.
      pen.setCapStyle(Qt::SquareCap);
    if (pen.style() != Qt::SolidLine)
      pen.setDashOffset(offset);
    painter_.setPen(pen);
    pen_ = wanted;
  }
  painter_.drawLine(line);
}

}  // namespace sparlow::qt
