// What several series on one pair of axes show: their intervals, the range of the axes, the columns.

#include <algorithm>

#include "sparlow/multi/MultiGraph.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void MultiGraph::defineMinMax() {
  Graph::defineMinMax();
  const ViewData* const primary = activeViewData;
  const bool whole = primary->IntervalWhole();
  for (ViewData* const data : Snapshot(viewDataList)) {
    if (data == primary || !data->Valid())
      continue;
    if (whole) {
      data->ResetInterval(&axis->hor);
    } else {
      // What it will show, not what it has shown: the vertical axis must fit at once. A search sees
      // no more than the interval before it.
      data->SetFrom(0);
      data->SetTo(data->GetSize());
      data->SetIntervalByX(xMin, xMax);
    }
    data->SetIntervalParams();
    include(*data, whole);
  }
}

void MultiGraph::include(const ViewData& data, bool horizontally) {
  const IntervalBounds bounds = data.GetIntervalBounds();
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

bool MultiGraph::RenderSecondaryGraphs() {
  return renderList(Snapshot(viewDataList), true);
}

bool MultiGraph::renderList(const SourceDataList& list, bool followAxis) {
  const ViewData* const primary = activeViewData;
  return std::all_of(list.begin(), list.end(), [&](ViewData* data) {
    return data == primary || !data->Valid() || renderBeside(*data, followAxis);
  });
}

void MultiGraph::DrawSecondaryGraphs(CDC* dc) {
  DrawList(dc, viewDataList);
}

void MultiGraph::DrawList(CDC* dc, const SourceDataList& list) {
  for (const ViewData* const data : list) {
    if (data != activeViewData)
      data->Draw(dc, height, false);
  }
}

void MultiGraph::DrawPrimaryGraph(CDC* dc) {
  activeViewData.load()->Draw(dc, height, IsMultiple());
}

}  // namespace sparlow
