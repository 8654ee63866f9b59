// The lines of Painting.

#include <QLineF>
#include <cmath>
#include <cstdint>

#include "sparlow/platform/qt/Painting.h"

namespace sparlow::qt {

namespace {

/// Painters keep fewer bits than an int; longer lines are cut to what is near the surface.
constexpr double painterLimit = 16000;

std::int64_t divideUp(std::int64_t a, std::int64_t b) {
  return a / b + (a % b > 0 ? 1 : 0);
}

/// Cuts a line to a rectangle (Liang and Barsky, ACM Transactions on Graphics 3, 1984). The part of
/// the line that was cut off at its beginning, or a negative number when nothing is left.
double cutToRect(QLineF& line, const QRectF& rect) {
  const double delta[] = {-line.dx(), line.dx(), -line.dy(), line.dy()};
  const double room[] = {line.x1() - rect.left(), rect.right() - line.x1(), line.y1() - rect.top(),
                         rect.bottom() - line.y1()};
  double begin = 0;
  double end = 1;
  for (int side = 0; side < 4; ++side) {
    if (delta[side] == 0) {
      if (room[side] < 0)
        return -1;
      continue;
    }
    const double t = room[side] / delta[side];
    if (delta[side] < 0)
      begin = std::max(begin, t);
    else
      end = std::min(end, t);
  }
  if (begin > end)
    return -1;
  line = QLineF(line.pointAt(begin), line.pointAt(end));
  return begin;
}

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

/// Round ends: of an oblique line they reach no farther than half the pen, as those of a line along
/// the pixels do, which are square.
QPen makePen(const Stroke& stroke, int width, double offset) {
  const DashPattern dashes(stroke.style);
  QPen pen(QColor(ToQt(stroke.color)), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  if (dashes.IsSolid())
    return pen;
  QList<qreal> lengths;
  for (std::size_t i = 0; i < dashes.Count(); ++i)
    lengths.append(dashes.Length(i));
  pen.setCapStyle(Qt::FlatCap);
  pen.setDashPattern(lengths);
  pen.setDashOffset(offset / width);
  return pen;
}

}  // namespace

double Painting::penCentre(int c, int width) const {
  return scale_.Edge(PenBegin(c, width)) + scale_.Width(width) / 2.0;
}

void Painting::Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) {
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
  } else if (scale_.Width(stroke.width) == 1) {
    runLine({scale_.Middle(from.x), scale_.Middle(from.y)},
            {scale_.Middle(to.x), scale_.Middle(to.y)}, 1, stroke);
  } else if (isShort(from, to) && stroke.mix == R2_COPYPEN && DashPattern(stroke.style).IsSolid()) {
    const int w = stroke.width;
    runLine({scale_.Edge(PenBegin(from.x, w)), scale_.Edge(PenBegin(from.y, w))},
            {scale_.Edge(PenBegin(to.x, w)), scale_.Edge(PenBegin(to.y, w))}, scale_.Width(w),
            stroke);
  } else {
    wideLine(from, to, stroke);
  }
}

void Painting::band(const QRect& area, Qt::Orientation along, const Stroke& stroke) {
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

/// Runs of pixels in the direction in which the line is longer. Run k holds the steps i whose exact
/// offset i * m / n rounds to k, so it is found without walking: a line of two runs costs two
/// rectangles, however long it is. Of a wide pen, which the points are the top left pixels of, each
/// run is as much longer and thicker; the runs overlap then.
void Painting::runLine(QPoint from, QPoint to, int thickness, const Stroke& stroke) {
  const int more = thickness - 1;
  const bool steep = std::abs(to.y() - from.y()) > std::abs(to.x() - from.x());
  const auto along = [steep](QPoint p) { return steep ? p.y() : p.x(); };
  const auto across = [steep](QPoint p) { return steep ? p.x() : p.y(); };
  if (along(to) < along(from))
    std::swap(from, to);
  const std::int64_t n = along(to) - along(from);
  const std::int64_t m = std::abs(across(to) - across(from));
  const int sign = across(to) < across(from) ? -1 : 1;
  const int seenBegin = across(visible_.topLeft()) - more;
  const int seenEnd = across(visible_.bottomRight());
  const std::int64_t first = sign > 0 ? seenBegin - across(from) : across(from) - seenEnd;
  const std::int64_t last = sign > 0 ? seenEnd - across(from) : across(from) - seenBegin;
  const QRgb color = ToQt(stroke.color);
  const DashPattern dashes(stroke.style);
  const int visibleBegin = along(visible_.topLeft()) - more;
  const int visibleEnd = along(visible_.bottomRight()) + 1;
  for (std::int64_t k = std::max<std::int64_t>(first, 0); k <= std::min(last, m); ++k) {
    const std::int64_t begin = k == 0 ? 0 : divideUp((2 * k - 1) * n, 2 * m);
    const std::int64_t end = k == m ? n + 1 : divideUp((2 * k + 1) * n, 2 * m);
    const int row = across(from) + sign * static_cast<int>(k);
    const int base = along(from);
    dashes.ForEachDash(
        1, base, base + static_cast<int>(n) + 1,
        std::max(visibleBegin, base + static_cast<int>(begin)),
        std::min(visibleEnd, base + static_cast<int>(end)), [&](int a, int b) {
          const int length = b - a + more;
          fill(steep ? QRect(row, a, thickness, length) : QRect(a, row, length, thickness), color);
        });
  }
}

void Painting::wideLine(CPoint from, CPoint to, const Stroke& stroke) {
  QLineF line(penCentre(from.x, stroke.width), penCentre(from.y, stroke.width),
              penCentre(to.x, stroke.width), penCentre(to.y, stroke.width));
  const int width = scale_.Width(stroke.width);
  double offset = 0;
  if (!isNear(line)) {
    const double length = line.length();
    const double margin = 2.0 * width;
    const double cut = cutToRect(line, QRectF(bounds_).adjusted(-margin, -margin, margin, margin));
    if (cut < 0)
      return;
    offset = cut * length;
  }
  clipPainter();
  setPen(makePen(stroke, width, offset));
  painter_.drawLine(line);
}

}  // namespace sparlow::qt
