#include "sparlow/platform/paint/LineClip.h"

#include <cmath>

namespace sparlow {

namespace {

bool withinLimit(CPoint p) {
  return p.x >= -deviceCoordinateLimit && p.x <= deviceCoordinateLimit &&
         p.y >= -deviceCoordinateLimit && p.y <= deviceCoordinateLimit;
}

/// Narrows the part first to last of a line, in shares of its length, to where start + share *
/// delta keeps the limit. False when nothing is left.
bool narrow(double start, double delta, double& first, double& last) {
  constexpr double limit = deviceCoordinateLimit;
  if (delta == 0.0)
    return std::abs(start) <= limit;
  double enter = (-limit - start) / delta;
  double leave = (limit - start) / delta;
  if (enter > leave)
    std::swap(enter, leave);
  first = std::max(first, enter);
  last = std::min(last, leave);
  return first <= last;
}

}  // namespace

bool ClipToDeviceLimit(CPoint& from, CPoint& to) {
  if (withinLimit(from) && withinLimit(to))
    return true;
  const double x = from.x;
  const double y = from.y;
  const double dx = static_cast<double>(to.x) - x;
  const double dy = static_cast<double>(to.y) - y;
  double first = 0.0;
  double last = 1.0;
  if (!narrow(x, dx, first, last) || !narrow(y, dy, first, last))
    return false;
  const auto at = [&](double share) {
    return CPoint{static_cast<int>(std::lround(x + share * dx)),
                  static_cast<int>(std::lround(y + share * dy))};
  };
  from = at(first);
  to = at(last);
  return true;
}

}  // namespace sparlow
