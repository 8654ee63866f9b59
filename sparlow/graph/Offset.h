#pragma once

#include "sparlow/platform/LogicalPixel.h"

namespace sparlow {

class ViewData;

/// The margins of a graph, in device pixels: each a whole number of logical pixels times
/// Offset::LogPixelSize, so that one layout serves screen and paper.
/// Threads: any.
struct Offset : LogicalPixel {
  /// Width of a border round an active graph, in logical pixels. There is none.
  static int ActiveBorderSize() { return 0; }
  /// Distance of the caption from the edge of the plot.
  static int FromGraphEdge() { return ToDevice(4); }
  /// Space above the plot for a caption of one line.
  static int Top() { return ToDevice(21); }
  /// What a second caption line takes above the first one.
  static int CaptionLine() { return ToDevice(13); }
  /// Space below the plot for the horizontal labels.
  static int Bottom() { return ToDevice(21); }
  /// Space right of the plot for the unit of the horizontal axis.
  static int Right() { return ToDevice(20); }
  /// Space left of the plot for vertical labels of at most so many characters.
  static int Left(unsigned labelLength);
  /// Smallest height and width of a graph with its margins.
  static int hMin() { return ToDevice(50); }
  static int wMin() { return ToDevice(200); }
};

/// The top margin for a series: Offset::Top, and a second caption line for one that was calculated
/// from an interval of another series. Null counts as a series without such an interval.
int TopOffset(const ViewData* series);

}  // namespace sparlow
