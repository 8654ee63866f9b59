#include "sparlow/graph/AxisFit.h"

#include "sparlow/axis/GraphAxis.h"

namespace sparlow {

namespace {

/// A range that is wide enough may still not hold the data: a margin leaves room at the wrong end, and a
/// new data set may lie elsewhere.
bool isBeyond(const AxisData& axis, double min, double max) {
  return min < axis.min || max > axis.max;
}

}  // namespace

void FitAxes(GraphAxis& axis, const IntervalBounds& data, bool wholeInterval) {
  const bool horizontal = axis.hor.autoRange;
  const bool vertical = axis.ver.autoRange;
  if (horizontal && vertical) {
    if (axis.yAutoZoom || wholeInterval)
      axis.SetRange(data.yMin, data.yMax, data.xMin, data.xMax);
    else
      axis.SetHor(data.xMin, data.xMax);
    return;
  }
  // Fixed axes ignore the values and recompute their steps.
  if (vertical || !horizontal)
    axis.SetVer(data.yMin, data.yMax);
  if (horizontal || !vertical)
    axis.SetHor(data.xMin, data.xMax);
}

bool FitLiveAxes(GraphAxis& axis, const IntervalBounds& data) {
  AxisData &hor = axis.hor, &ver = axis.ver;
  bool changed = !hor.autoRange && !ver.autoRange;
  const double span = data.xMax - data.xMin;
  if (hor.autoRange && (span > hor.range || isBeyond(hor, data.xMin, data.xMax))) {
    // Twice the span that the data have: the next full render is due only when they fill it.
    axis.SetHor(data.xMin, data.xMax + span);
    changed = true;
  }
  if (ver.autoRange &&
      (data.yMax - data.yMin >= ver.range || isBeyond(ver, data.yMin, data.yMax))) {
    const double min = ver.min, max = ver.max;
    axis.SetVer(data.yMin, data.yMax);
    // Without a margin the data reach both ends all the time.
    changed = changed || ver.min != min || ver.max != max;
  }
  return changed;
}

}  // namespace sparlow
