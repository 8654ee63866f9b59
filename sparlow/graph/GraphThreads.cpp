// What the workers of a graph do, and how it ends.

#include <algorithm>
#include <utility>

#include "sparlow/data/DataLock.h"
#include "sparlow/graph/GraphParts.h"
#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/WindowSite.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

bool Graph::Settled() const {
  return !RenderDue() && !parts->pipeline.Busy() && !parts->analysis.Busy() &&
         !parts->maskAnalysis.Busy();
}

bool Graph::RenderDue() const {
  return parts->pipeline.Due();
}

bool Graph::Closed() const {
  return parts->pipeline.Closed();
}

Graph::Parts::Parts(Graph& owner)
    : graph(owner),
      pipeline(*this, &owner),
      analysis([&owner](bool onWorker) { owner.AnalyzeThread(&Graph::AnalyzeEach, onWorker); },
               &owner),
      maskAnalysis(
          [&owner](bool onWorker) { owner.AnalyzeThread(&Graph::AnalyzeEachNewMask, onWorker); },
          &owner) {}

RenderPipeline::End Graph::Parts::MakeColumns(RenderPipeline::Run& run) {
  using End = RenderPipeline::End;
  ViewData* const series = graph.activeViewData;
  if (!series)
    return End::handedOver;
  const std::vector<ViewData*> all = graph.AllSeries();
  // A host that has signalled a series lets nobody work at it until it clears that.
  for (const ViewData* const each : all) {
    const bool counts = each == series || run.NewLayout();
    if (counts && each->terminator && !each->terminator->WaitForReset(run.Interrupt()))
      return End::stopped;
  }
  // An analysis of the series may take its time, and nothing else is to wait for it.
  const DataLock threads(series->threadsMutex, run.Interrupt());
  if (!threads) {
    if (!run.MayWait())
      postponed = true;
    return End::stopped;
  }
  // An update that found the series in use has fitted no axis: it is due now, before a paint.
  if (updateMissed.exchange(false)) {
    PostMessage(graph.hWnd, WM_UPDATE_GRAPH, 0, 0);
    return End::handedOver;
  }
  if (!run.Begin(all))
    return End::stopped;
  if (run.NewLayout())
    graph.layOut();
  const bool secondary = graph.RenderSecondaryGraphs();
  return (run.NewLayout() && !secondary) || !graph.RenderGraph(true) ? End::stopped : End::done;
}

void Graph::Parts::RenderEnded(RenderPipeline::End end, bool newLayout) {
  // The paint that comes now brings the graph in place of the message.
  RedrawWindow(graph.hWnd, RDW_INVALIDATE);
  if (end != RenderPipeline::End::done)
    return;
  failureShown = false;
  graph.sendDueReadouts();
  if (newLayout)
    graph.warnTooLarge(graph.layout.TooLarge());
}

void Graph::Parts::RenderFailed(const std::exception_ptr& reason) {
  // A feed would bring one box after the other.
  if (failureShown.exchange(true))
    return;
  std::string text = "Cannot render the graph.";
  try {
    std::rethrow_exception(reason);
  } catch (const std::bad_alloc&) {
    text += "\nThere is not enough memory.";
  } catch (const std::exception& error) {
    text += std::string("\n") + error.what();
  } catch (...) {
    // It says nothing about itself.
  }
  AfxMessageBox(text.c_str(), MB_ICONEXCLAMATION, 0);
}

void Graph::sendDueReadouts() {
  ViewData* const series = activeViewData;
  const SeriesLeases::Use use(parts->leases, series);
  // A series that is to stop has nothing to send; whoever renders it next sends what is due.
  if (!use || series->IsAborted() || !parts->pipeline.TakeReadout())
    return;
  UpdateCursorsReadout();
  UpdateStaParams();
}

void Graph::AnalyzeThread(bool (Graph::*analyzeEach)(), bool onWorker) {
  bool done = false;
  try {
    done = (this->*analyzeEach)();
  } catch (...) {
    if (!onWorker)
      throw;
    // It counts as a failure of that calculation; others have been carried out.
  }
  done = parts->calculated.exchange(false) || done;
  if (parts->postponed.exchange(false) || done)
    PostMessage(hWnd, WM_UPDATE_GRAPH, 0, 0);
}

bool Graph::analyze(ViewData* series, bool (SourceData::*how)(), bool onlyEmpty) {
  const SeriesLeases::Use use(parts->leases, series);
  if (!use)
    return false;
  // Another worker may be filling it; whoever wants it back mustn't wait for that.
  const DataLock threads(series->threadsMutex, use.Stop());
  if (!threads || (onlyEmpty && series->Valid()) || !(series->*how)())
    return false;
  parts->calculated = true;
  return true;
}

bool Graph::renderBeside(ViewData& series, bool followAxis) {
  const auto lock = [&] {
    return std::make_unique<DataLock>(series.threadsMutex, std::try_to_lock);
  };
  auto threads = lock();
  if (!*threads) {
    parts->postponed = true;
    // An analysis that ended before it could see that is no hindrance any more.
    threads = lock();
    if (!*threads) {
      // What it has rendered before belongs to other axes.
      series.ResetViewData();
      return true;
    }
  }
  if (followAxis)
    series.SetInterval(axis->hor);
  // While samples come an update costs what is new, here too.
  const ViewData* const primary = activeViewData;
  return series.Render(axis, !(primary && primary->inTransfer));
}

void Graph::AnalyzeAll() {
  const WindowHold hold(hWnd);
  parts->analysis.Request();
}

void Graph::AnalyzeMask() {
  const WindowHold hold(hWnd);
  parts->maskAnalysis.Request();
}

void Graph::stopSeries(ViewData* series) {
  series->closing = true;
  // A signal of the host's own is the host's to clear.
  const bool signalled = series->terminator && series->terminator->IsSet();
  if (!signalled)
    SetEvent(series->terminator);
  parts->stopped.push_back({series, !signalled});
}

bool Graph::releaseSeries(ViewData* series) {
  const auto stop =
      std::find_if(parts->stopped.begin(), parts->stopped.end(),
                   [series](const Parts::StoppedSeries& each) { return each.series == series; });
  if (stop == parts->stopped.end())
    return false;
  series->closing = false;
  if (stop->signalled)
    ResetEvent(series->terminator);
  parts->stopped.erase(stop);
  return true;
}

void Graph::withdraw(ViewData* series) {
  const UiThread::AnswerBoxes answered(this);
  parts->leases.Withdraw(series);
}

void Graph::readmit(ViewData* series) {
  parts->leases.Readmit(series);
}

void Graph::SetThreadsTerminator() {
  for (ViewData* const series : AllSeries())
    stopSeries(series);
}

void Graph::ClearThreadsTerminator() {
  while (!parts->stopped.empty())
    releaseSeries(parts->stopped.back().series);
}

void Graph::WaitForThreadsEnd() {
  for (const ViewData* const series : AllSeries())
    const DataLock free(series->threadsMutex);
}

void Graph::Destroy() {
  if (Closed())
    return;
  parts->pipeline.Close();
  parts->analysis.Close();
  parts->maskAnalysis.Close();
  SetThreadsTerminator();
  // One that was replaced while it was analysed isn't the graph's any more.
  for (ViewData* const series : parts->leases.Close())
    stopSeries(series);
  {
    const UiThread::AnswerBoxes answered(this);
    parts->pipeline.WaitUntilIdle();
    parts->analysis.WaitUntilIdle();
    parts->maskAnalysis.WaitUntilIdle();
  }
  ClearThreadsTerminator();
  parts->frame.Free();
}

}  // namespace sparlow
