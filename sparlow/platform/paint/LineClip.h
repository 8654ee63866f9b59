#pragma once

#include <optional>

#include "sparlow/platform/base/Geometry.h"

namespace sparlow {

/// The largest coordinate that reaches a device, either sign. Painters keep 16 bits or little more.
inline constexpr int deviceCoordinateLimit = 30000;

/// A line by its beginning and the way to its end.
struct LineCourse {
  double x;
  double y;
  double dx;
  double dy;
};

/// An area with all of its edges.
struct LineBounds {
  double left;
  double top;
  double right;
  double bottom;
};

/// A part of a line, in shares of its length from the beginning.
struct LinePart {
  double first = 0.0;
  double last = 1.0;
};

/// The part of a line that lies in an area (Liang and Barsky, ACM Transactions on Graphics 3,
/// 1984); no value when none does.
std::optional<LinePart> PartInside(const LineCourse& line, const LineBounds& area);

/// Shortens a line to the square of deviceCoordinateLimit round the origin, keeping its course.
/// Returns false when no part of it lies there. A line within the limit is left as it is.
bool ClipToDeviceLimit(CPoint& from, CPoint& to);

}  // namespace sparlow
