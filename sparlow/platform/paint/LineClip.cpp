#include "sparlow/platform/paint/LineClip.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sparlow {

namespace {

bool withinLimit(CPoint p) {
  return p.x >= -deviceCoordinateLimit && p.x <= deviceCoordinateLimit &&
         p.y >= -deviceCoordinateLimit && p.y <= deviceCoordinateLimit;
}

/// Narrows a part of a line to where start + share * delta lies between low and high. Returns false
/// when nothing is left.
bool narrow(LinePart& part, double start, double delta, double low, double high) {
  if (delta == 0.0)
    return start >= low && start <= high;
  double enter = (low - start) / delta;
  double leave = (high - start) / delta;
  if (enter > leave)
    std::swap(enter, leave);
  part.first = std::max(part.first, enter);
  part.last = std::min(part.last, leave);
  return part.first <= part.last;
}

}  // namespace

std::optional<LinePart> PartInside(const LineCourse& line, const LineBounds& area) {
  LinePart part;
  if (!narrow(part, line.x, line.dx, area.left, area.right) ||
      !narrow(part, line.y, line.dy, area.top, area.bottom))
    return std::nullopt;
  return part;
}

bool ClipToDeviceLimit(CPoint& from, CPoint& to) {
  if (withinLimit(from) && withinLimit(to))
    return true;
  constexpr double limit = deviceCoordinateLimit;
  const LineCourse line{static_cast<double>(from.x), static_cast<double>(from.y),
                        static_cast<double>(to.x) - from.x, static_cast<double>(to.y) - from.y};
  const auto part = PartInside(line, {-limit, -limit, limit, limit});
  if (!part)
    return false;
  const auto at = [&](double share) {
    return CPoint{static_cast<int>(std::lround(line.x + share * line.dx)),
                  static_cast<int>(std::lround(line.y + share * line.dy))};
  };
  from = at(part->first);
  to = at(part->last);
  return true;
}

}  // namespace sparlow
