// The workers' half of the pipeline, and how it ends.

#include <utility>

#include "sparlow/data/DataLock.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/platform/Threads.h"
#include "sparlow/platform/UiThread.h"
#include "sparlow/platform/Windows.h"
#include "sparlow/view/ViewData.h"

namespace sparlow {

/// What a worker is started with. It shares the count, which it must reach after the graph has
/// gone.
struct Graph::WorkerStart {
  std::shared_ptr<GraphWorkers> workers;
  Graph* graph;
  Job job;
  std::uint64_t render;
};

void Graph::startWorker(Job job) {
  auto start = std::make_unique<WorkerStart>(WorkerStart{workers, this, job, 0});
  if (!workers->Enter())
    return;
  if (job == Job::render || job == Job::resize)
    start->render = workers->AskForRender(job == Job::render);
  if (beginThread(start.get())) {
    // The worker's own now.
    static_cast<void>(start.release());
    return;
  }
  // The system has no thread to give: the work is done here.
  workers->Leave();
  doJob(job, start->render, false);
}

bool Graph::beginThread(WorkerStart* start) {
  try {
    return AfxBeginThread(runWorker, start);
  } catch (...) {
    // A host's way of starting threads failed.
    return false;
  }
}

unsigned Graph::runWorker(void* parameter) {
  const std::unique_ptr<WorkerStart> start(static_cast<WorkerStart*>(parameter));
  try {
    start->graph->doJob(start->job, start->render, true);
  } catch (...) {
    // What a host's calculation or mapping throws counts as a failure of it; nobody could catch it.
  }
  // The graph may be gone as soon as it is counted off.
  start->workers->Leave();
  return 0;
}

void Graph::doJob(Job job, std::uint64_t render, bool onWorker) {
  switch (job) {
    case Job::render:
    case Job::resize:
      return RenderThread(render, job == Job::resize, onWorker);
    case Job::analyzeAll:
      return AnalyzeThread(&Graph::AnalyzeEach, onWorker);
    case Job::analyzeMask:
      return AnalyzeThread(&Graph::AnalyzeEachNewMask, onWorker);
  }
}

/// Marks the window when no render is due any more, after everything is released: who is the last
/// to give up, behind the one that rendered, brings the graph in place of the message.
class Graph::LastRepaints {
 public:
  explicit LastRepaints(Graph& graph) : graph_(graph) {}
  ~LastRepaints() {
    if (!graph_.RenderDue())
      RedrawWindow(graph_.hWnd, RDW_INVALIDATE);
  }
  LastRepaints(const LastRepaints&) = delete;
  LastRepaints& operator=(const LastRepaints&) = delete;

