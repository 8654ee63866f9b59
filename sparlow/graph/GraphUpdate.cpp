// The window's half of the pipeline: from a change to columns that are ready for a paint, or to a
// worker that makes them.

#include <algorithm>
#include <utility>

#include "sparlow/data/DataLock.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/platform/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void Graph::UpdateGraph() {
  // Whatever runs code of the host's may end the graph; this outlives it and tells.
  const std::shared_ptr<GraphWorkers> shared = workers;
  if (!activeViewData || !axis || shared->Closed())
    return;
  if (DataValid())
    sbRender();
  else
    ShowScrollBar(hWnd, SB_BOTH, false);
  if (shared->Closed())
    return;
  const Update end = update(*shared);
  if (end == Update::closed)
    return;
  if (end == Update::ready)
    RedrawWindow(hWnd, RDW_INVALIDATE);
  else
    startWorker(Job::render);
  // Last, since the view may go while the box is open.
  if (!shared->Closed())
    tellTooLarge(tooLarge);
}

Graph::Update Graph::update(GraphWorkers& shared) {
  {
    const CSingleLock pipeline(&shared.pipelineLock);
    if (shared.Closed())
      return Update::closed;
    ViewData* const series = activeViewData;
    if (!series->Valid()) {
      tooLarge = false;
      if (!axis->preset)
        axis->Reset();
      return Update::ready;
    }
    // Whoever analyses the series may take long; a worker waits for that.
    const DataLock threads(series->threadsMutex, std::try_to_lock);
    if (!threads) {
      updateMissed = true;
      return Update::worker;
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
      return Update::worker;
    RenderSecondaryGraphs();
    if (!RenderGraph(fullRender))
      return Update::worker;
  }
  UpdateCursorsReadout();
  UpdateStaParams();
  return Update::ready;
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
  const std::shared_ptr<GraphWorkers> shared = workers;
  if (LockResize || !DataAndAxisValid() || shared->Closed())
    return;
  if (largestInterval() >= resizeWorkerLimit)
    return startWorker(Job::resize);
  const Update end = resize(*shared);
  if (end == Update::closed)
    return;
  if (end == Update::worker)
    return startWorker(Job::resize);
  RedrawWindow(hWnd, RDW_INVALIDATE);
  tellTooLarge(tooLarge);
}

Graph::Update Graph::resize(GraphWorkers& shared) {
  const CSingleLock pipeline(&shared.pipelineLock);
  if (shared.Closed())
    return Update::closed;
  const DataLock threads(activeViewData.load()->threadsMutex, std::try_to_lock);
  if (!threads)
    return Update::worker;
  layOut();
  return RenderSecondaryGraphs() && RenderGraph(true) ? Update::ready : Update::worker;
}

bool Graph::whileNobodyRenders(const std::function<bool()>& change) {
  // A message box may be answered while the lock is waited for, and in a host's own code, and end
  // the graph.
  const std::shared_ptr<GraphWorkers> shared = workers;
  const CSingleLock pipeline(&shared->pipelineLock);
  return !shared->Closed() && change() && !shared->Closed();
}

bool Graph::changeSeries(const std::function<bool()>& change) {
  const std::shared_ptr<GraphWorkers> shared = workers;
  const GraphWorkers::Pause pause(*shared);
  return whileNobodyRenders(change);
}

unsigned Graph::largestInterval() const {
  unsigned largest = 0;
  for (const ViewData* const series : AllSeries())
    largest = std::max(largest, series->GetIntervalSize());
  return largest;
}

void Graph::ChangeAxes(const std::function<void(GraphAxis&)>& change) {
  const bool changed = whileNobodyRenders([&] {
    if (!axis || !change)
      return false;
    change(*axis);
    return true;
  });
  if (changed)
    UpdateGraph();
}

}  // namespace sparlow
