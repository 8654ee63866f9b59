// The window's half of the pipeline: from a change to columns that are ready for a paint, or to a
// worker that makes them.

#include <algorithm>

#include "sparlow/data/DataLock.h"
#include "sparlow/graph/AxisFit.h"
#include "sparlow/graph/GraphParts.h"
#include "sparlow/platform/base/UiThread.h"
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
    parts->bars.Hide();
  if (update())
    RedrawWindow(hWnd, RDW_INVALIDATE);
  else
    parts->pipeline.Ask(false, true);
  warnTooLarge(layout.TooLarge());
}

bool Graph::update() {
  {
    // A render that runs goes on to its end, or a feed would starve it.
    const RenderPipeline::Turn turn(parts->pipeline, RenderPipeline::Turn::awaitsRender);
    if (!turn || !activeViewData)
      return true;
    if (!fitAndRender())
      return false;
    // Whatever was due has been done here.
    parts->pipeline.Satisfied();
  }
  UpdateCursorsReadout();
  UpdateStaParams();
  return true;
}

bool Graph::fitAndRender() {
  ViewData* const series = activeViewData;
  if (!series->Valid()) {
    layout.ForgetTooLarge();
    if (!axis->preset)
      axis->Reset();
    return true;
  }
  // Whoever analyses the series may take long; a worker waits for that.
  const DataLock threads(series->threadsMutex, std::try_to_lock);
  if (!threads) {
    parts->updateMissed = true;
    return false;
  }
  parts->updateMissed = false;
  axis->SetUnits(series->GetxUnit(), series->GetyUnit());
  parts->readouts.NoteUnits(*axis, *series);
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
  const IntervalBounds data{xMin, xMax, yMin, yMax};
  const bool live = series->inTransfer && series->IntervalWhole() &&
                    SourceData::nLastSamplesToDraw == 0 && series->RealTimeScalingDefined();
  if (!live) {
    FitAxes(*axis, data, series->IntervalWhole());
    return true;
  }
  return series->GetSize() < 2 || FitLiveAxes(*axis, data);
}

void Graph::sbRender() {
  /// Nobody resizes while it lives. It leaves resizing free at its end, also where a host had locked it.
  struct ResizingLocked {
    ResizingLocked() { LockResize = true; }
    ~ResizingLocked() { LockResize = false; }
  };
  // A bar that comes or goes changes the size of the window. The update that this is part of lays the
  // window out anyway.
  const ResizingLocked locked;
  parts->bars.Show(*activeViewData, *axis);
}

void Graph::SetGraphArea(const CRect& area) {
  layout.LayOut(area, *axis, activeViewData, IsLegend() ? LegendOffset() : 0, pixelFactor);
}

void Graph::layOut() {
  CRect client;
  GetClientRect(hWnd, &client);
  SetGraphArea(client);
}

void Graph::warnTooLarge(bool tooLarge) {
  // Messages that are handled while it is open would open another.
  if (!tooLarge || Closed() || parts->boxOpen.exchange(true))
    return;
  AfxMessageBox("Screen or printer resolution is too high.\nThe graph will be truncated.", 0, 0);
  parts->boxOpen = false;
}

void Graph::ResizeGraph() {
  if (LockResize || !DataAndAxisValid())
    return;
  const WindowHold hold(hWnd);
  if (largestInterval() >= resizeWorkerLimit || !resize())
    return parts->pipeline.Ask(true, false);
  RedrawWindow(hWnd, RDW_INVALIDATE);
  warnTooLarge(layout.TooLarge());
}

bool Graph::resize() {
  const RenderPipeline::Turn turn(parts->pipeline, RenderPipeline::Turn::stopsRender);
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
  const RenderPipeline::Turn turn(parts->pipeline, RenderPipeline::Turn::stopsRender);
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
