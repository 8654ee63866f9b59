// The workers' half of the pipeline, and how it ends.

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
  if (!workers->Enter())
    return;
  const bool renders = job == Job::render || job == Job::resize;
  auto start = std::make_unique<WorkerStart>(
      WorkerStart{workers, this, job, renders ? workers->AskForRender(job == Job::render) : 0});
  if (AfxBeginThread(runWorker, start.get())) {
    start.release();  // the worker's own now
    return;
  }
  // The system has no thread to give: the work is done here.
  workers->Leave();
  doJob(job, start->render, false);
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
      return AnalyzeThread(&Graph::AnalyzeEach);
    case Job::analyzeMask:
      return AnalyzeThread(&Graph::AnalyzeEachNewMask);
  }
}

/// Marks the window when no render is due any more, after everything is released: who is the last to
/// give up, behind the one that rendered, brings the graph in place of the message.
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
  bool done = false;
  {
    const LastRepaints repaint(*this);
    const GraphWorkers::DueRender due(*workers);
    RenderEnd end = tryRender(render, newLayout);
    // Stopped, but by nobody who would do the work in this one's place: a host has signalled the
    // terminator. A worker waits until it is cleared, without any lock.
    while (end == RenderEnd::stopped && onWorker && !workers->WaitForNewer(render, pause))
      end = tryRender(render, newLayout);
    done = end == RenderEnd::done;
  }
  if (done && onWorker)
    tellTooLarge();
}

Graph::RenderEnd Graph::tryRender(std::uint64_t render, bool newLayout) {
  const CSingleLock pipeline(&pipelineLock);
  ViewData* const series = activeViewData;
  if (!series)
    return RenderEnd::givenUp;
  {
    const CSingleLock threads(series->threadsMutex);
    const GraphWorkers::RunningRender running(*workers, render, AllSeries());
    if (!running)
      return RenderEnd::givenUp;
    if (newLayout)
      layOut();
    const bool secondary = RenderSecondaryGraphs();
    if ((newLayout && !secondary) || !RenderGraph(true))
      return RenderEnd::stopped;
  }
  if (workers->TakeReadout()) {
    UpdateCursorsReadout();
    UpdateStaParams();
  }
  return RenderEnd::done;
}

void Graph::AnalyzeThread(bool (Graph::*analyze)()) {
  if ((this->*analyze)())
    PostMessage(hWnd, WM_UPDATE_GRAPH, 0, 0);
}

void Graph::AnalyzeAll() {
  startWorker(Job::analyzeAll);
}

void Graph::AnalyzeMask() {
  startWorker(Job::analyzeMask);
}

void Graph::SetThreadsTerminator() {
  for (const ViewData* const series : AllSeries()) {
    if (SetEvent(series->terminator))
      terminated.push_back(series->terminator);
  }
}

void Graph::ClearThreadsTerminator() {
  for (const HANDLE event : terminated)
    ResetEvent(event);
  terminated.clear();
}

void Graph::WaitForThreadsEnd() {
  const ViewData* const series = activeViewData;
  if (series && series->threadsMutex)
    const CSingleLock free(series->threadsMutex);
}

void Graph::Destroy() {
  workers->Close();
  SetThreadsTerminator();
  {
    const UiThread::AnswerBoxes closing;
    workers->WaitForEnd();
  }
  ClearThreadsTerminator();
  DeleteObject(memBitmap);
  memBitmap = nullptr;
  DeleteDC(memDC);
  memDC = nullptr;
}

}  // namespace sparlow
