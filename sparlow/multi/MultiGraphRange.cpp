// What several series on one pair of axes show: their intervals and the range of the axes.

#include <algorithm>
#include <cmath>

#include "sparlow/data/SampleSearch.h"
#include "sparlow/multi/MultiGraph.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void MultiGraph::defineMinMax() {
  Graph::defineMinMax();
  const ViewData* const primary = activeViewData;
  const bool whole = primary->IntervalWhole(), fixed = !axis->hor.autoRange;
  const XRange window = whole && !fixed ? XRange{} : windowOnShow();
  for (ViewData* const data : Snapshot(viewDataList)) {
    if (data == primary || !data->Valid())
      continue;
    // What it will show, not what it has shown: the vertical axis must fit at once.
    if (whole || fixed)
      data->ResetInterval(&axis->hor);
    else
      data->SetIntervalByX(window.from, window.to);
    if ((!whole || fixed) && !hasSampleIn(*data, window))
      continue;
    data->SetIntervalParams();
    include(*data, whole);
  }
}

MultiGraph::XRange MultiGraph::windowOnShow() const {
  const AxisData& hor = axis->hor;
  if (hor.autoRange && xMax - xMin >= hor.epsilon)
    return {xMin, xMax};
  if (hor.autoRange) {
    // A single sample: the axis widens that.
    AxisData finished = hor;
    finished.SetMin(xMin);
    finished.SetMax(xMax);
    finished.SetParams();
    return {finished.min, finished.max};
  }
  if (!std::isfinite(hor.fixedMin) || !std::isfinite(hor.fixedMax))
    return {hor.min, hor.max};
  return {std::min(hor.fixedMin, hor.fixedMax), std::max(hor.fixedMin, hor.fixedMax)};
}

bool MultiGraph::hasSampleIn(const ViewData& data, XRange window) {
  const SampleReader samples = data.Read();
  const unsigned from = data.GetFrom(), end = std::min(data.GetTo(), samples.size());
  // Only the class itself knows where a mapping of its own puts samples.
  if (from >= end || !samples.ascending() || !data.MapsXByAxis())
    return from < end;
  const double x = samples.x(FirstNotBelow(samples, from, end - 1, window.from));
  return x >= window.from && x <= window.to;
}

void MultiGraph::include(const ViewData& data, bool horizontally) {
  const IntervalBounds bounds = data.GetBoundsOnShow();
  // A new data set that begins just now has none yet.
  if (!data.Valid() || (bounds == IntervalBounds{} && data.GetSize() > 1))
    return;
  if (horizontally) {
    xMin = std::min(xMin, bounds.xMin);
    xMax = std::max(xMax, bounds.xMax);
  }
  yMin = std::min(yMin, bounds.yMin);
  yMax = std::max(yMax, bounds.yMax);
}

void MultiGraph::ResetInterval() {
  for (ViewData* const data : Snapshot(viewDataList))
    data->ResetInterval(&axis->hor);
}

void MultiGraph::zoomOutFullSecondary() {
  for (ViewData* const data : viewDataList)
    data->ZoomOutFull(&axis->hor);
}

}  // namespace sparlow
