#pragma once

#include "sparlow/platform/CopyableAtomic.h"

namespace sparlow {

/// The process-wide size of a logical pixel, which margins, pens and marks are multiples of.
/// Threads: any may read; the window's thread writes, while no worker of any graph runs.
struct LogicalPixel {
  /// Device pixels per logical pixel: 1 on the screen, 7 while a page is printed.
  static inline CopyableAtomic<unsigned> LogPixelSize{1u};

  /// logical pixels in device pixels.
  static int ToDevice(int logical) { return logical * static_cast<int>(LogPixelSize.load()); }
};

}  // namespace sparlow
