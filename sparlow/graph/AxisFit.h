#pragma once

#include "sparlow/data/SourceData.h"

namespace sparlow {

struct GraphAxis;

/// @file
/// How a pair of axes is fitted to the data on show. Fixed axes keep their range; their steps are
/// worked out anew. Threads: in a turn of the graph.

/// Gives the axes the range of the data. With a part of the series on show, an axis without
/// yAutoZoom keeps its vertical range.
void FitAxes(GraphAxis& axis, const IntervalBounds& data, bool wholeInterval);

/// The same while samples come in: only where the data don't fit any more, and with room for as
/// many samples again on the horizontal axis. Returns true when an axis has changed, so that pixels
/// are to be made anew.
bool FitLiveAxes(GraphAxis& axis, const IntervalBounds& data);

}  // namespace sparlow
