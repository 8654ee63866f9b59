// What masks show: their range, their columns, and their column of the legend.

#include <algorithm>

#include "sparlow/multi/MultiGraphWithMasks.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void MultiGraphWithMasks::defineMinMax() {
  MultiGraph::defineMinMax();
  const ViewData* const primary = activeViewData;
  const bool fixed = !axis->hor.autoRange;
  const XRange window = fixed ? windowOnShow() : XRange{};
  for (ViewData* const data : Snapshot(maskList)) {
    if (data == primary || !data->Valid())
      continue;
    if (fixed && !hasSampleIn(*data, window))
      continue;
    data->SetIntervalParams();
    include(*data, primary->IntervalWhole());
  }
}

void MultiGraphWithMasks::ResetInterval() {
  MultiGraph::ResetInterval();
  for (ViewData* const data : Snapshot(maskList))
    data->ResetInterval(&axis->hor);
}

void MultiGraphWithMasks::zoomOutFullSecondary() {
  MultiGraph::zoomOutFullSecondary();
  for (ViewData* const data : maskList) {
    if (data->Valid())
      data->ZoomOutFull(&axis->hor);
  }
}

bool MultiGraphWithMasks::RenderSecondaryGraphs() {
  return MultiGraph::RenderSecondaryGraphs() && renderList(Snapshot(maskList), false);
}

void MultiGraphWithMasks::DrawSecondaryGraphs(CDC* dc) {
  MultiGraph::DrawSecondaryGraphs(dc);
  DrawList(dc, maskList);
}

int MultiGraphWithMasks::LegendOffset() const {
  return std::max(MultiGraph::LegendOffset(), GetLegendRect(maskList).Height());
}

void MultiGraphWithMasks::DrawLegend(CDC* dc) {
  if (!IsMultiple())
    return;
  constexpr int characterWidth = 7;
  legendMaskWidth = maskList.count == 0 ? 0 : longestMaskName * dc->LogicalToDevice(characterWidth);
  // The graphs have names too.
  legendMaskWidth = std::min(legendMaskWidth, layout.Width() / 2);
  MultiGraph::DrawLegend(dc);
  if (legendMaskWidth == 0)
    return;
  CRect column = GetLegendRect(maskList);
  column.left = column.right - legendMaskWidth;
  DrawSubLegend(dc, column, maskList);
}

}  // namespace sparlow
