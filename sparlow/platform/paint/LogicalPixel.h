#pragma once

#include <cmath>

#include "sparlow/platform/base/CopyableAtomic.h"

namespace sparlow {

/// The size of a logical pixel, which margins, pens and marks are multiples of.
/// Threads: any.
struct LogicalPixel {
  /// Device pixels per logical pixel of all graphs on the screen; the host's to set, before they
  /// are laid out.
  static inline CopyableAtomic<unsigned> LogPixelSize{1u};

  /// Logical pixels in device pixels. factor: what the device that is drawn on multiplies all of
  /// them by, 1 on the screen (CDC::GetPixelFactor).
  static int ToDevice(int logical, double factor = 1.0) {
    return static_cast<int>(
        std::lround(static_cast<double>(logical) * LogPixelSize.load() * factor));
  }
};

}  // namespace sparlow
