// The window's half of the pipeline: from a change to columns that are ready for a paint, or to a
// worker that makes them.

#include <algorithm>

#include "sparlow/data/DataLock.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void Graph::UpdateGraph() {
  if (!GetActiveViewData() || !axis)
    return;
  const WindowHold hold(hWnd);
  if (DataValid())
    sbRender();
  else
    ShowScrollBar(hWnd, SB_BOTH, false);
  if (update())
    RedrawWindow(hWnd, RDW_INVALIDATE);
  else
    pipeline.Ask(false, true);
  tellTooLarge(tooLarge);
}

bool Graph::update() {
  {
    // A render that runs goes on to its end, or a feed would starve it.
    const RenderPipeline::Turn turn(pipeline, RenderPipeline::Turn::awaitsRender);
    if (!turn || !activeViewData)
      return true;
    if (!fitAndRender())
      return false;
    // Whatever was due has been done here.
    pipeline.Satisfied();
  }
  UpdateCursorsReadout();
  UpdateStaParams();
  return true;
}

bool Graph::fitAndRender() {
  ViewData* const series = activeViewData;
  if (!series->Valid()) {
    tooLarge = false;
    if (!axis->preset)
      axis->Reset();
    return true;
  }
  // Whoever analyses the series may take long; a worker waits for that.
  const DataLock threads(series->threadsMutex, std::try_to_lock);
  if (!threads) {
    updateMissed = true;
    return false;
  }
  updateMissed = false;
  axis->SetUnits(series->GetxUnit(), series->GetyUnit());
  noteUnits();
  // Before the range of what is on show is asked for.
  if (!axis->hor.autoRange && series->adjusted)
    ResetInterval();
  bool fullRender = axis->preset || SetAxisAutoRange();
  layOut();
  // Columns of another data set, interval or scale can't be continued, whatever the axes say.
  fullRender = fullRender || !series->CanContinueRender(*axis);
  if ((fullRender && largestInterval() > updateRenderLimit) || muchToRenderBeside())
    return false;
  RenderSecondaryGraphs();
  return RenderGraph(fullRender);
}

// While samples come, a series beside the active one goes on over its columns; one that can't, since
// its own samples or its mapping have changed, may be long. One that is being analysed is left out.
bool Graph::muchToRenderBeside() const {
  for (const ViewData* const series : AllSeries()) {
    if (series == activeViewData || series->GetIntervalSize() <= updateRenderLimit ||
        series->CanContinueRender(*axis))
      continue;
    if (const DataLock free(series->threadsMutex, std::try_to_lock); free)
      return true;
  }
  return false;
}

bool Graph::RenderGraph(bool reset) {
  ViewData* const series = activeViewData;
  if (reset)
    series->ResetViewData();
  return series->Render(axis, reset);
}

bool Graph::SetAxisAutoRange() {
  const ViewData* const series = activeViewData;
  defineMinMax();
  const bool live = series->inTransfer && series->IntervalWhole() &&
                    SourceData::nLastSamplesToDraw == 0 && series->RealTimeScalingDefined();
  if (!live) {
    fitAxes(series->IntervalWhole());
    return true;
  }
  return series->GetSize() < 2 || fitLiveAxes();
}

bool Graph::fitLiveAxes() {
  // A range that is wide enough may still not hold the data: a margin leaves room at the wrong end,
  // and a new data set may lie elsewhere.
  const auto beyond = [](const AxisData& a, double min, double max) {
    return min < a.min || max > a.max;
  };
  bool changed = !axis->hor.autoRange && !axis->ver.autoRange;
  if (axis->hor.autoRange && (xMax - xMin > axis->hor.range || beyond(axis->hor, xMin, xMax))) {
    // Twice the span that the data have: the next full render is due only when they fill it.
    xMax += xMax - xMin;
    axis->SetHor(xMin, xMax);
    changed = true;
  }
  AxisData& ver = axis->ver;
  if (ver.autoRange && (yMax - yMin >= ver.range || beyond(ver, yMin, yMax))) {
    const double min = ver.min, max = ver.max;
    axis->SetVer(yMin, yMax);
    // Without a margin the data reach both ends all the time.
    changed = changed || ver.min != min || ver.max != max;
  }
  return changed;
}

void Graph::fitAxes(bool wholeInterval) {
  const bool horizontal = axis->hor.autoRange;
  const bool vertical = axis->ver.autoRange;
  if (horizontal && vertical) {
    if (axis->yAutoZoom || wholeInterval)
      axis->SetRange(yMin, yMax, xMin, xMax);
    else
      axis->SetHor(xMin, xMax);
    return;
  }
  // Fixed axes ignore the values and recompute their steps.
  if (vertical || !horizontal)
    axis->SetVer(yMin, yMax);
  if (horizontal || !vertical)
    axis->SetHor(xMin, xMax);
}

void Graph::ResizeGraph() {
  if (LockResize || !DataAndAxisValid())
    return;
  const WindowHold hold(hWnd);
  if (largestInterval() >= resizeWorkerLimit || !resize())
    return pipeline.Ask(true, false);
  RedrawWindow(hWnd, RDW_INVALIDATE);
  tellTooLarge(tooLarge);
}

bool Graph::resize() {
  const RenderPipeline::Turn turn(pipeline, RenderPipeline::Turn::stopsRender);
  if (!turn || !activeViewData)
    return true;
  const DataLock threads(activeViewData.load()->threadsMutex, std::try_to_lock);
  if (!threads)
    return false;
  layOut();
  return RenderSecondaryGraphs() && RenderGraph(true);
}

bool Graph::changeInTurn(const std::function<bool()>& change) {
  const WindowHold hold(hWnd);
  const RenderPipeline::Turn turn(pipeline, RenderPipeline::Turn::stopsRender);
  return turn && change() && turn;
}

void Graph::changeAndUpdate(const std::function<bool()>& change) {
  const WindowHold hold(hWnd);
  if (changeInTurn(change))
    UpdateGraph();
}

unsigned Graph::largestInterval() const {
  unsigned largest = 0;
  for (const ViewData* const series : AllSeries())
    largest = std::max(largest, series->GetIntervalSize());
  return largest;
}

void Graph::ChangeAxes(const std::function<void(GraphAxis&)>& change) {
  changeAndUpdate([&] {
    if (!axis || !change)
      return false;
    change(*axis);
    return true;
  });
}

}  // namespace sparlow
