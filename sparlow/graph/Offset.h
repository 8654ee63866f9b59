#pragma once

#include "sparlow/platform/paint/LogicalPixel.h"

namespace sparlow {

class ViewData;

/// The margins of a graph, in device pixels: each a whole number of logical pixels times
/// Offset::LogPixelSize and the factor of the device, so that one layout serves screen and paper.
/// Threads: any.
struct Offset : LogicalPixel {
  /// Width of a border round an active graph, in logical pixels. There is none.
  static int ActiveBorderSize() { return 0; }
  /// Distance of the caption from the edge of the plot.
  static int FromGraphEdge(double factor = 1.0) { return ToDevice(4, factor); }
  /// Space above the plot for a caption of one line.
  static int Top(double factor = 1.0) { return ToDevice(21, factor); }
  /// What a second caption line takes above the first one.
  static int CaptionLine(double factor = 1.0) { return ToDevice(13, factor); }
  /// Space below the plot for the horizontal labels.
  static int Bottom(double factor = 1.0) { return ToDevice(21, factor); }
  /// Space right of the plot for the unit of the horizontal axis.
  static int Right(double factor = 1.0) { return ToDevice(20, factor); }
  /// Space left of the plot for vertical labels of at most so many characters.
  static int Left(unsigned labelLength, double factor = 1.0);
  /// Smallest height and width of a graph with its margins.
  static int hMin(double factor = 1.0) { return ToDevice(50, factor); }
  static int wMin(double factor = 1.0) { return ToDevice(200, factor); }
};

/// The top margin for a series: Offset::Top, and a second caption line for one that was calculated
/// from an interval of another series. Null counts as a series without such an interval. Any
/// thread.
int TopOffset(const ViewData* series, double factor = 1.0);

}  // namespace sparlow
