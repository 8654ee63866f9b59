#pragma once

#include "sparlow/platform/base/Geometry.h"

namespace sparlow {

/// The largest coordinate that reaches a device, either sign. Painters keep 16 bits or little more.
inline constexpr int deviceCoordinateLimit = 30000;

/// Shortens a line to the square of deviceCoordinateLimit round the origin, keeping its course.
/// False when no part of it lies there. A line within the limit is left as it is.
bool ClipToDeviceLimit(CPoint& from, CPoint& to);

}  // namespace sparlow
