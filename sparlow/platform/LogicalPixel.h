#pragma once

namespace sparlow {

/// The size of a logical pixel, which margins, pens and marks are multiples of.
/// Threads: any; each has a size of its own, so that a page being printed leaves alone the layout
/// of other graphs that workers make meanwhile.
struct LogicalPixel {
  /// Device pixels per logical pixel: 1 on the screen, 7 while a page is printed.
  static inline thread_local unsigned LogPixelSize = 1;

  /// logical pixels in device pixels.
  static int ToDevice(int logical) { return logical * static_cast<int>(LogPixelSize); }
};

}  // namespace sparlow