 private:
  Graph& graph_;
};

void Graph::RenderThread(std::uint64_t render, bool newLayout, bool onWorker) {
  constexpr std::chrono::milliseconds pause{5};
  RenderEnd end = RenderEnd::givenUp;
  {
    const LastRepaints repaint(*this);
    const GraphWorkers::DueRender due(*workers);
    end = tryRender(render, newLayout);
    // Stopped, but by nobody who would do the work in this one's place: a host has signalled the
    // terminator, the series is being analysed, or another one is added. A worker waits until that
    // is over, without any lock.
    while (end == RenderEnd::stopped && onWorker && !workers->WaitForNewer(render, pause))
      end = tryRender(render, newLayout);
    // An update that found the series in use has fitted no axis: it is due now, before a paint.
    if (end != RenderEnd::givenUp && updateMissed.exchange(false)) {
      PostMessage(hWnd, WM_UPDATE_GRAPH, 0, 0);
      end = RenderEnd::givenUp;
    }
  }
  if (end != RenderEnd::done)
    return;
  sendDueReadouts();
  if (newLayout)
    tellTooLarge(tooLarge);
}

Graph::RenderEnd Graph::tryRender(std::uint64_t render, bool newLayout) {
  const CSingleLock pipeline(&workers->pipelineLock);
  ViewData* const series = activeViewData;
  if (!series)
    return RenderEnd::givenUp;
  // An analysis of the series may take its time, and nothing else is to wait for it.
  const DataLock threads(series->threadsMutex, std::try_to_lock);
  if (!threads)
    return RenderEnd::stopped;
  const GraphWorkers::RunningRender running(*workers, render, AllSeries());
  if (!running)
    return running.Paused() ? RenderEnd::stopped : RenderEnd::givenUp;
  if (newLayout)
    layOut();
  const bool secondary = RenderSecondaryGraphs();
  if ((newLayout && !secondary) || !RenderGraph(true))
    return RenderEnd::stopped;
  return RenderEnd::done;
}

void Graph::sendDueReadouts() {
  const ViewData* const series = activeViewData;
  const GraphWorkers::SeriesInUse use(*workers, series);
  // A series that is to stop has nothing to tell; whoever renders it next sends what is due.
  if (!use || series->IsAborted() || !workers->TakeReadout())
    return;
  UpdateCursorsReadout();
  UpdateStaParams();
}

void Graph::AnalyzeThread(bool (Graph::*analyzeEach)(), bool onWorker) {
  // A host's calculation may open a box, and the graph be gone when that is closed.
  const HWND window = hWnd;
  const std::shared_ptr<GraphWorkers> shared = workers;
  bool done = false;
  try {
    done = (this->*analyzeEach)();
  } catch (...) {
    if (!onWorker)
      throw;
    // It counts as a failure of that calculation; others have been carried out.
  }
  if (shared->Closed())
    return;
  done = calculated.exchange(false) || done;
  if (leftOut.exchange(false) || done)
    PostMessage(window, WM_UPDATE_GRAPH, 0, 0);
}

bool Graph::analyze(ViewData* series, bool (SourceData::*how)(), bool onlyEmpty) {
  const std::shared_ptr<GraphWorkers> shared = workers;
  const GraphWorkers::SeriesInUse use(*shared, series);
  if (!use || shared->Closed())
    return false;
  // Another worker may be filling it.
  const DataLock threads(onlyEmpty ? series->threadsMutex : nullptr);
  if ((onlyEmpty && series->Valid()) || !(series->*how)() || shared->Closed())
    return false;
  calculated = true;
  return true;
}

bool Graph::renderBeside(ViewData& series, bool followAxis) {
  const auto lock = [&] {
    return std::make_unique<DataLock>(series.threadsMutex, std::try_to_lock);
  };
  auto threads = lock();
  if (!*threads) {
    leftOut = true;
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
  startWorker(Job::analyzeAll);
}

void Graph::AnalyzeMask() {
  startWorker(Job::analyzeMask);
}

void Graph::SetThreadsTerminator() {
  std::vector<ViewData*> all = AllSeries();
  all.insert(all.end(), former.begin(), former.end());
  for (ViewData* const series : all) {
    series->closing = true;
    // A signal of the host's own is the host's to clear.
    const bool signalled = series->terminator && series->terminator->IsSet();
    if (!signalled)
      SetEvent(series->terminator);
    told.push_back({series, !signalled});
  }
}

void Graph::ClearThreadsTerminator() {
  for (const ToldSeries& each : told) {
    each.series->closing = false;
    if (each.signalled)
      ResetEvent(each.series->terminator);
  }
  told.clear();
}

void Graph::WaitForThreadsEnd() {
  for (const ViewData* const series : AllSeries())
    const DataLock free(series->threadsMutex);
}

void Graph::Destroy() {
  if (workers->Closed())
    return;
  workers->Close();
  SetThreadsTerminator();
  {
    const UiThread::AnswerBoxes closing;
    workers->WaitForEnd();
  }
  ClearThreadsTerminator();
  DeleteObject(std::exchange(memBitmap, nullptr));
  DeleteDC(std::exchange(memDC, nullptr));
}

}  // namespace sparlow
