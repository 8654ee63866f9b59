// The window's half of the pipeline: from a change to columns that are ready for a paint, or to a
// worker that makes them.

#include "sparlow/graph/Graph.h"
#include "sparlow/platform/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

void Graph::UpdateGraph() {
  if (!activeViewData || !axis || workers->Closed())
    return;
  if (update())
    RedrawWindow(hWnd, RDW_INVALIDATE);
  else
    startWorker(Job::render);
  // Last, since the view may go while the box is open.
  tellTooLarge();
}

bool Graph::update() {
  CSingleLock pipeline(&pipelineLock);
  ViewData* const series = activeViewData;
  if (!series->Valid()) {
    ShowScrollBar(hWnd, SB_BOTH, false);
    if (!axis->preset)
      axis->Reset();
    return true;
  }
  CSingleLock threads(series->threadsMutex);
  sbRender();
  axis->SetUnits(series->GetxUnit(), series->GetyUnit());
  bool fullRender = axis->preset || SetAxisAutoRange();
  layOut();
  if (!axis->hor.autoRange && series->adjusted)
    ResetInterval();
  // Columns of another data set, interval or scale can't be continued, whatever the axes say.
  fullRender = fullRender || !series->CanContinueRender(*axis);
  if (fullRender && series->GetIntervalSize() > updateRenderLimit)
    return false;
  RenderSecondaryGraphs();
  if (!RenderGraph(fullRender))
    return false;
  threads.Unlock();
  pipeline.Unlock();
  UpdateCursorsReadout();
  UpdateStaParams();
  return true;
}

bool Graph::RenderGraph(bool reset) {
  ViewData* const series = activeViewData;
  if (reset)
    series->ResetViewData();
  return series->Render(axis, reset);
}

void Graph::sbRender() {
  // A bar that goes changes the size of the window, which this update is about to lay out anyway.
  LockResize = true;
  ShowScrollBar(hWnd, SB_BOTH, false);
  LockResize = false;
}

bool Graph::SetAxisAutoRange() {
  ViewData* const series = activeViewData;
  defineMinMax();
  const bool live = series->inTransfer && series->IntervalWhole() &&
                    SourceData::nLastSamplesToDraw == 0 && series->RealTimeScalingDefined();
  if (live && series->GetSize() < 2)
    return true;
  const std::uint64_t dataSet = series->Read().serial();
  const bool newDataSet = std::exchange(fittedDataSet, dataSet) != dataSet;
  if (live)
    return fitLiveAxes(newDataSet);
  fitAxes(series->IntervalWhole());
  return true;
}

bool Graph::fitLiveAxes(bool newDataSet) {
  bool changed = !axis->hor.autoRange && !axis->ver.autoRange;
  // Axes that were wide enough for the data set before say nothing about a new one.
  if (axis->hor.autoRange && (newDataSet || xMax - xMin > axis->hor.range)) {
    // Twice the span that the data have: the next full render is due only when they fill it.
    xMax += xMax - xMin;
    axis->SetHor(xMin, xMax);
    changed = true;
  }
  // With a margin the axis may be wider than the data and yet not hold a new peak.
  const bool beyond = yMin < axis->ver.min || yMax > axis->ver.max;
  if (axis->ver.autoRange && (newDataSet || beyond || yMax - yMin >= axis->ver.range)) {
    axis->SetVer(yMin, yMax);
    changed = true;
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
  if (LockResize || !DataAndAxisValid() || workers->Closed())
    return;
  if (activeViewData.load()->GetIntervalSize() >= resizeWorkerLimit)
    return startWorker(Job::resize);
  resize();
  RedrawWindow(hWnd, RDW_INVALIDATE);
  tellTooLarge();
}

bool Graph::resize() {
  const CSingleLock pipeline(&pipelineLock);
  const CSingleLock threads(activeViewData.load()->threadsMutex);
  layOut();
  return RenderSecondaryGraphs() && RenderGraph(true);
}

}  // namespace sparlow
